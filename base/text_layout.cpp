#include "base/text_layout.h"

#include <algorithm>

#include "base/fonts.h"
#include "base/line_break.h"

namespace qen::base {
namespace {

class Layouter {
 public:
  Layouter(IFontFace& face, float tabWidth, const LayoutOptions& options)
      : face_(face), tabWidth_(tabWidth), options_(options) {}

  TextLayout Run(StringView text) {
    const String clean = Clean(text);
    StringView rest = clean;
    for (auto end = rest.find(u'\n'); end != StringView::npos; end = rest.find(u'\n')) {
      AddParagraph(rest.substr(0, end));
      rest.remove_prefix(end + 1);
    }
    AddParagraph(rest);
    return std::move(layout_);
  }

 private:
  // The text with line feeds and tabs only where they have a meaning.
  [[nodiscard]] String Clean(StringView text) const {
    String clean;
    clean.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
      const bool pair = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
      if (pair) continue;
      const bool isBlank =
          text[i] == u'\r' || (text[i] == u'\n' && options_.singleLine) || (text[i] == u'\t' && !options_.expandTabs);
      clean.push_back(isBlank ? u' ' : text[i]);
    }
    return clean;
  }

  void AddParagraph(StringView text) {
    if (options_.wrapWidth <= 0.0F) return AddLine(text);
    lines_.clear();
    Measure(text);
    if (BreakLines(text, advances_, options_.wrapWidth, tabWidth_, lines_)) layout_.cutsWord = true;
    for (const StringView line : lines_) AddLine(line);
  }

  void Measure(StringView text) {
    face_.Measure(text, ends_);
    ends_.resize(text.size(), ends_.empty() ? 0.0F : ends_.back());
    advances_.resize(text.size());
    float last = 0.0F;
    for (std::size_t i = 0; i < text.size(); ++i) {
      advances_[i] = std::max(ends_[i] - last, 0.0F);
      last = std::max(last, ends_[i]);
    }
  }

  void AddLine(StringView text) {
    TextLayout::Line line;
    line.firstGlyph = static_cast<std::uint32_t>(layout_.glyphs.size());
    for (auto tab = text.find(u'\t'); tab != StringView::npos; tab = text.find(u'\t')) {
      AddRun(text.substr(0, tab), line);
      line.width = NextTabStop(line.width, tabWidth_);
      text.remove_prefix(tab + 1);
    }
    AddRun(text, line);
    line.glyphCount = static_cast<std::uint32_t>(layout_.glyphs.size()) - line.firstGlyph;
    layout_.lines.push_back(line);
    layout_.width = std::max(layout_.width, line.width);
  }

  // Text without tabs, behind what the line has.
  void AddRun(StringView text, TextLayout::Line& line) {
    if (text.empty()) return;
    if (!options_.withGlyphs) return AddMeasuredRun(text, line);
    face_.Shape(text, options_.style, shaped_);
    if (line.width == 0.0F) line.rightToLeft = shaped_.rightToLeft;
    for (Glyph glyph : shaped_.glyphs) {
      glyph.left += line.width;
      glyph.right += line.width;
      layout_.glyphs.push_back(glyph);
    }
    line.width += shaped_.width;
  }

  void AddMeasuredRun(StringView text, TextLayout::Line& line) {
    face_.Measure(text, ends_);
    if (!ends_.empty()) line.width += ends_.back();
  }

  IFontFace& face_;
  float tabWidth_;
  const LayoutOptions& options_;
  TextLayout layout_;
  ShapedLine shaped_;
  std::vector<float> ends_;
  std::vector<float> advances_;
  std::vector<StringView> lines_;
};

}  // namespace

TextLayout LayOut(const FontObject& font, StringView text, const LayoutOptions& options) {
  return LayOut(font.GetFace(), font.GetTabWidth(), text, options);
}

TextLayout LayOut(IFontFace& face, float tabWidth, StringView text, const LayoutOptions& options) {
  return Layouter(face, tabWidth, options).Run(text);
}

}  // namespace qen::base
