// What hides what, and what is blended over what.
#include "tests/host/graphics_test.h"

namespace qen::host {
namespace {

using base::DrawKind;

constexpr std::uint32_t kHalfRed = 0x80FF0000;
constexpr std::uint32_t kHalfGreen = 0x8000FF00;

class RenderOrderTest : public GraphicsTest {};

TEST_F(RenderOrderTest, TheNearerMeshHidesTheFartherWhateverTheirOrder) {
  AddFullQuad(0.2F, kRed);
  AddFullQuad(0.6F, kGreen);
  Show();
  EXPECT_EQ(Middle(), kRed);

  ClearFrame();
  AddFullQuad(0.6F, kGreen);
  AddFullQuad(0.2F, kRed);
  Show();
  EXPECT_EQ(Middle(), kRed);
}

TEST_F(RenderOrderTest, DepthRunsFromZeroToOne) {
  AddQuad(-1.0F, -1.0F, 0.0F, 1.0F, 0.01F, kRed);
  AddQuad(0.0F, -1.0F, 1.0F, 0.0F, -0.01F, kGreen);  // in front of the near plane
  AddQuad(0.0F, 0.0F, 1.0F, 1.0F, 1.01F, kGreen);    // behind the far plane
  Show();
  EXPECT_EQ(At(8, 16), kRed);
  EXPECT_EQ(At(24, 24), kBlack);
  EXPECT_EQ(At(24, 8), kBlack);
}

TEST_F(RenderOrderTest, ALaterLayerIsDrawnOverNearerThingsOfAnEarlierOne) {
  AddFullQuad(0.1F, kRed);
  StartLayer();
  AddQuad(-1.0F, -1.0F, 0.0F, 1.0F, 0.9F, kGreen);
  Show();
  EXPECT_EQ(At(8, 16), kGreen);
  EXPECT_EQ(At(24, 16), kRed);
}

TEST_F(RenderOrderTest, BlendedThingsAreDrawnFromFarToNear) {
  AddFullRectangle3D(0.2F, kHalfGreen);
  AddFullRectangle3D(0.8F, kHalfRed);
  Show();
  // Half of the light each step: green 1/2, red 1/4, encoded.
  EXPECT_THAT(Middle(), IsNear(Rgb{137, 188, 0}, 1));
}

TEST_F(RenderOrderTest, EquallyFarThingsAreBlendedInTheOrderGiven) {
  AddFullRectangle3D(0.5F, kHalfRed);
  AddRectangle(DrawKind::Triangles3D, -1.0F, 1.0F, 1.0F, -1.0F, 0.5F, kHalfGreen);
  Show();
  EXPECT_THAT(Middle(), IsNear(Rgb{137, 188, 0}, 1));
}

TEST_F(RenderOrderTest, BlendedMeshesAndTrianglesAreSortedTogether) {
  SubMesh& mesh = AddFullQuad(0.2F, kGreen);
  mesh.GetMaterialParams().alphaMode = AlphaMode::Blend;
  mesh.GetMaterialParams().baseColor[3] = 0.5F;
  AddFullRectangle3D(0.8F, kHalfRed);
  Show();
  EXPECT_THAT(Middle(), IsNear(Rgb{137, 188, 0}, 1));
}

TEST_F(RenderOrderTest, BlendedThingsAreHiddenByNearerMeshesAndHideNothing) {
  AddQuad(-1.0F, -1.0F, 0.0F, 1.0F, 0.4F, kBlue);
  // The one said to be farther lies nearer: it must not keep the other one away.
  AddFullRectangle3D(0.5F, 0xFFFF0000).distance = 9.0F;
  AddFullRectangle3D(0.6F, 0xFF00FF00).distance = 1.0F;
  Show();
  EXPECT_EQ(At(8, 16), kBlue);
  EXPECT_EQ(At(24, 16), kGreen);
}

TEST_F(RenderOrderTest, ATextOnASurfaceIsSeen) {
  AddFullQuad(0.5F, kBlue);
  AddFullRectangle3D(0.5F, 0xFFFFFFFF);
  Show();
  EXPECT_EQ(Middle(), kWhite);
}

TEST_F(RenderOrderTest, FlatTrianglesComeLastInTheirOrder) {
  AddRectangle(DrawKind::Triangles2D, 0.0F, 0.0F, 32.0F, 32.0F, 0.0F, 0xFFFF0000);
  AddRectangle(DrawKind::Triangles2D, 0.0F, 0.0F, 16.0F, 32.0F, 0.0F, 0xFF00FF00);
  AddFullQuad(0.0F, kBlue);
  AddFullRectangle3D(0.0F, 0xFF0000FF);
  Show();
  EXPECT_EQ(At(8, 16), kGreen);
  EXPECT_EQ(At(24, 16), kRed);
}

TEST_F(RenderOrderTest, FlatTrianglesLieOnExactPixelsFromTheUpperLeft) {
  AddRectangle(DrawKind::Triangles2D, 3.0F, 5.0F, 7.0F, 6.0F, 0.0F, 0xFFFFFFFF);
  Show(20, 11);
  for (std::int32_t y = 0; y < 11; ++y) {
    for (std::int32_t x = 0; x < 20; ++x) {
      EXPECT_EQ(At(x, y), x >= 3 && x < 7 && y == 5 ? kWhite : kBlack) << x << ' ' << y;
    }
  }
}

TEST_F(RenderOrderTest, LinesJoinTheirPoints) {
  base::DrawItem& item = list.items.emplace_back();
  item.kind = DrawKind::Lines3D;
  item.vertexCount = 2;
  list.vertices = {{{-1.0F, 0.03F, 0.5F}, 0.0F, 0.0F, 0xFFFFFFFF}, {{1.0F, 0.03F, 0.5F}, 0.0F, 0.0F, 0xFFFFFFFF}};
  ++list.layers.back().itemCount;
  Show();
  EXPECT_EQ(At(4, 15), kWhite);
  EXPECT_EQ(At(28, 15), kWhite);
  EXPECT_EQ(At(16, 12), kBlack);
}

}  // namespace
}  // namespace qen::host
