#include "tests/host/gltf_test.h"

namespace qen::host {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class GltfMaterialsTest : public GltfTest {
 protected:
  base::MaterialData Material(const std::string& material) {
    const auto materials = Scene(builder.Glb(R"("materials":[)" + material + ']')).materials;
    return materials.empty() ? base::MaterialData{} : materials.front();
  }
};

constexpr const char* kTexturedMaterials =
    R"("materials":[{"pbrMetallicRoughness":{"baseColorTexture":{"index":1}},"emissiveTexture":{"index":0}},
                    {"pbrMetallicRoughness":{"baseColorTexture":{"index":1}}}],
       "textures":[{"source":1},{"source":0}],)";

TEST_F(GltfMaterialsTest, HaveTheFormatsDefaults) {
  const MaterialParams params = Material("{}").params;
  EXPECT_THAT(params.baseColor, ElementsAre(1.0F, 1.0F, 1.0F, 1.0F));
  EXPECT_THAT(params.emissive, ElementsAre(0.0F, 0.0F, 0.0F));
  EXPECT_EQ(params.metallic, 1.0F);
  EXPECT_EQ(params.roughness, 1.0F);
  EXPECT_EQ(params.alphaMode, AlphaMode::Opaque);
  EXPECT_EQ(params.alphaCutoff, 0.5F);
  EXPECT_FALSE(params.doubleSided);
}

TEST_F(GltfMaterialsTest, KeepWhatTheFileSays) {
  const MaterialParams params = Material(R"({"alphaMode":"MASK","alphaCutoff":0.25,"doubleSided":true,
      "emissiveFactor":[0.5,0.25,1],"extensions":{"KHR_materials_emissive_strength":{"emissiveStrength":4}},
      "pbrMetallicRoughness":{"baseColorFactor":[0.1,0.2,0.3,0.4],"metallicFactor":0.5,"roughnessFactor":0.75}})")
                                    .params;
  EXPECT_THAT(params.baseColor, ElementsAre(0.1F, 0.2F, 0.3F, 0.4F));
  EXPECT_THAT(params.emissive, ElementsAre(2.0F, 1.0F, 4.0F));
  EXPECT_EQ(params.metallic, 0.5F);
  EXPECT_EQ(params.roughness, 0.75F);
  EXPECT_EQ(params.alphaMode, AlphaMode::Mask);
  EXPECT_EQ(params.alphaCutoff, 0.25F);
  EXPECT_TRUE(params.doubleSided);
  EXPECT_EQ(Material(R"({"alphaMode":"BLEND"})").params.alphaMode, AlphaMode::Blend);
}

TEST_F(GltfMaterialsTest, UnlitOnesShowTheirOwnColour) {
  const MaterialParams params = Material(R"({"extensions":{"KHR_materials_unlit":{}},"emissiveFactor":[1,1,1],
      "pbrMetallicRoughness":{"baseColorFactor":[0.5,0.5,0.5,1],"metallicFactor":1,"roughnessFactor":0}})")
                                    .params;
  EXPECT_THAT(params.baseColor, ElementsAre(0.5F, 0.5F, 0.5F, 1.0F));
  EXPECT_THAT(params.emissive, ElementsAre(0.0F, 0.0F, 0.0F));
  EXPECT_EQ(params.metallic, 0.0F);
  EXPECT_EQ(params.roughness, 1.0F);
}

TEST_F(GltfMaterialsTest, FindTheirPicturesInsideAndBesideTheFile) {
  const auto view = builder.AddView(MakePicture());
  files.Add(u"scenes/glow.bmp", MakePicture());
  const auto scene = Scene(builder.Glb(std::string(kTexturedMaterials) + R"("images":[{"bufferView":)" +
                                       std::to_string(view) + R"(,"mimeType":"image/bmp"},{"uri":"Glow.bmp"}])"));
  ASSERT_THAT(scene.materials, SizeIs(2));
  ASSERT_THAT(scene.images, SizeIs(2));
  EXPECT_NE(scene.materials[0].baseImage, scene.materials[0].emissiveImage);
  EXPECT_EQ(scene.materials[0].baseImage, scene.materials[1].baseImage);
  EXPECT_EQ(scene.materials[1].emissiveImage, -1);
  EXPECT_THAT(scene.images[0].rgba, ElementsAre(255, 0, 0, 255, 0, 0, 255, 128));
  EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(GltfMaterialsTest, LeaveOutPicturesThatCannotBeReadWithAWarning) {
  const auto scene = Scene(builder.Glb(std::string(kTexturedMaterials) +
                                       R"("images":[{"uri":"missing.png"},{"uri":"data:image/png;base64,AAAA"}])"));
  ASSERT_THAT(scene.materials, SizeIs(2));
  EXPECT_THAT(scene.images, IsEmpty());
  EXPECT_EQ(scene.materials[0].baseImage, -1);
  EXPECT_THAT(warnings,
              ::testing::UnorderedElementsAre(HasSubstr("cannot read missing.png"), HasSubstr("not a picture")));
}

TEST_F(GltfMaterialsTest, LookForNoPicturesWhenNoneAreWanted) {
  const auto scene =
      Scene(builder.Glb(std::string(kTexturedMaterials) + R"("images":[{"uri":"a.png"},{"uri":"b.png"}])"), false);
  EXPECT_THAT(scene.materials, SizeIs(2));
  EXPECT_EQ(scene.materials[0].baseImage, -1);
  EXPECT_THAT(files.reads, IsEmpty());
}

}  // namespace
}  // namespace qen::host
