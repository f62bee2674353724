// The texture that is put on a picture.
#include "engine/mesh.h"
#include "engine/texture.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

using Picture = GuiTest;

TEST_F(Picture, TakesATextureAndGivesItsOwnBack) {
  base::SceneData scene;
  base::AddBox(scene, u"~pmap", -1, {}, {20, 20, 1});
  base::AddPicture(scene);
  base::AddBox(scene, u"~pplain", -1, {60, 0, 0}, {5, 5, 1});
  base::AddNode(scene, u"~pempty", -1, {-60, 0, 0});
  OpenScene(std::move(scene));
  engine.AddPictureFile(u"island.png");
  const auto shown = [](const ICGUIPicture& picture) {
    return picture.normalNode->mesh->GetSubMesh(0)->GetMaterialParams().GetTexture(TEXTURE_SLOT_1);
  };
  Texture* island = TextureManager::GetSingleton()->Load(u"island.png", kDefaultGroup, 0, 129);
  ASSERT_NE(island, nullptr);
  for (const bool own : {true, false}) {
    auto& picture = dynamic_cast<ICGUIPicture&>(*Find(own ? u"~pmap" : u"~pplain"));
    Texture* first = shown(picture);
    EXPECT_EQ(first != nullptr, own);
    for (const std::uint32_t visible : {1U, 0U}) {
      picture.SetVisible(visible);
      picture.SetTexture(island);
      picture.SetTexture(island);
      Frame();
      DrawPages();
      EXPECT_EQ(shown(picture), island) << "stays, out of sight as well";
      picture.SetTexture(nullptr);
      picture.SetTexture(nullptr);
      EXPECT_EQ(shown(picture), first);
    }
    Matrix4x4 moved = Matrix4x4::Identity;
    moved.SetTranslation({0, 50, 0});
    picture.SetMatrix(moved);
    EXPECT_EQ(gui->GetNodeMatrix(0, picture.info->name.c_str())->GetTranslation(), (Vec3{0, 50, 0}));
    picture.Release();
    picture.SetTexture(island);
  }
  dynamic_cast<ICGUIPicture&>(*Find(u"~pempty")).SetTexture(island);
}

}  // namespace
}  // namespace qen::test
