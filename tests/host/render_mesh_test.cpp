// How meshes look.
#include <limits>

#include "engine/camera.h"
#include "tests/host/graphics_test.h"

namespace qen::host {
namespace {

constexpr Rgb kGrey{128, 128, 128};

std::vector<base::Vertex> Corners(const Vec3& normal) {
  return {{{-1, -1, 0.5F}, normal}, {{1, -1, 0.5F}, normal}, {{1, 1, 0.5F}, normal}, {{-1, 1, 0.5F}, normal}};
}

constexpr Vec3 kToViewer{0.0F, 0.0F, -1.0F};

class RenderMeshTest : public GraphicsTest {
 protected:
  // A panel with this normal in the pages' light.
  Rgb Shade(const Vec3& normal, const Matrix4x4& world = Matrix4x4::Identity, float grey = 1.0F) {
    ClearFrame();
    AddMesh(Corners(normal), {0, 1, 2, 0, 2, 3}, world).GetMaterialParams().baseColor = {grey, grey, grey, 1.0F};
    list.items.back().entry.lights = &lights;
    Show();
    return Middle();
  }
};

TEST_F(RenderMeshTest, OnlyCounterClockwiseFacesAreSeen) {
  SubMesh& mesh = AddMesh(Corners(kToViewer), {0, 1, 2, 0, 3, 2});
  Show();
  EXPECT_EQ(At(24, 24), kWhite);
  EXPECT_EQ(At(8, 8), kBlack);

  mesh.GetMaterialParams().doubleSided = true;
  Show();
  EXPECT_EQ(At(24, 24), kWhite);
  EXPECT_EQ(At(8, 8), kWhite);
}

TEST_F(RenderMeshTest, AMirroredNodeShowsTheSameFaces) {
  Matrix4x4 mirror = Matrix4x4::Identity;
  mirror.m[0][0] = -1.0F;
  AddMesh(Corners(kToViewer), {0, 1, 2, 0, 3, 2}, mirror);
  Show();
  EXPECT_EQ(At(8, 24), kWhite);
  EXPECT_EQ(At(24, 8), kBlack);
}

// A face as modelled, counter-clockwise with x right and y up, in the node's space with z up and y towards the viewer.
TEST_F(RenderMeshTest, AModelledFaceIsUprightInFrontOfTheCamera) {
  Camera camera;
  camera.SetProjection(1.0F, 80000.0F, 1.0F, 0.7853982F);
  camera.SetLookAt({0.0F, 0.0F, -192.0F}, {}, {0.0F, 1.0F, 0.0F});
  list.layers.back().projection = camera.GetProjection();
  list.layers.back().view = camera.GetView();
  Matrix4x4 toWorld;
  toWorld.m[0][0] = toWorld.m[2][1] = toWorld.m[3][3] = 1.0F;
  toWorld.m[1][2] = -1.0F;
  const Vec3 toFront{0.0F, 1.0F, 0.0F};
  std::vector<base::Vertex> corners{
      {{-60, 0, -60}, toFront}, {{60, 0, -60}, toFront}, {{60, 0, 60}, toFront}, {{-60, 0, 60}, toFront}};
  corners[3].color = {255, 0, 0, 255};  // upper left
  AddMesh(corners, {0, 1, 2, 0, 2, 3}, toWorld);
  Show(64, 64);
  EXPECT_THAT(At(10, 10), IsNear(kRed, 120));
  EXPECT_THAT(At(54, 10), IsNear(kWhite, 60));
  EXPECT_THAT(At(10, 54), IsNear(kWhite, 60));
  EXPECT_EQ(At(1, 32), kBlack);  // 60 of the 79.5 units to the edge of the view
  EXPECT_EQ(At(6, 32).red, 0);
  EXPECT_NE(At(9, 32).red, 0);
}

TEST_F(RenderMeshTest, ARoughPanelThatFacesTheLightKeepsItsColours) {
  Matrix4x4 flat = Matrix4x4::Identity;
  flat.m[2][2] = 0.0F;
  for (const Matrix4x4& world : {Matrix4x4::Identity, flat}) {
    EXPECT_THAT(Shade(kToViewer, world, 0.2158F), IsNear(kGrey, 2)) << "flattened: " << world.m[2][2];
  }
}

TEST_F(RenderMeshTest, SidesAreDarkerAndNeverBlackAndLightFromAboveIsBrighterOnTop) {
  const int side = Shade({1.0F, 0.0F, 0.0F}).red;
  EXPECT_LT(side, 220);
  EXPECT_GT(side, 80);
  EXPECT_GT(Shade({0.0F, 1.0F, 0.0F}).red, Shade({0.0F, -1.0F, 0.0F}).red + 20);
}

TEST_F(RenderMeshTest, PictureFactorAndVertexColourMultiply) {
  TestTexture texture(MakeTexture({255, 255, 0}));
  SubMesh& mesh = AddFullQuad(0.5F, {255, 128, 255});
  mesh.GetMaterialParams().AddTexture(TEXTURE_SLOT_1, &texture);
  Show();
  EXPECT_THAT(Middle(), IsNear(Rgb{255, 128, 0}, 1));
}

TEST_F(RenderMeshTest, PicturesAreRepeatedOnMeshes) {
  const base::Image image{2, 1, {255, 0, 0, 255, 0, 255, 0, 255}};
  TestTexture texture(renderer->CreateTexture(image));
  std::vector<base::Vertex> corners = Corners(kToViewer);
  for (const std::size_t right : {std::size_t{1}, std::size_t{2}}) corners[right].u = 2.0F;
  AddMesh(corners, {0, 1, 2, 0, 2, 3}).GetMaterialParams().AddTexture(TEXTURE_SLOT_1, &texture);
  Show(64, 64);
  EXPECT_THAT(At(8, 32), IsNear(kRed, 60));
  EXPECT_THAT(At(24, 32), IsNear(kGreen, 60));
  EXPECT_THAT(At(40, 32), IsNear(kRed, 60));
}

TEST_F(RenderMeshTest, EmissionAddsToTheSurfaceWithOrWithoutAPicture) {
  TestTexture texture(MakeTexture(kGreen));
  MaterialParams& params = AddFullQuad(0.5F, kRed).GetMaterialParams();
  params.emissive = {0.0F, 0.2158F, 1.0F};
  Show();
  EXPECT_THAT(Middle(), IsNear(Rgb{255, 128, 255}, 1));

  params.AddTexture(TEXTURE_SLOT_0, &texture);
  Show();
  EXPECT_THAT(Middle(), IsNear(Rgb{255, 128, 0}, 1));
}

TEST_F(RenderMeshTest, OpaqueSurfacesIgnoreAlphaAndCutOutsDropWhatIsBelow) {
  TestTexture texture(MakeTexture(kWhite, 100));
  MaterialParams& params = AddFullQuad(0.2F, kWhite).GetMaterialParams();
  params.AddTexture(TEXTURE_SLOT_1, &texture);
  AddFullQuad(0.6F, kRed);
  Show();
  EXPECT_EQ(Middle(), kWhite);

  params.alphaMode = AlphaMode::Mask;
  Show();
  EXPECT_EQ(Middle(), kRed);

  params.alphaCutoff = 0.3F;
  Show();
  EXPECT_EQ(Middle(), kWhite);

  params.alphaMode = AlphaMode::Blend;
  Show();
  EXPECT_GT(Middle().green, 100);
  EXPECT_LT(Middle().green, 220);
  EXPECT_EQ(Middle().red, 255);
}

TEST_F(RenderMeshTest, WhatIsGoneOrNeverWasIsIgnored) {
  SubMesh& gone = AddFullQuad(0.2F, kRed);
  TestTexture texture(MakeTexture(kGreen));
  SubMesh& plain = AddFullQuad(0.6F, kWhite);
  plain.GetMaterialParams().AddTexture(TEXTURE_SLOT_1, &texture);
  renderer->DestroyGeometry(gone.geometry);
  renderer->DestroyTexture(texture.GetHandle());
  renderer->DestroyTexture(0);
  renderer->DestroyTexture(4711);
  renderer->DestroyGeometry(4711);
  Show();
  EXPECT_EQ(Middle(), kWhite);  // a missing picture is white
}

TEST_F(RenderMeshTest, WhatCannotBeMadeIsNothing) {
  EXPECT_EQ(renderer->CreateTexture({}), 0U);
  EXPECT_EQ(renderer->CreateTexture({2, 2, {1, 2, 3, 4}}), 0U);
  EXPECT_EQ(renderer->CreateTexture({1 << 24, 1, std::vector<std::uint8_t>(std::size_t{4} << 24)}), 0U);
  const std::vector<base::Vertex> corners = Corners(kToViewer);
  EXPECT_EQ(renderer->CreateGeometry({}, {}), 0U);
  EXPECT_EQ(renderer->CreateGeometry(corners, std::vector<std::uint32_t>{0, 1, 4}), 0U);
  EXPECT_NE(renderer->CreateGeometry(corners, std::vector<std::uint32_t>{0, 1, 3}), 0U);
}

TEST_F(RenderMeshTest, BrokenMatricesDrawNothingAndHarmNothing) {
  AddFullQuad(0.5F, kRed);
  Matrix4x4 broken;
  for (auto& row : broken.m) std::ranges::fill(row, std::numeric_limits<float>::quiet_NaN());
  AddMesh(Corners(kToViewer), {0, 1, 2, 0, 2, 3}, broken);
  AddFullRectangle3D(0.2F, 0xFFFFFFFF).distance = std::numeric_limits<float>::quiet_NaN();
  list.items.back().world = broken;
  Show();
  EXPECT_EQ(Middle(), kRed);
}

}  // namespace
}  // namespace qen::host
