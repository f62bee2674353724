// The handle on one animation of a page's scene.
#pragma once

#include "engine/gui_widgets.h"
#include "engine/item_info.h"

namespace qen {

class AnimCtrl;

// Plays through the animation controller of the page's scene instance; does nothing while there is none.
class CGUIAnim : public ICGUIAnim {
 public:
  void Init(SimpleSceneInstance* const& instance, std::int32_t index, const String& name) override;
  void Play(bool loop) override;
  void SetFrame(float frame) override;
  bool IsPlaying() override;
  void Stop() override;
  float GetProgress() override;

 private:
  [[nodiscard]] AnimCtrl* Controller() const;

  SimpleSceneInstance* const* instance_ = nullptr;  // the page's field
  ItemInfo record_;
};

}  // namespace qen
