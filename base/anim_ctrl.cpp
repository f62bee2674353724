#include "engine/anim_ctrl.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/record.h"

namespace qen {
namespace {

float ClampFrame(float frame, float last) { return frame > 0.0F ? std::min(frame, last) : 0.0F; }  // NaN is 0

void Step(AnimCtrl::Playing& playing, double seconds) {
  const double last = static_cast<double>(playing.lastFrame);
  const double moved = seconds * static_cast<double>(playing.framesPerSecond);
  double frame = static_cast<double>(playing.frame) + (playing.reverse ? -moved : moved);
  if (playing.loop && last > 0.0) {
    frame = std::fmod(frame, last);
    if (frame < 0.0) frame += last;
  } else if (frame < 0.0 || frame > last || frame == (playing.reverse ? 0.0 : last)) {
    frame = playing.reverse ? 0.0 : last;
    playing.running = playing.loop;
  }
  playing.frame = static_cast<float>(frame);
}

bool IsUnderWay(const AnimCtrl::Playing& playing) {
  return playing.frame != (playing.reverse ? playing.lastFrame : 0.0F);
}

}  // namespace

AnimCtrl::AnimCtrl(std::vector<float> animationLengths) : lengths_(std::move(animationLengths)) {}

void AnimCtrl::SetAnimationLength(std::int32_t index, float frames) {
  if (index < 0) return;
  const auto position = static_cast<std::size_t>(index);
  if (position >= lengths_.size()) lengths_.resize(position + 1);
  lengths_[position] = frames > 0.0F && std::isfinite(frames) ? frames : 0.0F;
}

void AnimCtrl::BeginAnew() {
  if (std::erase_if(animations, [](const Playing& p) { return !p.running && !p.byHand; }) > 0) changed_ = true;
  for (Playing& playing : animations) playing.passing = playing.running && !playing.loop && IsUnderWay(playing);
}

void AnimCtrl::ClearAnimationFromStack(std::int32_t index) {
  base::Record("AnimCtrl::ClearAnimationFromStack", base::Named{this}, index);
  if (std::erase_if(animations, [index](const Playing& p) { return p.index == index; }) > 0) changed_ = true;
}

void AnimCtrl::PlayAnimation(std::int32_t index, bool reverse, float framesPerSecond, bool restart, float startFrame,
                             float speed, float blendRate, bool loop, bool additive, std::int32_t layer, bool mirror,
                             bool rootMotion, bool holdFirst, bool queue, bool silent, bool holdLast) {
  base::Record("AnimCtrl::PlayAnimation", base::Named{this}, index, reverse, framesPerSecond, restart, startFrame,
               speed, blendRate, loop, additive, layer, mirror, rootMotion, holdFirst, queue, silent, holdLast);
  if (!IsKnown(index)) return;
  Playing playing;
  playing.index = index;
  playing.lastFrame = lengths_[static_cast<std::size_t>(index)];
  playing.framesPerSecond = ClampFrame(framesPerSecond * speed, 1e6F);
  playing.loop = loop;
  playing.reverse = reverse;
  const float start = ClampFrame(startFrame, playing.lastFrame);
  playing.frame = reverse ? playing.lastFrame - start : start;
  if (const Playing* old = Find(index); old != nullptr && !restart) playing.frame = old->frame;
  std::erase_if(animations, [index](const Playing& p) { return p.index == index; });
  animations.push_back(playing);
  changed_ = true;
}

void AnimCtrl::SetNewFrame(std::int32_t index, float frame) {
  base::Record("AnimCtrl::SetNewFrame", base::Named{this}, index, frame);
  if (!IsKnown(index)) return;
  Playing* playing = Find(index);
  if (playing == nullptr) {
    playing = &animations.emplace_back();
    playing->index = index;
    playing->lastFrame = lengths_[static_cast<std::size_t>(index)];
    playing->running = false;
  }
  playing->byHand = !playing->running;
  playing->frame = ClampFrame(frame, playing->lastFrame);
  changed_ = true;
}

bool AnimCtrl::IsPlaying(std::int32_t index) const {
  const Playing* playing = Find(index);
  return playing != nullptr && playing->running;
}

void AnimCtrl::StopAnimation(std::int32_t index, float fadeSeconds) {
  base::Record("AnimCtrl::StopAnimation", base::Named{this}, index, fadeSeconds);
  if (Playing* playing = Find(index)) playing->running = false;
}

void AnimCtrl::GetAnimProgress(std::int32_t index, float& progress) const {
  const Playing* playing = Find(index);
  if (playing == nullptr) return;
  const float done = playing->lastFrame > 0.0F ? playing->frame / playing->lastFrame : 1.0F;
  progress = playing->reverse && playing->lastFrame > 0.0F ? 1.0F - done : done;
}

bool AnimCtrl::Advance(double seconds) {
  bool changed = std::exchange(changed_, false);
  for (Playing& playing : animations) {
    if (!playing.running) continue;
    if (!std::exchange(playing.fresh, false)) Step(playing, seconds);
    changed = true;
  }
  if (std::erase_if(animations, [](const Playing& p) { return p.passing && !p.running; }) > 0) changed = true;
  return changed;
}

AnimCtrl::Playing* AnimCtrl::Find(std::int32_t index) {
  const auto found = std::ranges::find(animations, index, &Playing::index);
  return found == animations.end() ? nullptr : &*found;
}

const AnimCtrl::Playing* AnimCtrl::Find(std::int32_t index) const {
  const auto found = std::ranges::find(animations, index, &Playing::index);
  return found == animations.end() ? nullptr : &*found;
}

bool AnimCtrl::IsKnown(std::int32_t index) const {
  return index >= 0 && static_cast<std::size_t>(index) < lengths_.size();
}

}  // namespace qen
