// A window, a sound device and an input method that only remember what they were told.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "base/backends/ime_backend.h"
#include "base/backends/sound_backend.h"
#include "base/backends/window_backend.h"

namespace qen::base {

class QEN_API FakeWindow final : public IWindowBackend {
 public:
  Point ClientSize() override { return size; }
  Point ClientOrigin() override { return origin; }
  Point Cursor() override { return cursor; }
  void SetCursor(Point screen) override { cursor = screen; }

  Point size{800, 600};
  Point origin{100, 50};
  Point cursor;  // on the screen
};

// A sound is known by the content of its file; one that is empty or begins with "bad" is none.
class QEN_API FakeSound final : public ISoundBackend {
 public:
  std::uint32_t Load(std::span<const std::uint8_t> file) override;
  void Play(std::uint32_t sound, float volume) override;
  void Free(std::uint32_t sound) override;

  std::unordered_map<std::uint32_t, std::string> loaded;  // content by name
  std::vector<std::string> played;                        // contents, in order

 private:
  std::uint32_t last_ = 0;
};

class QEN_API FakeIme final : public IImeBackend {
 public:
  void Enable(bool enabled) override { changes.push_back(enabled); }
  String Composition() override { return composition; }
  Rect Field() override { return field; }

  String composition;
  Rect field;
  std::vector<bool> changes;  // each state it was told
};

}  // namespace qen::base
