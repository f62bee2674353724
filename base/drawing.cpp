#include "engine/drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdarg>
#include <limits>
#include <typeinfo>

#include "base/context.h"
#include "base/format.h"
#include "base/record.h"
#include "engine/material.h"
#include "engine/texture.h"

namespace qen {
namespace {

using base::Context;
using base::CurrentContext;
using base::DrawItem;
using base::DrawKind;
using base::DrawVertex;
using base::FontObject;
using base::GlyphStyle;
using base::LayoutOptions;
using base::TextLayout;
using base::TextureUse;
using base::TextWindow;

constexpr double kRectUnits = 38.0;  // of 3D text rectangles, to a world unit

// Null for none and for what is not from here.
const FontObject* AsFontObject(const Font* font) {
  if (font == nullptr || typeid(*font) != typeid(FontObject)) return nullptr;
  return static_cast<const FontObject*>(font);
}

bool Has(std::uint32_t flags, std::uint32_t flag) { return (flags & flag) != 0; }

LayoutOptions OptionsOf(GlyphStyle style, std::uint32_t flags, float width) {
  const bool single = Has(flags, DT_SINGLELINE);
  const bool wraps = Has(flags, DT_WORDBREAK) && !single && width > 0.0F;
  return {style, single, Has(flags, DT_EXPANDTABS), wraps ? width : 0.0F};
}

// `extra` is cut up to whole units, but for what rounding added.
std::int16_t Saturate(double start, double extra) {
  constexpr double kRounding = 1e-3;
  const double value = start + std::ceil(extra - kRounding);
  return static_cast<std::int16_t>(std::clamp(value, -32768.0, 32767.0));
}

double HeightOf(const FontObject& font, const TextLayout& layout) {
  return static_cast<double>(layout.lines.size()) * font.GetMetric().tmHeight;
}

Rect FlatRectOf(const Rect& area, const FontObject& font, const TextLayout& layout) {
  return {Saturate(area.left, 0.0), Saturate(area.top, 0.0), Saturate(area.left, static_cast<double>(layout.width)),
          Saturate(area.top, HeightOf(font, layout))};
}

Rect SpatialRectOf(const Rect& area, const FontObject& font, const TextLayout& layout, float scale) {
  const double fontPixel = static_cast<double>(scale) * kRectUnits;
  const double left = area.left * kRectUnits;
  const double top = area.top * kRectUnits;
  const double line = font.GetMetric().tmHeight * fontPixel;
  return {Saturate(left, 0.0), Saturate(top, 0.0), Saturate(left, static_cast<double>(layout.width) * fontPixel),
          Saturate(top, HeightOf(font, layout) * fontPixel + line - 1.0)};
}

// Windows are whole units, cut down, where lines are not: one that begins less than a unit above a line begins with it.
void BeginWithALine(TextWindow& window, float lineHeight, float unit) {
  if (!(window.top > 0.0F)) return;
  constexpr float kRounding = 1e-3F;
  const float cut = std::ceil(window.top / lineHeight - kRounding) * lineHeight - window.top;
  if (!(cut < unit + kRounding)) return;
  window.top += cut;
  window.bottom += cut;
}

// `look` says how and where to draw; its texture and its glyphs are set here.
void AddText(Context& context, const FontObject& font, StringView text, const LayoutOptions& options,
             const TextWindow& window, DrawItem& look) {
  const base::TextMesh& mesh = context.texts.MeshOf(context.texts.Find(font, text, options), font, window);
  mesh.ForEachPart([&](const base::TextMesh::Part& part) {
    look.texture = part.texture;
    look.glyphs.quads = mesh.quads.data() + part.firstQuad;
    look.glyphs.count = part.quadCount;
    look.glyphs.content = part.content;
    context.render.AddText(look);
  });
}

// A laid out text on its matrix. Left, width and the visible window are in world units.
void DrawOnMatrix(Context& context, const FontObject& font, const Matrix4x4& matrix, float scale, float left, float top,
                  float width, float bottom, std::uint32_t flags, Color color, const Char* text) {
  const LayoutOptions options = OptionsOf(GlyphStyle::DistanceField, flags, width / scale);
  const float cell = static_cast<float>(font.GetMetric().tmHeight) * scale;
  TextWindow window{.centered = Has(flags, DT_CENTER)};
  if (window.centered || !Has(flags, DT_NOCLIP)) window.width = width / scale;
  if (!Has(flags, DT_NOCLIP)) {
    window.top = top / scale;
    window.bottom = bottom / scale;
    BeginWithALine(window, static_cast<float>(font.GetMetric().tmHeight), 1.0F / scale);
  }
  DrawItem look;
  look.kind = DrawKind::Text3D;
  look.textureUse = TextureUse::DistanceField;
  look.glyphs.argb = color.argb;
  look.glyphs.pixel = scale;
  look.glyphs.origin = {left, 0.0F, cell};
  look.world = matrix;
  look.distance = context.render.DistanceOf(matrix.GetTranslation());
  AddText(context, font, text, options, window, look);
}

std::uint32_t PictureOf(const MaterialParams* params) {
  const Texture* texture = params == nullptr ? nullptr : params->GetTexture(TEXTURE_SLOT_1);
  return texture == nullptr ? 0 : texture->GetHandle();
}

void AddQuad(Context& context, const DrawItem& look, const std::array<Vec3, 4>& corners, Color color) {
  const DrawVertex leftTop{corners[0], 0.0F, 0.0F, color.argb};
  const DrawVertex rightTop{corners[1], 1.0F, 0.0F, color.argb};
  const DrawVertex leftBottom{corners[2], 0.0F, 1.0F, color.argb};
  const DrawVertex rightBottom{corners[3], 1.0F, 1.0F, color.argb};
  context.render.AddVertices(context.render.BeginVertices(look),
                             std::array{leftTop, rightTop, leftBottom, rightTop, rightBottom, leftBottom});
}

}  // namespace

Drawing::Drawing() : world_(Matrix4x4::Identity) {}
Drawing::~Drawing() = default;

void Drawing::BeginText2D() {
  base::Record("Drawing::BeginText2D");
  mode_ = Mode::Text2D;
  scale_ = 1.0F;
}

void Drawing::BeginText3D(float scale) {
  base::Record("Drawing::BeginText3D", scale);
  mode_ = scale > 0.0F && std::isfinite(scale) ? Mode::Text3D : Mode::None;
  scale_ = scale;
}

void Drawing::SetFont(Font* font) {
  base::Record("Drawing::SetFont", static_cast<const Resource*>(font));
  font_ = font;
}

void Drawing::EndText() {
  base::Record("Drawing::EndText");
  mode_ = Mode::None;
}

Rect Drawing::GetTextRect(const Rect& area, std::uint32_t flags, const Char* format, ...) {
  Context* context = CurrentContext();
  if (context == nullptr) return {};
  String& text = context->texts.scratch;
  text.clear();
  std::va_list arguments;
  va_start(arguments, format);
  base::AppendFormat(text, format, arguments);
  va_end(arguments);
  base::Record("Drawing::GetTextRect", area, flags, StringView(text));

  const auto* font = AsFontObject(font_);
  if (font == nullptr || (mode_ != Mode::Text2D && mode_ != Mode::Text3D)) return {};
  const bool flat = mode_ == Mode::Text2D;
  const GlyphStyle style = flat ? GlyphStyle::Bitmap : GlyphStyle::DistanceField;
  const auto width = static_cast<float>(area.right - area.left);
  const TextLayout& layout =
      context->texts.LayoutOf(context->texts.Find(*font, text, OptionsOf(style, flags, width / scale_)));
  return flat ? FlatRectOf(area, *font, layout) : SpatialRectOf(area, *font, layout, scale_);
}

void Drawing::DrawText2D(std::int32_t x, std::int32_t y, Color color, const Char* format, ...) {
  Context* context = CurrentContext();
  if (context == nullptr) return;
  String& text = context->texts.scratch;
  text.clear();
  std::va_list arguments;
  va_start(arguments, format);
  base::AppendFormat(text, format, arguments);
  va_end(arguments);
  base::Record("Drawing::DrawText2D", x, y, color, StringView(text));

  const auto* font = AsFontObject(font_);
  if (font == nullptr || mode_ != Mode::Text2D) return;
  DrawItem look;
  look.kind = DrawKind::Text2D;
  look.textureUse = TextureUse::Coverage;
  look.glyphs.argb = color.argb;
  look.glyphs.origin = {static_cast<float>(x), static_cast<float>(y), 0.0F};
  const LayoutOptions options = OptionsOf(GlyphStyle::Bitmap, DT_SINGLELINE, 0.0F);
  AddText(*context, *font, text, options, {}, look);
}

void Drawing::DrawText3D(const Matrix4x4& matrix, const Rect& area, std::uint32_t flags, Color color,
                         const Char* text) {
  base::Record("Drawing::DrawText3D", matrix, area, flags, color, text);
  Context* context = CurrentContext();
  const auto* font = AsFontObject(font_);
  if (context == nullptr || font == nullptr || text == nullptr || mode_ != Mode::Text3D) return;
  DrawOnMatrix(*context, *font, matrix, scale_, area.left, area.top, static_cast<float>(area.right - area.left),
               area.bottom, flags, color, text);
}

void Drawing::DrawText3D(const Matrix4x4& matrix, float width, float height, std::uint32_t flags, Color color,
                         const Char* text) {
  base::Record("Drawing::DrawText3D", matrix, width, height, flags, color, text);
  Context* context = CurrentContext();
  const auto* font = AsFontObject(font_);
  if (context == nullptr || font == nullptr || text == nullptr || mode_ != Mode::Text3D) return;
  DrawOnMatrix(*context, *font, matrix, scale_, 0.0F, 0.0F, width, height, flags, color, text);
}

void Drawing::BeginQuads2D(Material* material, const MaterialParams& params) {
  base::Record("Drawing::BeginQuads2D", static_cast<const Resource*>(material));
  mode_ = Mode::Quads2D;
  params_ = &params;
}

void Drawing::DrawQuad2D(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom, Color color) {
  base::Record("Drawing::DrawQuad2D", left, top, right, bottom, color);
  Context* context = CurrentContext();
  if (context == nullptr || mode_ != Mode::Quads2D) return;
  const auto l = static_cast<float>(left), t = static_cast<float>(top);
  const auto r = static_cast<float>(right), b = static_cast<float>(bottom);
  DrawItem look;
  look.kind = DrawKind::Triangles2D;
  look.texture = PictureOf(params_);
  AddQuad(*context, look, {Vec3{l, t, 0.0F}, Vec3{r, t, 0.0F}, Vec3{l, b, 0.0F}, Vec3{r, b, 0.0F}}, color);
}

void Drawing::BeginQuads3D(Material* material, const MaterialParams& params) {
  base::Record("Drawing::BeginQuads3D", static_cast<const Resource*>(material));
  mode_ = Mode::Quads3D;
  params_ = &params;
}

void Drawing::DrawQuad3D(const Vec3& leftTop, const Vec3& rightTop, const Vec3& leftBottom, const Vec3& rightBottom,
                         Color color) {
  base::Record("Drawing::DrawQuad3D", leftTop, rightTop, leftBottom, rightBottom, color);
  Context* context = CurrentContext();
  if (context == nullptr || mode_ != Mode::Quads3D) return;
  DrawItem look;
  look.kind = DrawKind::Triangles3D;
  look.texture = PictureOf(params_);
  look.world = world_;
  look.distance = context->render.DistanceOf(world_ * ((leftTop + rightTop + leftBottom + rightBottom) * 0.25F));
  AddQuad(*context, look, {leftTop, rightTop, leftBottom, rightBottom}, color);
}

void Drawing::EndQuads() {
  base::Record("Drawing::EndQuads");
  mode_ = Mode::None;
  params_ = nullptr;
}

void Drawing::SetWorldMatrix(const Matrix4x4& world) {
  base::Record("Drawing::SetWorldMatrix", world);
  world_ = world;
}

void Drawing::DrawAABB(const AABB& box, Color color) {
  base::Record("Drawing::DrawAABB", box.center, box.halfSize, color);
  Context* context = CurrentContext();
  if (context == nullptr) return;
  constexpr std::uint32_t kOpaque = 0xFF000000;
  DrawItem look;
  look.kind = DrawKind::Lines3D;
  look.world = world_;
  look.distance = context->render.DistanceOf(world_ * box.center);
  DrawItem& item = context->render.BeginVertices(look);

  // A corner's bits say on which side it is along x, y and z; an edge joins corners that differ in one.
  const auto corner = [&](unsigned bits) {
    const Vec3 low = box.getMin(), high = box.getMax();
    const Vec3 at{(bits & 1U) != 0 ? high.x : low.x, (bits & 2U) != 0 ? high.y : low.y,
                  (bits & 4U) != 0 ? high.z : low.z};
    return DrawVertex{at, 0.0F, 0.0F, color.argb | kOpaque};
  };
  for (unsigned from = 0; from < 8; ++from) {
    for (unsigned axis = 1; axis < 8; axis *= 2) {
      if ((from & axis) == 0) context->render.AddVertices(item, std::array{corner(from), corner(from | axis)});
    }
  }
}

}  // namespace qen
