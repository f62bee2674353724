// A renderer off screen and a frame to fill, with the pixels that come out.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/backends/image.h"
#include "base/draw_list.h"
#include "engine/light.h"
#include "engine/mesh.h"
#include "engine/texture.h"
#include "host/render/gl_renderer.h"
#include "host/window/sdl_window.h"

namespace qen::host {

struct Rgb {
  int red = 0, green = 0, blue = 0;
  friend bool operator==(const Rgb&, const Rgb&) = default;
};

inline std::ostream& operator<<(std::ostream& out, const Rgb& color) {
  return out << "rgb(" << color.red << ' ' << color.green << ' ' << color.blue << ')';
}

inline constexpr Rgb kBlack{0, 0, 0};
inline constexpr Rgb kRed{255, 0, 0};
inline constexpr Rgb kGreen{0, 255, 0};
inline constexpr Rgb kBlue{0, 0, 255};
inline constexpr Rgb kWhite{255, 255, 255};

MATCHER_P2(IsNear, color, tolerance, "") {
  return std::abs(arg.red - color.red) <= tolerance && std::abs(arg.green - color.green) <= tolerance &&
         std::abs(arg.blue - color.blue) <= tolerance;
}

class TestTexture final : public Texture {
 public:
  explicit TestTexture(std::uint32_t handle) : Texture(u"test", kDefaultGroup), handle_(handle) {}
  [[nodiscard]] std::uint32_t GetHandle() const override { return handle_; }
  [[nodiscard]] std::int32_t GetWidth() const override { return 1; }
  [[nodiscard]] std::int32_t GetHeight() const override { return 1; }

 private:
  std::uint32_t handle_;
};

// Frames have layers whose world is clip space: x right, y up from -1 to 1, z away from 0 to 1, all of it on the
// picture. Any complaint of OpenGL fails the test.
class GraphicsTest : public ::testing::Test {
 protected:
  GraphicsTest();
  void TearDown() override { EXPECT_THAT(complaints, ::testing::IsEmpty()); }

  void UseSamples(int samples);  // with a fresh renderer
  void StartLayer();

  // A rectangle that faces the viewer, lit by nothing.
  SubMesh& AddQuad(float left, float bottom, float right, float top, float z, Rgb color);
  SubMesh& AddFullQuad(float z, Rgb color) { return AddQuad(-1.0F, -1.0F, 1.0F, 1.0F, z, color); }
  SubMesh& AddMesh(const std::vector<base::Vertex>& vertices, const std::vector<std::uint32_t>& indices,
                   const Matrix4x4& world = Matrix4x4::Identity);

  // Two triangles of an item of its own.
  base::DrawItem& AddRectangle(base::DrawKind kind, float left, float top, float right, float bottom, float z,
                               std::uint32_t argb);
  base::DrawItem& AddFullRectangle3D(float z, std::uint32_t argb) {
    return AddRectangle(base::DrawKind::Triangles3D, -1.0F, 1.0F, 1.0F, -1.0F, z, argb);
  }

  void Show(std::int32_t width = 32, std::int32_t height = 32);
  [[nodiscard]] Rgb At(std::int32_t x, std::int32_t y) const;
  [[nodiscard]] Rgb Middle() const { return At(picture.width / 2, picture.height / 2); }
  void ClearFrame();

  // One pixel.
  std::uint32_t MakeTexture(Rgb color, std::uint8_t alpha = 255);

  SdlWindow window;
  std::vector<std::string> complaints;
  std::unique_ptr<GlRenderer> renderer;
  base::DrawList list;
  base::Image picture;
  Light light;  // as pages have it
  LightList lights{&light};

 private:
  std::vector<std::unique_ptr<SubMesh>> meshes_;
};

}  // namespace qen::host
