#include "base/recording/fake_fonts.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace qen::base {
namespace {

constexpr Char kFirstHebrew = 0x0590;
constexpr Char kLastArabic = 0x06FF;
constexpr char32_t kFirstPrivate = 0xE000;
constexpr char32_t kLastPrivate = 0xF8FF;

bool JoinsBefore(Char c) { return (c >= 0x300 && c <= 0x36F) || (c >= 0xDC00 && c < 0xE000); }
bool HasNoInk(Char c) { return c == u' ' || c == u'\t' || c == 0x3000; }

class FakeFace final : public IFontFace {
 public:
  FakeFace(FakeFonts& owner, std::int32_t height) : owner_(owner), height_(height) { ++owner_.faceCount; }
  ~FakeFace() override { --owner_.faceCount; }
  FakeFace(const FakeFace&) = delete;
  FakeFace& operator=(const FakeFace&) = delete;

  [[nodiscard]] TextMetric Metric() const override {
    const auto ascent = static_cast<std::int32_t>(std::int64_t{height_} * 4 / 5);
    return {height_, ascent, height_ - ascent};
  }

  [[nodiscard]] bool Has(char32_t c) override { return c < kFirstPrivate || c > kLastPrivate; }

  void Shape(StringView text, GlyphStyle style, ShapedLine& line) override {
    ++owner_.shapeCount;
    const TextMetric metric = Metric();
    const bool flat = style == GlyphStyle::Bitmap;
    const std::uint32_t texture = flat ? kBitmapTexture : kDistanceFieldTexture;
    line.glyphs.clear();
    line.width = 0.0F;
    line.rightToLeft = !text.empty() && text.front() >= kFirstHebrew && text.front() <= kLastArabic;
    for (const Char c : text) {
      if (JoinsBefore(c)) continue;
      line.glyphs.push_back({line.width, -static_cast<float>(metric.tmAscent), line.width + Advance(),
                             static_cast<float>(metric.tmDescent), 0.0F, 0.0F, 1.0F, 1.0F, HasNoInk(c) ? 0 : texture});
      line.width += Advance();
    }
  }

  void Measure(StringView text, std::vector<float>& ends) override {
    ends.clear();
    float pen = 0.0F;
    for (const Char c : text) {
      if (!JoinsBefore(c)) pen += Advance();
      ends.push_back(pen);
    }
  }

 private:
  [[nodiscard]] float Advance() const { return static_cast<float>(height_) * 0.5F; }

  FakeFonts& owner_;
  std::int32_t height_;
};

}  // namespace

std::unique_ptr<IFontFace> FakeFonts::CreateFace(const FontRequest& request) {
  constexpr std::int32_t kDefaultHeight = 16;
  if (missing.contains(request.face)) return nullptr;
  if (request.height == 0) return std::make_unique<FakeFace>(*this, kDefaultHeight);
  constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
  return std::make_unique<FakeFace>(*this, std::abs(std::max(request.height, -kHighest)));
}

}  // namespace qen::base
