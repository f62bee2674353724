#include "widgets/anim.h"

#include "engine/anim_ctrl.h"
#include "engine/scene_instance.h"

namespace qen {

void CGUIAnim::Init(SimpleSceneInstance* const& instance, std::int32_t index, const String& ownName) {
  name = ownName;
  instance_ = &instance;
  record_ = {};
  record_.type = widget_type::kAnim;
  record_.tooltip = 0;
  info = &record_;
  animationIndex = index;
  playing = 0;
}

AnimCtrl* CGUIAnim::Controller() const {
  if (instance_ == nullptr || *instance_ == nullptr || animationIndex < 0) return nullptr;
  return (*instance_)->animCtrl;
}

void CGUIAnim::Play(bool loop) {
  playing = 1;
  AnimCtrl* controller = Controller();
  if (controller == nullptr) return;
  controller->ClearAnimationFromStack(animationIndex);
  controller->PlayAnimation(animationIndex, false, 30.0F, true, 0.0F, 1.0F, 3.0F, loop, false, -1, false, false, false,
                            false, false, true);
}

void CGUIAnim::SetFrame(float frame) {
  if (AnimCtrl* controller = Controller()) controller->SetNewFrame(animationIndex, frame);
}

bool CGUIAnim::IsPlaying() {
  const AnimCtrl* controller = Controller();
  return controller != nullptr && controller->IsPlaying(animationIndex);
}

void CGUIAnim::Stop() {
  if (AnimCtrl* controller = Controller()) controller->StopAnimation(animationIndex, 0.0F);
  playing = 0;
}

float CGUIAnim::GetProgress() {
  float progress = -1.0F;
  if (const AnimCtrl* controller = Controller()) controller->GetAnimProgress(animationIndex, progress);
  return progress;
}

}  // namespace qen
