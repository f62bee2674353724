// The picture as a whole: sizes, colours, smooth edges, complaints.
#include <epoxy/gl.h>

#include <set>

#include "tests/host/graphics_test.h"

namespace qen::host {
namespace {

using base::DrawKind;

constexpr Vec3 kToViewer{0.0F, 0.0F, -1.0F};

class RenderPictureTest : public GraphicsTest {
 protected:
  // How many different shades of red the frame has.
  std::size_t Shades() {
    Show(64, 64);
    std::set<int> shades;
    for (std::int32_t y = 0; y < 64; ++y) {
      for (std::int32_t x = 0; x < 64; ++x) shades.insert(At(x, y).red);
    }
    return shades.size();
  }
};

TEST_F(RenderPictureTest, FollowsEverySize) {
  AddQuad(0.0F, 0.0F, 1.0F, 1.0F, 0.5F, kRed);
  for (const auto& [width, height] : {std::pair{64, 32}, {640, 480}, {1, 1}, {301, 7}, {2000, 1500}, {64, 32}}) {
    Show(width, height);
    if (width == 1) {
      EXPECT_THAT(At(0, 0), IsNear(Rgb{137, 0, 0}, 1));  // a quarter of the pixel
      continue;
    }
    EXPECT_EQ(At(width - 1, 0), kRed) << width;
    EXPECT_EQ(At(0, 0), kBlack) << width;
    EXPECT_EQ(At(width - 1, height - 1), kBlack) << width;
  }
  renderer->Draw(list, 0, 10);
  renderer->Draw(list, 10, -1);
}

TEST_F(RenderPictureTest, KeepsColoursOfPicturesAndOfVertices) {
  const base::Image image{2, 2, {10, 20, 30, 255, 40, 50, 60, 255, 70, 80, 90, 255, 200, 210, 220, 255}};
  const std::uint32_t texture = renderer->CreateTexture(image);
  AddRectangle(DrawKind::Triangles2D, 5.0F, 7.0F, 7.0F, 9.0F, 0.0F, 0xFFFFFFFF).texture = texture;
  AddRectangle(DrawKind::Triangles2D, 20.0F, 7.0F, 22.0F, 9.0F, 0.0F, 0xFF102030);
  Show();
  EXPECT_THAT(At(5, 7), IsNear(Rgb{10, 20, 30}, 1));
  EXPECT_THAT(At(6, 7), IsNear(Rgb{40, 50, 60}, 1));
  EXPECT_THAT(At(5, 8), IsNear(Rgb{70, 80, 90}, 1));
  EXPECT_THAT(At(6, 8), IsNear(Rgb{200, 210, 220}, 1));
  EXPECT_THAT(At(20, 7), IsNear(Rgb{16, 32, 48}, 1));
}

TEST_F(RenderPictureTest, PicturesOfQuadsEndAtTheirEdges) {
  const base::Image image{2, 1, {255, 0, 0, 255, 0, 255, 0, 255}};
  AddRectangle(DrawKind::Triangles2D, 0.0F, 0.0F, 32.0F, 32.0F, 0.0F, 0xFFFFFFFF).texture =
      renderer->CreateTexture(image);
  Show();
  EXPECT_EQ(At(0, 16), kRed);
  EXPECT_EQ(At(31, 16), kGreen);
}

TEST_F(RenderPictureTest, SmallPicturesOfLargeTexturesAreAveraged) {
  base::Image image{64, 64, {}};
  for (int i = 0; i < 64 * 64; ++i) {
    const bool lit = i % 4 == 0;
    image.rgba.insert(image.rgba.end(), {lit ? std::uint8_t{255} : std::uint8_t{0}, 0, 0, 255});
  }
  AddRectangle(DrawKind::Triangles2D, 8.0F, 8.0F, 12.0F, 12.0F, 0.0F, 0xFFFFFFFF).texture =
      renderer->CreateTexture(image);
  Show();
  for (std::int32_t x = 8; x < 12; ++x) EXPECT_THAT(At(x, 10), IsNear(Rgb{137, 0, 0}, 3));
}

TEST_F(RenderPictureTest, EdgesAreSmoothAsFarAsThereAreSamples) {
  const auto shadesOfASlantedEdge = [this](int samples) {
    ClearFrame();
    UseSamples(samples);
    AddMesh({{{-1, -1, 0}, kToViewer}, {{1, -1, 0}, kToViewer}, {{0.3F, 1, 0}, kToViewer}}, {0, 1, 2});
    return Shades();
  };
  EXPECT_GE(shadesOfASlantedEdge(4), 4U);
  EXPECT_EQ(shadesOfASlantedEdge(0), 2U) << "hard";
  EXPECT_GE(shadesOfASlantedEdge(1000), 4U) << "as many as there are";
}

TEST_F(RenderPictureTest, CutOutEdgesAreSmoothToo) {
  base::Image image{2, 1, {255, 255, 255, 0, 255, 255, 255, 255}};
  TestTexture texture(renderer->CreateTexture(image));
  const std::vector<base::Vertex> corners{{{-1, -1, 0}, kToViewer, 0.0F},
                                          {{1, -1, 0}, kToViewer, 1.0F},
                                          {{1, 1, 0}, kToViewer, 1.3F},
                                          {{-1, 1, 0}, kToViewer, 0.3F}};
  MaterialParams& params = AddMesh(corners, {0, 1, 2, 0, 2, 3}).GetMaterialParams();
  params.alphaMode = AlphaMode::Mask;
  params.AddTexture(TEXTURE_SLOT_1, &texture);
  EXPECT_GE(Shades(), 4U);
}

TEST_F(RenderPictureTest, MisuseOfOpenGlIsReported) {
  glEnable(GL_TEXTURE_2D_ARRAY);
  Show();
  EXPECT_FALSE(complaints.empty());
  complaints.clear();
  Show();
  EXPECT_TRUE(complaints.empty());
}

TEST(RenderToWindowTest, TheWindowShowsThePicture) {
  SdlWindow window({.title = "test", .width = 40, .height = 30, .offscreen = true, .debugContext = true});
  std::vector<std::string> complaints;
  GlRenderer renderer({4, true, [&](std::string_view line) { complaints.emplace_back(line); }});
  base::DrawList list;
  list.vertices = {{{0, 0, 0}, 0, 0, 0xFF804020}, {{40, 0, 0}, 0, 0, 0xFF804020}, {{0, 30, 0}, 0, 0, 0xFF804020}};
  base::DrawItem& item = list.items.emplace_back();
  item.kind = base::DrawKind::Triangles2D;
  item.vertexCount = 3;
  list.layers.emplace_back().itemCount = 1;
  renderer.Draw(list, 40, 30);
  std::array<std::uint8_t, 4> pixel{};
  glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
  glReadPixels(2, 27, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
  EXPECT_NEAR(pixel[0], 0x80, 1);
  EXPECT_NEAR(pixel[1], 0x40, 1);
  EXPECT_NEAR(pixel[2], 0x20, 1);
  window.Swap();
  EXPECT_THAT(complaints, ::testing::IsEmpty());
}

}  // namespace
}  // namespace qen::host
