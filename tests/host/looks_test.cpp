// How surfaces look: their textures of numbers, the places of textures, and the lights of scenes. A square fills the
// picture and faces an eye that is far away.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include "base/recording/fake_files.h"
#include "engine/light.h"
#include "engine/mesh.h"
#include "engine/texture.h"
#include "host/render/gl_renderer.h"
#include "host/scenes/gltf_scenes.h"
#include "host/window/sdl_window.h"
#include "tests/host/gltf_builder.h"

namespace qen::host {
namespace {

constexpr float kPi = std::numbers::pi_v<float>;
constexpr std::int32_t kSide = 16;                // of the picture
constexpr Vec3 kMiddle{0.0625F, -0.0625F, 0.5F};  // what its middle pixel shows

class Numbers final : public Texture {
 public:
  Numbers(GlRenderer& renderer, base::Image image) : Texture(u"", kDefaultGroup), image_(std::move(image)) {
    handle_ = renderer.CreateTexture(image_);
  }
  [[nodiscard]] std::uint32_t GetHandle() const override { return handle_; }
  [[nodiscard]] std::int32_t GetWidth() const override { return image_.width; }
  [[nodiscard]] std::int32_t GetHeight() const override { return image_.height; }

 private:
  base::Image image_;
  std::uint32_t handle_ = 0;
};

base::Image Texel(std::uint8_t r, std::uint8_t g, std::uint8_t b) { return {1, 1, {r, g, b, 255}, true}; }

Light MakeLight(std::uint32_t type, const Vec3& color, const Vec3& position = {}, const Vec3& direction = {0, 0, 1}) {
  Light light;
  light.type = type;
  light.color = color;
  light.position = position;
  light.direction = direction;
  light.direction.Normalize();
  return light;
}

// The corners of the square from the upper left on, clockwise, and the normal of all of them. The world has x to the
// right, y up, and z away from the eye.
struct Square {
  MaterialParams params = {};
  Vec3 normal = {0, 0, -1};
  std::array<float, 8> uv = {0, 0, 1, 0, 1, 1, 0, 1};
  std::array<float, 8> uv2 = {};
  std::vector<Light> lights = {};
  bool fromBehind = false;
};

class LooksTest : public ::testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(complaints, ""); }

  Texture* Use(base::Image image) {
    return textures.emplace_back(std::make_unique<Numbers>(renderer, std::move(image))).get();
  }

  // Linear values of the picture's point, from the upper left; 0 to 1 for each channel.
  Vec3 Seen(const Square& square, std::int32_t x = kSide / 2, std::int32_t y = kSide / 2) {
    std::array<base::Vertex, 4> corners{};
    constexpr std::array<Vec3, 4> kPlaces{Vec3{-1, 1, 0.5F}, {1, 1, 0.5F}, {1, -1, 0.5F}, {-1, -1, 0.5F}};
    for (std::size_t i = 0; i < 4; ++i) {
      corners[i].position = kPlaces[i];
      corners[i].normal = square.normal;
      corners[i].u = square.uv[2 * i], corners[i].v = square.uv[2 * i + 1];
      corners[i].u2 = square.uv2[2 * i], corners[i].v2 = square.uv2[2 * i + 1];
    }
    const std::array<std::uint32_t, 6> front{0, 2, 1, 0, 3, 2}, back{0, 1, 2, 0, 2, 3};
    SubMesh mesh;
    mesh.geometry = renderer.CreateGeometry(corners, square.fromBehind ? back : front);
    mesh.GetMaterialParams() = square.params;
    LightList lights;
    std::vector<Light> placed = square.lights;
    for (Light& light : placed) lights.push_back(&light);
    base::DrawList list;
    // The eye is far away, and the picture as it would be without that.
    base::DrawLayer& layer = list.layers.emplace_back();
    layer.view.SetTranslation({0, 0, 1000});
    layer.projection.SetTranslation({0, 0, -1000});
    layer.itemCount = 1;
    base::DrawItem& item = list.items.emplace_back();
    item.subMesh = &mesh;
    item.lights = &lights;
    renderer.Draw(list, kSide, kSide);
    renderer.DestroyGeometry(mesh.geometry);
    base::Image picture;
    renderer.Read(picture);
    const auto linear = [&](std::ptrdiff_t channel) {
      const float v = static_cast<float>(picture.rgba[static_cast<std::size_t>((y * kSide + x) * 4 + channel)]) / 255;
      return v <= 0.04045F ? v / 12.92F : std::pow((v + 0.055F) / 1.055F, 2.4F);
    };
    return {linear(0), linear(1), linear(2)};
  }

  // The material of a file whose pictures are one picture.
  MaterialParams FromFile(const std::string& material, const base::Image& picture) {
    base::FakeFiles files;
    GltfScenes scenes(files, [](StringView) {});
    String error;
    const std::string pixel = R"({"bufferView":<ubyte1 0 0 2 0 0 0 0 0 0 0 0 0 1 0 1 0 24 32 3 2 1>})";
    const auto scene = scenes.ParseScene(
        u"", MakeGlb(R"("images":[)" + pixel + R"(],"textures":[{"source":0}],"materials":[{)" + material + "}]"), true,
        error);
    MaterialParams params = scene.value().materials.at(0).params;
    for (std::uint32_t i = 0; i < TEXTURE_SLOT_COUNT; ++i) {
      if (scene->materials[0].images[i] >= 0) params.AddTexture(static_cast<TEXTURE_SLOT>(i), Use(picture));
    }
    return params;
  }

  std::string complaints;
  SdlWindow window{{.title = "test", .width = kSide, .height = kSide, .offscreen = true, .debugContext = true}};
  GlRenderer renderer{
      {.samples = 0, .onError = [this](std::string_view line) { complaints += std::string(line) + '\n'; }}};
  std::vector<std::unique_ptr<Numbers>> textures;
};

void ExpectNear(const Vec3& seen, const Vec3& expected, float tolerance, const std::string& what) {
  const Vec3 off = seen - expected;
  EXPECT_LE(std::max({std::fabs(off.x), std::fabs(off.y), std::fabs(off.z)}), tolerance)
      << what << ": " << seen.x << ' ' << seen.y << ' ' << seen.z << " instead of " << expected.x << ' ' << expected.y
      << ' ' << expected.z;
}

TEST_F(LooksTest, BumpsAreLitAsASurfaceThatIsTiltedThere) {
  constexpr float kBump = 176.0F / 255 * 2 - 1, kDip = 60.0F / 255 * 2 - 1, kOut = 220.0F / 255 * 2 - 1;
  Texture* bump = Use(Texel(176, 60, 220));
  const struct {
    const char* what;
    std::array<float, 8> uv;
    Vec3 normal;  // not of length 1
    float scale = 1;
    bool fromBehind = false;
  } cases[] = {
      {"as usual", {0, 0, 1, 0, 1, 1, 0, 1}, {kBump, kDip, -kOut}},
      {"half as steep", {0, 0, 1, 0, 1, 1, 0, 1}, {kBump / 2, kDip / 2, -kOut}, 0.5F},
      {"stretched", {0, 0, 9, 0, 9, 0.1F, 0, 0.1F}, {kBump, kDip, -kOut}},
      {"mirrored", {1, 0, 0, 0, 0, 1, 1, 1}, {-kBump, kDip, -kOut}},
      {"upside down", {0, 1, 1, 1, 1, 0, 0, 0}, {kBump, -kDip, -kOut}},
      {"turned, u down and v to the left", {0, 1, 0, 0, 1, 0, 1, 1}, {kDip, -kBump, -kOut}},
      {"without coordinates", {}, {0, 0, -1}},
      {"from behind", {0, 0, 1, 0, 1, 1, 0, 1}, {kBump, kDip, -kOut}, 1, true},
  };
  for (const auto& row : cases) {
    for (const bool second : {false, true}) {
      Square tilted{.lights = {MakeLight(Light::kDirectional, {0.9F, 0.6F, 0.3F}, {}, {0.5F, -0.4F, 1}),
                               MakeLight(Light::kPoint, {1, 2, 3}, {1, -2, -1})}};
      tilted.params.roughness = 0.5F;
      tilted.params.doubleSided = true;
      Square bumpy = tilted;
      tilted.normal = row.normal;
      tilted.normal.Normalize();
      bumpy.params.AddTexture(TEXTURE_SLOT_2, bump);
      bumpy.params.normalScale = row.scale;
      bumpy.params.placements[TEXTURE_SLOT_2] = {{0, 3, 1}, {-3, 0, 1}, second ? 1U : 0U};  // no matter for the axes
      (second ? bumpy.uv2 : bumpy.uv) = row.uv;
      if (row.fromBehind) bumpy.normal = {0, 0, 1}, bumpy.fromBehind = true;
      ExpectNear(Seen(bumpy), Seen(tilted), 0.006F, row.what);
    }
  }
}

TEST_F(LooksTest, TexturesOfNumbersStandForTheNumbers) {
  Square plain{.normal = {0.3F, 0.2F, -0.9F},
               .lights = {MakeLight(Light::kDirectional, {1, 1, 1}), MakeLight(Light::kSpot, {3, 3, 3}, {0, 0, -2})}};
  plain.normal.Normalize();
  plain.params.baseColor = {0.8F, 0.4F, 0.2F, 1};
  Square mapped = plain;
  mapped.params.metallic = 0.9F;
  mapped.params.roughness = 0.8F;
  mapped.params.AddTexture(TEXTURE_SLOT_3, Use(Texel(7, 128, 64)));
  plain.params.metallic = 0.9F * 64 / 255;
  plain.params.roughness = 0.8F * 128 / 255;
  ExpectNear(Seen(mapped), Seen(plain), 0.006F, "roughness in green, metalness in blue");

  Square even{.lights = {MakeLight(Light::kAmbient, {0.9F, 0.8F, 0.7F})}};
  even.params.AddTexture(TEXTURE_SLOT_4, Use(Texel(102, 0, 0)));
  even.params.occlusionStrength = 0.5F;
  ExpectNear(Seen(even), Vec3{0.9F, 0.8F, 0.7F} * 0.7F, 0.006F, "half of an occlusion of 0.4");
  Square lamp{.lights = {MakeLight(Light::kAmbient, {}), MakeLight(Light::kPoint, {2, 2, 2}, {0, 0, -1})}};
  Square occluded = lamp;
  occluded.params.AddTexture(TEXTURE_SLOT_4, Use(Texel(0, 0, 0)));
  ExpectNear(Seen(occluded), Seen(lamp), 0.003F, "lamps reach into corners");
}

TEST_F(LooksTest, TexturesLieWhereTheFileSays) {
  // Four by four fields, whose red grows to the right and green downwards, so that colours are places.
  constexpr std::int32_t kField = 16, kWidth = 4 * kField;
  base::Image fields{kWidth, kWidth, {}, true};
  for (std::int32_t i = 0; i < kWidth * kWidth; ++i) {
    const auto step = [](std::int32_t at) { return static_cast<std::uint8_t>(at / kField * 60 + 30); };
    fields.rgba.insert(fields.rgba.end(), {step(i % kWidth), step(i / kWidth), 0, 255});
  }
  // The middle of a quarter of the picture, and the field that is seen there.
  const auto expect = [&](const Square& square, std::array<int, 8> seen, const std::string& what) {
    for (int quarter = 0; quarter < 4; ++quarter) {
      const auto at = static_cast<std::size_t>(2 * quarter);
      const Vec3 field = Vec3{static_cast<float>(seen[at]), static_cast<float>(seen[at + 1]), 0} * (60.0F / 255) +
                         Vec3{30.0F / 255, 30.0F / 255, 0};
      ExpectNear(Seen(square, quarter % 2 * 8 + 3, quarter / 2 * 8 + 3), field, 0.02F,
                 what + ", quarter " + std::to_string(quarter));
    }
  };
  const auto texture = [](const std::string& members) {
    return R"("pbrMetallicRoughness":{"baseColorTexture":{"index":0,)" + members + "}}";
  };
  const auto moved = [&](const std::string& members) {
    return texture(R"("extensions":{"KHR_texture_transform":{)" + members + "}}");
  };
  expect({.params = FromFile(moved(R"("offset":[0,1],"rotation":1.57079632679,"scale":[0.5,0.5])"), fields)},
         {0, 3, 0, 2, 1, 3, 1, 2}, "the lower left quarter, turned clockwise");
  expect({.params = FromFile(moved(R"("offset":[0,1],"scale":[1,-1])"), fields)}, {0, 3, 2, 3, 0, 1, 2, 1},
         "from the lower left");
  expect({.params = FromFile(moved(R"("rotation":1.57079632679,"scale":[0.25,0.5],"offset":[0,1])"), fields)},
         {0, 3, 0, 3, 1, 3, 1, 3}, "scaled before it is turned");
  const Square second{.uv2 = {0.5F, 0, 1, 0, 1, 0.5F, 0.5F, 0.5F}};
  Square square = second;
  square.params = FromFile(texture(R"("texCoord":1)"), fields);
  expect(square, {2, 0, 3, 0, 2, 1, 3, 1}, "the second set");
  square.params = FromFile(texture(R"("texCoord":0,"extensions":{"KHR_texture_transform":{"texCoord":1}})"), fields);
  expect(square, {2, 0, 3, 0, 2, 1, 3, 1}, "the second set after all");
}

// White that is rough shows a pi-th of what reaches it, and little more.
TEST_F(LooksTest, LightsOfScenesReachAsFarAndWideAsTheyShould) {
  const auto spot = [](float inner, float outer, const Vec3& direction) {
    Light light = MakeLight(Light::kSpot, {kPi / 2, kPi / 2, kPi / 2}, kMiddle + Vec3{0, 0, -1}, direction);
    light.innerAngle = inner, light.outerAngle = outer;
    return light;
  };
  const auto point = [](float distance, float range) {
    Light light = MakeLight(Light::kPoint, {kPi, kPi / 2, 0}, kMiddle - Vec3{0, 0, distance});
    light.range = range;
    return light;
  };
  const Light sun = MakeLight(Light::kDirectional, {kPi / 2, kPi / 2, kPi / 2}, {}, {0, 1, 1});
  const float mid = std::cos(0.5F), scale = 1 / (std::cos(0.3F) - std::cos(0.7F));
  const float share = (mid - std::cos(0.7F)) * scale;
  const struct {
    const char* what;
    Light light;
    Vec3 seen;
  } cases[] = {
      {"a point", point(1.25F, 0), Vec3{1, 0.5F, 0} * (1 / 1.5625F)},
      {"twice as far", point(2.5F, 0), Vec3{1, 0.5F, 0} * (1 / 6.25F)},
      {"near its range", point(2, 2.5F), Vec3{1, 0.5F, 0} * ((1 - 0.4096F) / 4)},
      {"beyond its range", point(2, 1.9F), {}},
      {"behind the surface", point(-1, 0), {}},
      {"in a spot", spot(0.3F, 0.7F, {0, 0, 1}), {0.5F, 0.5F, 0.5F}},
      {"at a spot's edge", spot(0.3F, 0.7F, {std::sin(0.5F), 0, mid}),
       Vec3{0.5F, 0.5F, 0.5F} * (share * share * (3 - 2 * share))},
      {"beside a spot", spot(0.3F, 0.7F, {std::sin(0.75F), 0, std::cos(0.75F)}), {}},
      {"a sun from the side", sun, Vec3{0.5F, 0.5F, 0.5F} * std::sqrt(0.5F)},
  };
  const Light key = MakeLight(Light::kDirectional, {1, 1, 1});
  const Light dark = MakeLight(Light::kAmbient, {});
  for (const auto& row : cases) {
    const Square square{.lights = {key, dark, row.light}};
    ExpectNear(Seen(square), row.seen, 0.02F, row.what);
  }
  Square both{.lights = {key, point(2.5F, 0)}};
  both.params.baseColor = {0.5F, 0.5F, 0.5F, 1};
  ExpectNear(Seen(both), {0.5F + 0.08F, 0.5F + 0.04F, 0.5F}, 0.02F, "a point in the studio");
  Square many{.lights = {dark}};
  const Light dim = MakeLight(Light::kPoint, {kPi / 10, kPi / 10, kPi / 10}, kMiddle + Vec3{0, 0, -1});
  many.lights.insert(many.lights.end(), 10, dim);
  ExpectNear(Seen(many), {0.8F, 0.8F, 0.8F}, 0.03F, "eight of ten");
  Square unlit{.lights = {dark}};
  unlit.params.unlit = true;
  unlit.params.baseColor = {0.25F, 0.5F, 0.75F, 1};
  ExpectNear(Seen(unlit), {0.25F, 0.5F, 0.75F}, 0.006F, "its own colours in the dark");
}

}  // namespace
}  // namespace qen::host
