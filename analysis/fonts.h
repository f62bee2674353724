// The faces that a GUI's texts are in, each made once.
#pragma once

#include <map>
#include <memory>
#include <tuple>
#include <unordered_map>

#include "base/backends/font_backend.h"

namespace qen::analysis {

// How much room words take, in font pixels.
struct TextSize {
  std::size_t lines = 0;
  float width = 0.0F;     // of the widest line
  bool cutsWord = false;  // one is wider than the lines may be
};

class MeasuredFont {
 public:
  // Adds to `measured` the characters that it measures.
  MeasuredFont(std::unique_ptr<base::IFontFace> face, std::size_t& measured);

  [[nodiscard]] float LineHeight() const { return lineHeight_; }
  [[nodiscard]] String Substitute() const { return face_->Substitute(); }
  [[nodiscard]] bool Has(char32_t c) const { return face_->Has(c); }

  // Cut into lines of that width; 0: one line, whose line feeds are blanks.
  TextSize Measure(StringView words, float wrapWidth);

 private:
  std::unique_ptr<base::IFontFace> face_;
  float lineHeight_;
  float tabWidth_;
  std::size_t& measured_;
  std::map<float, std::unordered_map<String, TextSize>> known_;  // by the width
};

class Fonts {
 public:
  explicit Fonts(base::IFontBackend* backend) : backend_(backend) {}

  [[nodiscard]] bool AreThere() const { return backend_ != nullptr; }

  // Very many faces are not made: each costs a search through the installed ones.
  [[nodiscard]] bool IsFull() const;

  // Characters, the same ones in the same font and width counted once.
  [[nodiscard]] std::size_t Measured() const { return measured_; }

  // Null when there is no such face, or no more are made.
  MeasuredFont* Find(const base::FontRequest& request);

 private:
  using Key = std::tuple<String, std::int32_t, std::int32_t, std::int32_t, bool>;

  base::IFontBackend* backend_;
  std::size_t measured_ = 0;
  std::map<Key, std::unique_ptr<MeasuredFont>> fonts_;
};

}  // namespace qen::analysis
