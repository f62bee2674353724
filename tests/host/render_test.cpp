// What the renderer makes of frames, where no picture of the sample shows it.
#include <epoxy/gl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <stdexcept>
#include <utility>

#include "engine/light.h"
#include "engine/mesh.h"
#include "engine/texture.h"
#include "host/render/gl_program.h"
#include "host/render/gl_renderer.h"
#include "host/window/sdl_window.h"

namespace qen::host {
namespace {

using base::DrawKind;
using ::testing::ElementsAre;
using ::testing::StartsWith;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

float Linear(std::uint32_t encoded) { return std::pow(static_cast<float>(encoded & 0xFF) / 255.0F, 2.2F); }

class TestTexture final : public Texture {
 public:
  explicit TestTexture(std::uint32_t handle) : Texture(u"test", kDefaultGroup), handle_(handle) {}
  [[nodiscard]] std::uint32_t GetHandle() const override { return handle_; }
  [[nodiscard]] std::int32_t GetWidth() const override { return 1; }
  [[nodiscard]] std::int32_t GetHeight() const override { return 1; }

 private:
  std::uint32_t handle_;
};

using Rgb = std::array<int, 3>;
constexpr Rgb kBlack{0, 0, 0}, kRed{255, 0, 0}, kGreen{0, 255, 0}, kBlue{0, 0, 255}, kWhite{255, 255, 255};

MATCHER_P2(IsNear, color, tolerance, "") {
  return std::ranges::equal(arg, color, [this](int a, int b) { return std::abs(a - b) <= tolerance; });
}

struct Thing {
  DrawKind kind;
  float z = 0.5F;
  std::uint32_t argb = 0xFFFFFFFF;
  float right = 1.0F;
  float distance = z;
  std::function<void(base::DrawItem&, MaterialParams&)> change = {};
};

// Frames have layers whose world is clip space: x right, y up from -1 to 1, z away from 0 to 1, all of it on the
// picture. Any complaint of OpenGL fails the test.
class RenderTest : public ::testing::Test {
 protected:
  RenderTest() {
    UseSamples(4);
    StartLayer();
  }
  void TearDown() override { EXPECT_THAT(complaints, ::testing::IsEmpty()); }

  void UseSamples(int samples, bool coarseInMotion = false) {  // with a fresh renderer
    const auto complain = [this](std::string_view line) { complaints.emplace_back(line); };
    renderer.reset();
    renderer = std::make_unique<GlRenderer>(
        GlRendererOptions{.samples = samples, .coarseInMotion = coarseInMotion, .onError = complain});
  }
  void StartLayer() { list.layers.emplace_back().firstItem = static_cast<std::uint32_t>(list.items.size()); }
  void ClearFrame() {
    list.Clear();
    StartLayer();
  }

  base::DrawItem& AddItem(DrawKind kind, float distance) {
    ++list.layers.back().itemCount;
    base::DrawItem& item = list.items.emplace_back();
    item.kind = kind;
    item.distance = distance;
    return item;
  }

  base::DrawItem& AddRectangle(DrawKind kind, float left, float top, float right, float bottom, float z,
                               std::uint32_t argb) {
    base::DrawItem& item = AddItem(kind, z);
    item.firstVertex = static_cast<std::uint32_t>(list.vertices.size());
    item.vertexCount = 6;
    const base::DrawVertex leftTop{{left, top, z}, 0.0F, 0.0F, argb};
    const base::DrawVertex rightTop{{right, top, z}, 1.0F, 0.0F, argb};
    const base::DrawVertex leftBottom{{left, bottom, z}, 0.0F, 1.0F, argb};
    const base::DrawVertex rightBottom{{right, bottom, z}, 1.0F, 1.0F, argb};
    list.vertices.insert(list.vertices.end(), {leftTop, rightTop, leftBottom, rightTop, rightBottom, leftBottom});
    return item;
  }

  void Show(std::int32_t width = 32, std::int32_t height = 32) {
    renderer->Draw(list, width, height);
    renderer->Read(picture);
    ASSERT_EQ(picture.width, width);
    ASSERT_EQ(picture.height, height);
  }
  [[nodiscard]] Rgb At(std::int32_t x, std::int32_t y) const {
    const std::uint8_t* pixel = picture.rgba.data() + static_cast<std::ptrdiff_t>(y * picture.width + x) * 4;
    EXPECT_EQ(pixel[3], 255) << "the picture is see-through";
    return {pixel[0], pixel[1], pixel[2]};
  }

  void Add(const Thing& thing) {
    MaterialParams none;
    MaterialParams* params = &none;
    if (thing.kind == DrawKind::Mesh) {
      const Vec3 normal{0, 0, -1};
      const float z = thing.z, right = thing.right;
      const base::Vertex corners[] = {
          {{-1, -1, z}, normal}, {{right, -1, z}, normal}, {{right, 1, z}, normal}, {{-1, 1, z}, normal}};
      SubMesh& mesh = *meshes.emplace_back(std::make_unique<SubMesh>());
      mesh.geometry = renderer->CreateGeometry(corners, std::array<std::uint32_t, 6>{0, 1, 2, 0, 2, 3});
      AddItem(DrawKind::Mesh, z).subMesh = &mesh;
      params = &mesh.GetMaterialParams();
      const float alpha = static_cast<float>(thing.argb >> 24) / 255.0F;
      params->baseColor = {Linear(thing.argb >> 16), Linear(thing.argb >> 8), Linear(thing.argb), alpha};
      if (alpha < 1.0F) params->alphaMode = AlphaMode::Blend;
    } else {
      const bool flat = thing.kind == DrawKind::Triangles2D;  // in pixels
      const float left = flat ? 0 : -1, top = flat ? 0 : 1, bottom = flat ? 32 : -1;
      AddRectangle(thing.kind, left, top, flat ? 16 * (thing.right + 1) : thing.right, bottom, thing.z, thing.argb);
    }
    list.items.back().distance = thing.distance;
    if (thing.change) thing.change(list.items.back(), *params);
  }

  // A letter for the left half of the picture and one for the right.
  std::string Halves() {
    const std::map<char, Rgb> letters{{'.', kBlack},       {'R', kRed},   {'G', kGreen},
                                      {'B', kBlue},        {'W', kWhite}, {'w', {128, 128, 128}},
                                      {'g', {137, 188, 0}}};
    std::string seen;
    for (const Rgb& color : {At(8, 16), At(24, 16)}) {
      const auto same = [&](const auto& letter) { return ::testing::Value(color, IsNear(letter.second, 2)); };
      const auto found = std::ranges::find_if(letters, same);
      seen += found == letters.end() ? '?' : found->first;
    }
    return seen;
  }

  SdlWindow window{{.title = "test", .width = 32, .height = 32, .offscreen = true, .debugContext = true}};
  std::vector<std::string> complaints;
  std::unique_ptr<GlRenderer> renderer;
  base::DrawList list;
  base::Image picture;
  std::vector<std::unique_ptr<SubMesh>> meshes;
};

TEST_F(RenderTest, ShowsWhatIsNearerOrLaterInItsColoursAndItsLight) {
  constexpr DrawKind mesh = DrawKind::Mesh, triangles = DrawKind::Triangles3D, flat = DrawKind::Triangles2D;
  constexpr std::uint32_t red = 0xFFFF0000, green = 0xFF00FF00, blue = 0xFF0000FF, white = 0xFFFFFFFF;
  constexpr std::uint32_t grey = 0xFF808080, halfRed = 0x80FF0000, halfGreen = 0x8000FF00;
  constexpr float left = 0.0F, all = 1.0F;
  Light lamp, sun, other;
  sun.type = other.type = Light::kDirectional;
  other.color = {};
  const LightList sunny{nullptr, &lamp, &sun, &other};
  TestTexture faint(renderer->CreateTexture({1, 1, {255, 255, 255, 100}}));
  TestTexture gone(renderer->CreateTexture({1, 1, {0, 0, 255, 255}}));
  renderer->DestroyTexture(gone.GetHandle());
  const auto turned = [](auto& item, auto&) { item.world.m[0][0] = item.world.m[2][2] = -(item.world.m[3][2] = 1.0F); };
  const auto twoSided = [&](auto& item, auto& params) { turned(item, params), params.doubleSided = true; };
  const auto mirrored = [](auto& item, auto&) { item.world.m[0][0] = -1.0F; };
  const auto flattened = [&](auto& item, auto&) { item.lights = &sunny, item.world.m[2][2] = 0.0F; };
  const auto pictured = [](Texture& texture, AlphaMode mode, float cutoff) {
    return [&texture, mode, cutoff](auto&, auto& params) {
      params.AddTexture(TEXTURE_SLOT_1, &texture);
      params.alphaMode = mode;
      params.alphaCutoff = cutoff;
    };
  };
  const struct {
    const char* what;
    std::vector<Thing> things, later;  // a layer each
    const char* seen;
  } cases[] = {
      {"a nearer mesh, first", {{mesh, 0.2F, red}, {mesh, 0.6F, green}}, {}, "RR"},
      {"a nearer mesh, last", {{mesh, 0.6F, green}, {mesh, 0.2F, red}}, {}, "RR"},
      {"in front of the near plane", {{mesh, 0.01F, red}, {mesh, -0.01F, green}}, {}, "RR"},
      {"behind the far plane", {{mesh, 0.99F, red, left}, {mesh, 1.01F, green}}, {}, "R."},
      {"a later layer", {{mesh, 0.1F, red}}, {{mesh, 0.9F, green, left}}, "GR"},
      {"blended, from far to near", {{triangles, 0.2F, halfGreen}, {triangles, 0.8F, halfRed}}, {}, "gg"},
      {"blended, equally far", {{triangles, 0.5F, halfRed}, {triangles, 0.5F, halfGreen}}, {}, "gg"},
      {"blended meshes among triangles", {{mesh, 0.2F, halfGreen}, {triangles, 0.8F, halfRed}}, {}, "gg"},
      {"blended things behind a mesh", {{mesh, 0.4F, blue, left}, {triangles, 0.5F, red}}, {}, "BR"},
      {"blended things hide none", {{triangles, 0.5F, red, all, 9}, {triangles, 0.6F, green, all, 1}}, {}, "GG"},
      {"a text on a surface", {{mesh, 0.5F, blue}, {triangles, 0.5F, white}}, {}, "WW"},
      {"flat ones last", {{flat, 0, red}, {flat, 0, green, left}, {mesh, 0, blue}, {triangles, 0, blue}}, {}, "GR"},
      {"things that are nowhere", {{triangles, 0.5F, red, kNaN}, {mesh, 0.5F, green}, {mesh, kNaN, red}}, {}, "GG"},
      {"no distance", {{triangles, 0.2F, halfGreen, all, kNaN}, {triangles, 0.8F, halfRed}}, {}, "gg"},
      {"a back", {{mesh, 0.5F, white, all, 0.5F, turned}}, {}, ".."},
      {"a back that has two sides", {{mesh, 0.5F, white, all, 0.5F, twoSided}}, {}, "WW"},
      {"a mirrored front", {{mesh, 0.5F, red, left, 0.5F, mirrored}}, {}, ".R"},
      {"a flattened panel that faces the light", {{mesh, 0.5F, grey, all, 0.5F, flattened}}, {}, "ww"},
      {"a picture that is gone", {{mesh, 0.5F, grey, all, 0.5F, pictured(gone, AlphaMode::Opaque, 0.5F)}}, {}, "ww"},
      {"opaque", {{mesh, 0.5F, white, all, 0.5F, pictured(faint, AlphaMode::Opaque, 0.5F)}}, {}, "WW"},
      {"cut out", {{mesh, 0.5F, white, all, 0.5F, pictured(faint, AlphaMode::Mask, 0.5F)}}, {}, ".."},
      {"cut out less", {{mesh, 0.5F, white, all, 0.5F, pictured(faint, AlphaMode::Mask, 0.3F)}}, {}, "WW"},
  };
  for (const auto& row : cases) {
    ClearFrame();
    for (const Thing& thing : row.things) Add(thing);
    StartLayer();
    for (const Thing& thing : row.later) Add(thing);
    Show();
    EXPECT_EQ(Halves(), row.seen) << row.what;
  }
}

TEST_F(RenderTest, DrawsFlatThingsAndLinesPixelByPixelOnThePictureAndTheWindow) {
  AddRectangle(DrawKind::Triangles2D, 3, 5, 7, 6, 0, 0xFF102030);
  AddRectangle(DrawKind::Lines3D, -1, 0.03F, 1, 0.03F, 0, 0xFFFFFFFF).vertexCount = 2;
  Show();
  for (std::int32_t i = 0; i < 32 * 32; ++i) {
    const std::int32_t x = i % 32, y = i / 32;
    const Rgb color = y == 15 ? kWhite : y == 5 && x >= 3 && x < 7 ? Rgb{16, 32, 48} : kBlack;
    EXPECT_THAT(At(x, y), IsNear(color, 1)) << x << ' ' << y;
  }
  std::array<std::uint8_t, 4> shown{};
  glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
  glReadPixels(4, 32 - 1 - 5, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, shown.data());
  EXPECT_EQ((Rgb{shown[0], shown[1], shown[2]}), At(4, 5)) << "in the window";
}

TEST_F(RenderTest, FollowsEverySizeThatTheDriverCanDrawWithAnyNumberOfSamples) {
  AddRectangle(DrawKind::Triangles3D, 0, 1, 1, 0, 0.5F, 0xFFFF0000);
  for (const int samples : {4, 0, 1000}) {
    UseSamples(samples);
    for (const auto& [width, height] : {std::pair{64, 32}, {301, 7}, {1000, 800}, {64, 32}}) {
      Show(width, height);
      EXPECT_THAT((std::array{At(width - 1, 0), At(0, 0), At(width - 1, height - 1)}),
                  ElementsAre(kRed, kBlack, kBlack));
    }
  }
  for (const auto& [width, height] : {std::pair{0, 10}, {10, 0}, {-1, 10}, {10, -1}})
    renderer->Draw(list, width, height);
  EXPECT_THROW(renderer->Draw(list, 1 << 20, 1), std::runtime_error);
  EXPECT_THROW(renderer->Draw(list, 1, 1 << 20), std::runtime_error);
}

TEST_F(RenderTest, IsCoarseInMotionAndFineAtRestWhereAsked) {
  UseSamples(4, true);
  AddRectangle(DrawKind::Triangles3D, -1, 1, 1.0F / 64, -1, 0.5F, 0xFFFFFFFF);
  Show();
  EXPECT_EQ(At(16, 16), kBlack) << "a quarter of it is covered";
  int pictures = 0;
  for (int i = 0; i < 10; ++i) {
    Show();
    pictures += renderer->HasChanged() ? 1 : 0;
  }
  EXPECT_EQ(pictures, 1);
  EXPECT_NE(At(16, 16), kBlack);
  list.vertices.front().position.x = -0.5F;
  Show();
  EXPECT_EQ(At(16, 16), kBlack);
}

TEST_F(RenderTest, MakesNothingOfWhatIsNoneAndTakesNumbersAgain) {
  const std::vector<base::Vertex> corners(4);
  const std::vector<std::uint32_t> tooFew{0, 1}, unknown{0, 1, 4}, right{0, 1, 3};
  EXPECT_EQ(renderer->CreateTexture({}), 0U);
  EXPECT_EQ(renderer->CreateTexture({2, 2, {1, 2, 3, 4}}), 0U);
  EXPECT_EQ(renderer->CreateTexture({1 << 24, 1, std::vector<std::uint8_t>(std::size_t{4} << 24)}), 0U);
  EXPECT_EQ(renderer->GlyphPages().CreatePage(1, 1 << 24), 0U);
  EXPECT_EQ(renderer->CreateGeometry(corners, tooFew), 0U);
  EXPECT_EQ(renderer->CreateGeometry(corners, unknown), 0U);
  EXPECT_NE(renderer->CreateGeometry(corners, right), 0U);

  const base::Image blue{1, 1, {0, 0, 255, 255}};
  const std::uint32_t first = renderer->CreateTexture(blue);
  for (const std::uint32_t none : {first, first, 0U, 4711U}) renderer->DestroyTexture(none);
  renderer->GlyphPages().UpdatePage(first, 0, 0, 1, 1, std::vector<std::uint8_t>(1));
  EXPECT_EQ(renderer->CreateTexture({1, 1, {0, 255, 0, 255}}), first);
  EXPECT_NE(renderer->CreateTexture(blue), first);
  AddRectangle(DrawKind::Triangles2D, 0, 0, 32, 32, 0, 0xFFFFFFFF).texture = first;
  Add({DrawKind::Mesh, 0.2F});
  renderer->DestroyGeometry(list.items.back().subMesh->geometry);
  renderer->DestroyGeometry(4711);
  Show();
  EXPECT_EQ(Halves(), "GG");
}

TEST_F(RenderTest, ReportsMisuseOfOpenGlButTheSameErrorOnce) {
  const auto misuse = [this] {
    glEnable(GL_TEXTURE_2D_ARRAY);
    Show();
    return std::exchange(complaints, {});
  };
  EXPECT_THAT(misuse(), ElementsAre(StartsWith("OpenGL: "), "OpenGL error 1280"));
  Show();
  EXPECT_THAT(misuse(), ElementsAre(StartsWith("OpenGL: ")));
  EXPECT_THROW(GlProgram("void main() { gl_Position = vec4(0); }", "nonsense"), std::runtime_error);
  complaints.clear();
}

}  // namespace
}  // namespace qen::host
