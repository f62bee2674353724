// Frames of many things, drawn together by the renderer, against the same things drawn one by one, pixel by pixel.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <random>
#include <vector>

#include "engine/mesh.h"
#include "host/render/gl_renderer.h"
#include "host/window/sdl_window.h"

namespace qen::host {
namespace {

using base::DrawKind;
using LinearRgb = std::array<float, 3>;  // linear

constexpr int kSize = 32;  // of the picture, and of the world that is seen: pixels, and depths from 0 to 1

// A rectangle of one colour.
struct Shape {
  DrawKind kind = DrawKind::Mesh;
  int left = 0, top = 0, width = 1, height = 1;
  float z = 0.0F;
  float distance = 0.0F;
  LinearRgb color{};
  float alpha = 1.0F;
  const SubMesh* mesh = nullptr;  // of a mesh, which has the colour
  bool mirrored = false;
  std::size_t text = 0;  // of a text: position in the fixture's
};

bool IsIn2D(const Shape& shape) { return shape.kind == DrawKind::Triangles2D || shape.kind == DrawKind::Text2D; }
bool IsText(const Shape& shape) { return shape.kind == DrawKind::Text2D || shape.kind == DrawKind::Text3D; }
float PixelOf(const Shape& text) { return IsIn2D(text) ? 1.0F : 0.5F; }
bool IsSolid(const Shape& shape) { return shape.kind == DrawKind::Mesh && shape.alpha == 1.0F; }

std::uint32_t ArgbOf(const Shape& shape) {
  const std::uint32_t alpha = shape.alpha < 1.0F ? 0x80U : 0xFFU;
  return alpha << 24 | (shape.color[0] > 0 ? 0xFF0000U : 0) | (shape.color[1] > 0 ? 0xFF00U : 0) | 0xFFU;
}

// The slow way.
class PlainPicture {
 public:
  void DrawLayer(std::vector<Shape> shapes) {
    depth_.fill(1.0F);
    const auto rank = [](const Shape& shape) { return IsSolid(shape) ? 0 : IsIn2D(shape) ? 2 : 1; };
    std::ranges::stable_sort(shapes, [&](const Shape& a, const Shape& b) {
      if (rank(a) != rank(b)) return rank(a) < rank(b);
      return rank(a) == 1 && a.distance > b.distance;
    });
    for (const Shape& shape : shapes) Draw(shape);
  }

  [[nodiscard]] int Encoded(int pixel, std::size_t channel) const {
    const float c = colors_[static_cast<std::size_t>(pixel)][channel];
    return static_cast<int>(
        std::lround(255 * (c <= 0.0031308F ? 12.92F * c : 1.055F * std::pow(c, 1 / 2.4F) - 0.055F)));
  }

 private:
  void Draw(const Shape& shape) {
    for (int y = shape.top; y < std::min(shape.top + shape.height, kSize); ++y) {
      for (int x = shape.left; x < std::min(shape.left + shape.width, kSize); ++x) {
        const auto pixel = static_cast<std::size_t>(y * kSize + x);
        if (!IsIn2D(shape) && shape.z > depth_[pixel]) continue;
        if (IsSolid(shape)) depth_[pixel] = shape.z;
        for (std::size_t i = 0; i < 3; ++i) {
          float& under = colors_[pixel][i];
          under += (shape.color[i] - under) * shape.alpha;
        }
      }
    }
  }

  std::array<LinearRgb, kSize * kSize> colors_{};
  std::array<float, kSize * kSize> depth_{};
};

class RandomFramesTest : public ::testing::Test {
 protected:
  RandomFramesTest() {
    const Vec3 normal{0, 0, -1};
    for (const float cut : {0.25F, 0.5F}) {  // the two halves of a unit square, in two ways
      const base::Vertex corners[] = {{{0, 0, 0}, normal}, {{cut, 0, 0}, normal}, {{cut, 1, 0}, normal},
                                      {{0, 1, 0}, normal}, {{1, 0, 0}, normal},   {{1, 1, 0}, normal}};
      geometries_.push_back(
          renderer_.CreateGeometry(corners, std::array<std::uint32_t, 12>{0, 3, 2, 0, 2, 1, 1, 2, 5, 1, 5, 4}));
    }
    for (int i = 0; i < 12; ++i) {  // sub-meshes share materials, geometries, both or none
      SubMesh& mesh = meshes_.emplace_back();
      mesh.geometry = geometries_[static_cast<std::size_t>(i) % 2];
      MaterialParams& params = mesh.GetMaterialParams();
      params.baseColor = {i / 2 % 3 == 0 ? 1.0F : 0.0F, i / 2 % 3 == 1 ? 1.0F : 0.0F, 1.0F, i < 6 ? 1.0F : 0.5F};
      if (i >= 6) params.alphaMode = AlphaMode::Blend;
    }
  }

  int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  Shape Any(float z) {
    Shape shape{static_cast<DrawKind>(Below(6)), Below(kSize), Below(kSize), 1 + Below(kSize), 1 + Below(kSize), z,
                static_cast<float>(Below(4))};
    if (shape.kind == DrawKind::Lines3D) shape.kind = DrawKind::Mesh;  // cover no whole pixels
    shape.color = {static_cast<float>(Below(2)), static_cast<float>(Below(2)), 1.0F};
    shape.alpha = Below(2) == 0 ? 128.0F / 255.0F : 1.0F;
    shape.mirrored = Below(2) == 0;
    if (shape.kind == DrawKind::Mesh) {
      shape.mesh = &meshes_[static_cast<std::size_t>(Below(static_cast<int>(meshes_.size())))];
      const std::array<float, 4>& color = shape.mesh->GetMaterialParams().baseColor;
      shape.color = {color[0], color[1], color[2]};
      shape.alpha = color[3];
    }
    if (IsText(shape)) AddText(shape);
    return shape;
  }

  // In one glyph or in two.
  void AddText(Shape& shape) {
    const float pixel = PixelOf(shape);
    const float right = static_cast<float>(shape.width) / pixel, bottom = static_cast<float>(shape.height) / pixel;
    std::vector<base::GlyphQuad> glyphs{{0, 0, right, bottom}};
    if (Below(2) == 0) glyphs = {{0, 0, right, bottom / 4}, {0, bottom / 4, right, bottom}};
    shape.text = texts_.size();
    texts_.push_back(glyphs);
  }

  void RandomLayers() {
    layers_.resize(static_cast<std::size_t>(1 + Below(3)));
    for (std::vector<Shape>& shapes : layers_) {
      std::vector<float> depths(static_cast<std::size_t>(Below(24)));
      for (std::size_t i = 0; i < depths.size(); ++i) depths[i] = static_cast<float>(i + 1) / 32.0F;
      std::ranges::shuffle(depths, random_);
      shapes.clear();
      for (const float depth : depths) shapes.push_back(Any(depth));
    }
  }

  // Another one, or the same elsewhere.
  void ChangeOne() {
    std::vector<Shape>& shapes = layers_[static_cast<std::size_t>(Below(static_cast<int>(layers_.size())))];
    if (shapes.empty()) return;
    Shape& shape = shapes[static_cast<std::size_t>(Below(static_cast<int>(shapes.size())))];
    if (Below(2) == 0) shape = Any(shape.z);
    shape.left = Below(kSize);
  }

  void StartLayer() {
    base::DrawLayer& layer = list_.layers.emplace_back();
    layer.firstItem = static_cast<std::uint32_t>(list_.items.size());
    // The world is in pixels.
    layer.projection.m[0][0] = 2.0F / kSize;
    layer.projection.m[1][1] = -2.0F / kSize;
    layer.projection.SetTranslation({-1.0F, 1.0F, 0.0F});
  }

  void Add(const Shape& shape) {
    base::DrawItem& item = list_.items.emplace_back();
    ++list_.layers.back().itemCount;
    item.kind = shape.kind;
    item.distance = shape.distance;
    if (shape.kind == DrawKind::Mesh) return PlaceMesh(item, shape);
    if (IsText(shape)) return PlaceText(item, shape);
    if (!IsIn2D(shape)) item.world.SetTranslation({0, 0, shape.z});
    const auto left = static_cast<float>(shape.left), top = static_cast<float>(shape.top);
    const float right = left + static_cast<float>(shape.width), bottom = top + static_cast<float>(shape.height);
    const std::uint32_t argb = ArgbOf(shape);
    item.firstVertex = static_cast<std::uint32_t>(list_.vertices.size());
    item.vertexCount = 6;
    const base::DrawVertex a{{left, top, 0}, 0, 0, argb}, b{{right, top, 0}, 0, 0, argb};
    const base::DrawVertex c{{left, bottom, 0}, 0, 0, argb}, d{{right, bottom, 0}, 0, 0, argb};
    list_.vertices.insert(list_.vertices.end(), {a, b, c, b, d, c});
  }

  static void PlaceMesh(base::DrawItem& item, const Shape& shape) {
    const auto left = static_cast<float>(shape.left), width = static_cast<float>(shape.width);
    item.subMesh = shape.mesh;
    item.world.m[0][0] = shape.mirrored ? -width : width;
    item.world.m[1][1] = static_cast<float>(shape.height);
    item.world.SetTranslation({shape.mirrored ? left + width : left, static_cast<float>(shape.top), shape.z});
  }

  void PlaceText(base::DrawItem& item, const Shape& shape) const {
    const auto left = static_cast<float>(shape.left), top = static_cast<float>(shape.top);
    const std::vector<base::GlyphQuad>& glyphs = texts_[shape.text];
    item.glyphs.quads = glyphs.data();
    item.glyphs.count = static_cast<std::uint32_t>(glyphs.size());
    item.glyphs.content = static_cast<std::uint32_t>(shape.text) + 1;
    item.glyphs.argb = ArgbOf(shape);
    item.glyphs.pixel = PixelOf(shape);
    item.glyphs.origin = IsIn2D(shape) ? Vec3{left, top, 0} : Vec3{left, 0, -top};
    if (!IsIn2D(shape)) item.world = {{{1, 0, 0, 0}, {0, 0, 1, 0}, {0, -1, 0, 0}, {0, 0, shape.z, 1}}};
  }

  std::mt19937 random_{7};
  SdlWindow window_{{.title = "test", .width = kSize, .height = kSize, .offscreen = true}};
  GlRenderer renderer_{{.samples = 0, .onError = [](std::string_view line) { ADD_FAILURE() << line; }}};
  std::vector<std::uint32_t> geometries_;
  std::vector<SubMesh> meshes_;
  std::deque<std::vector<base::GlyphQuad>> texts_;
  std::vector<std::vector<Shape>> layers_;
  base::DrawList list_;
};

TEST_F(RandomFramesTest, LookAsWhatIsDrawnThingByThing) {
  for (int frame = 0; frame < 300; ++frame) {
    frame == 0 || Below(3) == 0 ? RandomLayers() : ChangeOne();
    list_.Clear();
    PlainPicture wanted;
    for (const std::vector<Shape>& shapes : layers_) {
      StartLayer();
      for (const Shape& shape : shapes) Add(shape);
      wanted.DrawLayer(shapes);
    }
    renderer_.Draw(list_, kSize, kSize);
    base::Image picture;
    renderer_.Read(picture);
    for (int pixel = 0; pixel < kSize * kSize; ++pixel) {
      for (std::size_t channel = 0; channel < 3; ++channel) {
        const int got = picture.rgba[static_cast<std::size_t>(pixel) * 4 + channel];
        ASSERT_NEAR(got, wanted.Encoded(pixel, channel), 3) << "frame " << frame << ", pixel " << pixel;
      }
    }
    renderer_.Draw(list_, kSize, kSize);
    ASSERT_FALSE(renderer_.HasChanged()) << "the same frame again";
  }
}

}  // namespace
}  // namespace qen::host
