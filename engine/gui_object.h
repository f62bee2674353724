// A widget.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen {

class ICGUIPageObject;
class ICGUIText;
class SimpleSceneInstance;
struct AABB;
struct ItemInfo;
struct Matrix4x4;
struct PickResult;
struct Ray;
struct TMNode;

// The base of all widgets: thirteen operations in a fixed order, each with the shared implementation that a class keeps
// unless it says otherwise, and the fields that pages and commands work on. Created by the GUI module; Release is
// called before the destructor.
class QEN_API ICGUIObject {
 public:
  virtual ~ICGUIObject();

  // Binds the widget to its page, its record (owned by the page) and its scene node. `node` may be null.
  virtual void Create(ICGUIPageObject* page, ItemInfo* info, TMNode* const* node);

  // One frame. Returns the widget's own pair when it is hovered or clicked, valid until the next update; else null.
  virtual PickResult* Update(const Ray& ray);

  // Draws what the widget draws itself, given its node's world matrix and the box of the node's mesh.
  virtual void Render(const Matrix4x4& world, const AABB& box);

  // Frees children and resources; the widget is only destroyed afterwards.
  virtual void Release();

  virtual void SetVisible(std::uint32_t visible);  // these three store into the record; nothing without one
  virtual void ShowNodes(std::uint32_t shown);     // turns drawing of the widget's nodes on or off
  virtual void SetDisabled(std::uint32_t disabled);
  virtual void SetShowBox(std::uint32_t shown);
  virtual void GetMatrix(Matrix4x4& matrix);  // the normal node's world matrix; unchanged when there is none
  virtual void SetMatrix(const Matrix4x4& matrix);
  virtual void GetAABB(AABB& box);  // the box of the normal node's mesh, local; unchanged when there is none
  virtual std::int32_t& GetId();

  ICGUIObject(const ICGUIObject&) = delete;
  ICGUIObject& operator=(const ICGUIObject&) = delete;

  [[nodiscard]] ICGUIPageObject* GetPage() const { return page; }
  // Drawn with the node of a list, text or picture, in the instance's own place; null for none.
  [[nodiscard]] SimpleSceneInstance* GetSubScene() const { return subScene; }

  ICGUIPageObject* page = nullptr;
  ItemInfo* info = nullptr;
  ICGUIText* text = nullptr;  // the text child, owned by the widget
  TMNode* node = nullptr;
  TMNode* normalNode = nullptr;
  TMNode* onMouseNode = nullptr;
  TMNode* disabledNode = nullptr;
  std::int32_t normalIndex = -1;  // positions of those nodes in the scene
  std::int32_t onMouseIndex = -1;
  std::int32_t disabledIndex = -1;
  std::int32_t id = 0;
  std::int32_t state = 0;       // widget_state
  std::int32_t hoverSound = 1;  // sound kinds, see ICGUIPageObject::PlaySound
  std::int32_t clickSound = 0;
  SimpleSceneInstance* subScene = nullptr;  // not owned; set by the host

 protected:
  ICGUIObject();
};

}  // namespace qen
