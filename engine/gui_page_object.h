// A page: one screen of the interface.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/types.h"

namespace qen {

class IBagEntry;
class ICGUIAnim;
class ICGUIObject;
class RenderClient;
class SimpleScene;
class SimpleSceneInstance;
class Viewport;
struct Matrix4x4;
struct PickResult;
struct TMNode;

namespace sound_kind {
inline constexpr std::int32_t kClick = 0;
inline constexpr std::int32_t kMouse = 1;
inline constexpr std::int32_t kAnimIn = 2;
inline constexpr std::int32_t kAnimOut = 3;
inline constexpr std::int32_t kNone = -1;
}  // namespace sound_kind

namespace page_kind {
inline constexpr std::uint32_t kOrdinary = 0;
inline constexpr std::uint32_t kBag = 2;
}  // namespace page_kind

// Operations in a fixed order; the fields are shared by all kinds of pages. Owned by the GUI book.
class QEN_API ICGUIPageObject {
 public:
  // Reads the definition file and builds the page. Returns its scene (the page's), null when it could not be built.
  virtual SimpleScene* LoadPage(const Char* file, std::uint32_t kind) = 0;

  // Updates every widget with the cursor (client pixels), the two button states and the key. Returns what is under the
  // cursor, or null. Without a viewport the last ray is used again.
  virtual PickResult* Pick(Viewport* viewport, std::uint32_t x, std::uint32_t y, std::uint32_t buttonA,
                           std::uint32_t buttonB, Char key) = 0;
  virtual void Render(Viewport* viewport) = 0;

  // Starts an animation by its position in `anims`, unless one is playing already. Returns the one that plays; null
  // when the position is out of range or a looping one was started.
  virtual ICGUIAnim* PlayAnim(std::int32_t position, bool loop) = 0;
  virtual ICGUIAnim* GetPlayingAnim() = 0;

  virtual bool Save(const Char* file) = 0;  // false when the file cannot be written
  virtual void Unload() = 0;                // releases all that the page built
  virtual std::int32_t NextObjectId() = 0;
  virtual bool FocusNext() = 0;  // always true
  virtual bool FocusPrev() = 0;
  virtual void SetBagItems(std::vector<IBagEntry*> entries) = 0;  // not owned; nothing on an ordinary page
  virtual IBagEntry* GetSelectedBagItem() = 0;
  virtual TMNode* FindNode(const Char* name) = 0;           // exact; null when there is none
  virtual Matrix4x4* FindNodeMatrix(const Char* name) = 0;  // in the page's scene instance
  virtual void Disable(bool disabled) = 0;                  // hides or shows the page's scene

  // Plays one of the page's sounds (sound_kind); the mouse-over sound only when `object` differs from the last one.
  virtual void PlaySound(const void* object, std::int32_t kind) = 0;

  virtual void RegisterRenderObject(RenderClient* client) = 0;
  virtual void UnregisterRenderObject(RenderClient* client) = 0;
  virtual ~ICGUIPageObject();
  virtual void StopAnims() = 0;
  virtual ICGUIObject* FindItem(const Char* name) = 0;  // by its lower-case name; logs when there is none

  ICGUIPageObject(const ICGUIPageObject&) = delete;
  ICGUIPageObject& operator=(const ICGUIPageObject&) = delete;

  std::uint32_t kind = 0;    // as given to LoadPage (page_kind)
  std::int32_t animIn = -1;  // positions in `anims`
  std::int32_t animOut = -1;
  std::vector<ICGUIAnim*> anims;    // owned by the page, in definition order
  std::vector<ICGUIObject*> items;  // owned by the page, in creation order
  std::vector<RenderClient*> renderClients;
  String name;                              // the scene file as the definition names it
  String baseName;                          // behind its last backslash: the page's name
  String fileName;                          // the definition file
  SimpleScene* scene = nullptr;             // owned by the page
  SimpleSceneInstance* instance = nullptr;  // owned by the scene manager
  std::int32_t instanceId = -1;
  std::int32_t focusIndex = 0;
  std::int32_t slotCount = 0;

 protected:
  ICGUIPageObject();
};

}  // namespace qen
