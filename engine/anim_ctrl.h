// Plays the animations of one scene instance.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/types.h"

namespace qen {

class QEN_API AnimCtrl {
 public:
  // One animation being played. Frames count 30 a second in the animation's own time.
  struct Playing {
    std::int32_t index = -1;
    float frame = 0.0F;
    float framesPerSecond = 30.0F;
    float lastFrame = 0.0F;
    bool loop = false;
    bool reverse = false;
    bool running = true;   // false: ended, stopped or never started; its pose stays
    bool byHand = false;   // a frame that was set and does not run
    bool passing = false;  // leaves the stack when it ends
    bool fresh = true;     // started since the last Advance
  };

  explicit AnimCtrl(std::vector<float> animationLengths = {});

  // Told by the scene when it loads an animation: its length in frames, in the order of the indices.
  void SetAnimationLength(std::int32_t index, float frames);

  // Told when the instance is shown, again or for the first time: what has ended leaves no pose behind, nor will what
  // is under way when it ends. Loops and frames that were set stay.
  void BeginAnew();

  // Unknown and negative indices are ignored by every operation.
  void ClearAnimationFromStack(std::int32_t index);

  // Starts an animation from `startFrame` (from its end when reversed). It runs `framesPerSecond` x `speed` frames a
  // second, with `loop` for ever, else it stays on its last frame. The other arguments are for engines that blend
  // animations on layers; this contract's users pass the values shown.
  void PlayAnimation(std::int32_t index, bool reverse, float framesPerSecond, bool restart, float startFrame,
                     float speed, float blendRate /* 3 */, bool loop, bool additive /* false */,
                     std::int32_t layer /* -1 */, bool mirror /* false */, bool rootMotion /* false */,
                     bool holdFirst /* false */, bool queue /* false */, bool silent /* false */,
                     bool holdLast /* true */);

  // Shows one frame of an animation; it goes on from there when it is playing.
  void SetNewFrame(std::int32_t index, float frame);
  [[nodiscard]] bool IsPlaying(std::int32_t index) const;
  void StopAnimation(std::int32_t index, float fadeSeconds);

  // Writes how far the animation is, 0 to 1; leaves `progress` unchanged when it is not on the stack.
  void GetAnimProgress(std::int32_t index, float& progress) const;

  // Moves every running animation on, but for those started since the last call: these are in their first pose now.
  // True when the pose changed, or may have.
  bool Advance(double seconds);

  std::vector<Playing> animations;  // the stack, oldest first: later ones override earlier ones

 private:
  Playing* Find(std::int32_t index);
  [[nodiscard]] const Playing* Find(std::int32_t index) const;
  [[nodiscard]] bool IsKnown(std::int32_t index) const;

  std::vector<float> lengths_;  // frames, by index
  bool changed_ = false;        // a frame was set since the last Advance
};

}  // namespace qen
