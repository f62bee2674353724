#include "tests/host/graphics_test.h"

#include <cmath>

namespace qen::host {
namespace {

float Linear(int encoded) {
  const float value = static_cast<float>(encoded) / 255.0F;
  return value <= 0.04045F ? value / 12.92F : std::pow((value + 0.055F) / 1.055F, 2.4F);
}

}  // namespace

GraphicsTest::GraphicsTest()
    : window({.title = "test", .width = 32, .height = 32, .offscreen = true, .debugContext = true}) {
  UseSamples(4);
  light.type = Light::kDirectional;
  StartLayer();
}

void GraphicsTest::UseSamples(int samples) {
  const auto complain = [this](std::string_view line) { complaints.emplace_back(line); };
  renderer.reset();
  renderer = std::make_unique<GlRenderer>(GlRendererOptions{samples, false, complain});
}

void GraphicsTest::StartLayer() {
  base::DrawLayer& layer = list.layers.emplace_back();
  layer.firstItem = static_cast<std::uint32_t>(list.items.size());
}

SubMesh& GraphicsTest::AddMesh(const std::vector<base::Vertex>& vertices, const std::vector<std::uint32_t>& indices,
                               const Matrix4x4& world) {
  SubMesh& mesh = *meshes_.emplace_back(std::make_unique<SubMesh>());
  mesh.geometry = renderer->CreateGeometry(vertices, indices);
  base::DrawItem& item = list.items.emplace_back();
  item.entry.subMesh = &mesh;
  item.world = world;
  ++list.layers.back().itemCount;
  return mesh;
}

SubMesh& GraphicsTest::AddQuad(float left, float bottom, float right, float top, float z, Rgb color) {
  const Vec3 towardsViewer{0.0F, 0.0F, -1.0F};
  const std::vector<base::Vertex> corners{{{left, bottom, z}, towardsViewer, 0.0F, 1.0F},
                                          {{right, bottom, z}, towardsViewer, 1.0F, 1.0F},
                                          {{right, top, z}, towardsViewer, 1.0F, 0.0F},
                                          {{left, top, z}, towardsViewer, 0.0F, 0.0F}};
  SubMesh& mesh = AddMesh(corners, {0, 1, 2, 0, 2, 3});
  mesh.GetMaterialParams().baseColor = {Linear(color.red), Linear(color.green), Linear(color.blue), 1.0F};
  list.items.back().distance = z;
  return mesh;
}

base::DrawItem& GraphicsTest::AddRectangle(base::DrawKind kind, float left, float top, float right, float bottom,
                                           float z, std::uint32_t argb) {
  base::DrawItem& item = list.items.emplace_back();
  item.kind = kind;
  item.distance = z;
  item.firstVertex = static_cast<std::uint32_t>(list.vertices.size());
  item.vertexCount = 6;
  const base::DrawVertex leftTop{{left, top, z}, 0.0F, 0.0F, argb};
  const base::DrawVertex rightTop{{right, top, z}, 1.0F, 0.0F, argb};
  const base::DrawVertex leftBottom{{left, bottom, z}, 0.0F, 1.0F, argb};
  const base::DrawVertex rightBottom{{right, bottom, z}, 1.0F, 1.0F, argb};
  for (const base::DrawVertex& vertex : {leftTop, rightTop, leftBottom, rightTop, rightBottom, leftBottom}) {
    list.vertices.push_back(vertex);
  }
  ++list.layers.back().itemCount;
  return item;
}

void GraphicsTest::Show(std::int32_t width, std::int32_t height) {
  renderer->Draw(list, width, height);
  renderer->Read(picture);
  ASSERT_EQ(picture.width, width);
  ASSERT_EQ(picture.height, height);
}

Rgb GraphicsTest::At(std::int32_t x, std::int32_t y) const {
  const std::uint8_t* pixel = picture.rgba.data() + static_cast<std::ptrdiff_t>(y * picture.width + x) * 4;
  EXPECT_EQ(pixel[3], 255) << "the picture is see-through";
  return {pixel[0], pixel[1], pixel[2]};
}

void GraphicsTest::ClearFrame() {
  list.Clear();
  StartLayer();
}

std::uint32_t GraphicsTest::MakeTexture(Rgb color, std::uint8_t alpha) {
  base::Image image{1, 1, {}};
  for (const int part : {color.red, color.green, color.blue}) image.rgba.push_back(static_cast<std::uint8_t>(part));
  image.rgba.push_back(alpha);
  return renderer->CreateTexture(image);
}

}  // namespace qen::host
