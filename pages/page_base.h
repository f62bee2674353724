// What both kinds of pages share: the scene, its instance, the widgets and the animations.
#pragma once

#include <deque>
#include <memory>

#include "commands/live_objects.h"
#include "definitions/page_builder.h"
#include "engine/gui_page_object.h"
#include "engine/item_info.h"
#include "pages/node_index.h"
#include "pages/scene_names.h"

namespace qen {

class CGUIAnim;

class PageBase : public ICGUIPageObject, public IPageBuilder, private ISceneUser {
 public:
  ~PageBase() override;

  ICGUIAnim* PlayAnim(std::int32_t position, bool loop) override;
  ICGUIAnim* GetPlayingAnim() override;
  std::int32_t NextObjectId() override;
  TMNode* FindNode(const Char* wanted) override;
  Matrix4x4* FindNodeMatrix(const Char* wanted) override;
  void Disable(bool disabled) override;
  void StopAnims() override;
  ICGUIObject* FindItem(const Char* wanted) override;

  // Appends every widget that now has the name, in widget order.
  void AppendWidgets(StringView wanted, std::vector<ICGUIObject*>& found) const;

  [[nodiscard]] virtual bool IsUnloading() const { return false; }  // tells its clients, who may do anything

  // The child of a node whose name begins with the word, letter case aside, and its position. On a miss false, null,
  // -1.
  bool FindChildNode(const TMNode* parent, StringView word, TMNode*& node, std::int32_t& position) const {
    return nodeIndex_.FindChildNode(parent, word, node, position);
  }

  bool LoadScene(const String& file) override;
  bool HasScene() const override { return scene != nullptr; }
  bool AddAnimation(const String& file) override;
  void SetAnimIn(std::int32_t animation) override { animIn = animation; }
  void SetAnimOut(std::int32_t animation) override { animOut = animation; }
  void Build() override;
  const std::vector<ICGUIObject*>& Widgets() const override { return items; }

 protected:
  // `owner` and `line` name the class in the engine's log.
  PageBase(const char* owner, std::int32_t line);

  // The counters and names back to how a page begins.
  void ResetForLoading(const Char* file, std::uint32_t newKind);

  // A new widget for a type letter; null when pages of this kind have none for it.
  virtual std::unique_ptr<ICGUIObject> MakeWidget(Char letter) = 0;
  virtual void SceneLoaded() {}      // behind the registration of the scene
  virtual void InstanceCreated() {}  // behind the hiding of the new instance
  virtual void WidgetCreated(ICGUIObject& widget) = 0;

  [[nodiscard]] const NodeIndex& Nodes() const { return nodeIndex_; }
  [[nodiscard]] const String& SceneName() const { return names_.Scene(); }

  void ReleaseWidgets();
  void ReleaseAnimations();
  void DestroySceneEntries();  // the instance and the scene manager's names
  void DeleteScene();

 private:
  void LoseScene() override;
  void CreateSceneInstance();
  void CreateWidgets();
  void CreateWidget(StringView nodeName);

  LiveMark alive_{static_cast<ICGUIPageObject*>(this)};
  const char* owner_;
  std::int32_t line_;
  SceneNames names_;
  std::unique_ptr<SimpleScene> ownedScene_;
  NodeIndex nodeIndex_;
  std::vector<std::unique_ptr<CGUIAnim>> ownedAnims_;
  std::deque<ItemInfo> records_;  // of the widgets; outlive them
  std::vector<std::unique_ptr<ICGUIObject>> ownedWidgets_;
  std::uint32_t nextObjectId_ = 0;
};

}  // namespace qen
