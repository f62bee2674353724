// Pictures: clicks, and the texture that is put on them.
#include "engine/mesh.h"
#include "engine/texture.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

class Picture : public GuiTest {
 protected:
  Picture() {
    base::SceneData scene;
    base::AddBox(scene, u"~pmap", -1, {}, {20, 20, 1});
    base::AddPicture(scene);
    base::AddBox(scene, u"~pplain", -1, {60, 0, 0}, {5, 5, 1});
    base::AddNode(scene, u"~pempty", -1, {-60, 0, 0});
    OpenScene(std::move(scene), u"item ~pmap { message travel:here tooltip 3 }");
    map = dynamic_cast<ICGUIPicture*>(Find(u"~pmap"));
    listener.onRecord = [](std::uint32_t, GuiMessage& record) { record.handled = 1; };
    engine.AddPictureFile(u"island.png");
    island = TextureManager::GetSingleton()->Load(u"island.png", kDefaultGroup, 0, 129);
    MoveTo({1, 1});
    Frame();
  }

  Texture* Shown(ICGUIPicture& picture) {
    return picture.normalNode->mesh->GetSubMesh(0)->GetMaterialParams().GetTexture(TEXTURE_SLOT_1);
  }

  ICGUIPicture* map = nullptr;
  Texture* island = nullptr;
};

TEST_F(Picture, DispatchesOncePerRelease) {
  Click(*map);
  EXPECT_EQ(listener.Texts(), std::vector<String>{u"travel:here"});
  EXPECT_EQ(listener.records[0].id, message::kCommand);
  EXPECT_EQ(listener.records[0].record.source, map);
  for (int i = 0; i < 3; ++i) Frame();
  Press();
  Frame();
  EXPECT_EQ(listener.records.size(), 1U);
  EXPECT_TRUE(engine.sound.played.empty());
}

TEST_F(Picture, NeverBecomesWhatIsPicked) {
  for (const std::uint32_t mouse : {0U, 1U, 2U}) EXPECT_EQ(PickAt(ProjectMiddle(*map), mouse), std::nullopt);
}

TEST_F(Picture, RestsWhileDisabledOrHidden) {
  map->SetDisabled(1);
  Click(*map);
  EXPECT_TRUE(IsDrawn(u"~pmap"));
  map->SetDisabled(0);
  map->SetVisible(0);
  Click(*map);
  EXPECT_FALSE(IsDrawn(u"~pmap"));
  EXPECT_EQ(map->state, 0);
  EXPECT_TRUE(listener.records.empty());
  map->SetVisible(1);
  Frame();
  EXPECT_TRUE(IsDrawn(u"~pmap"));
}

TEST_F(Picture, TakesATextureAndGivesItBack) {
  ASSERT_NE(island, nullptr);
  Texture* first = Shown(*map);
  ASSERT_NE(first, nullptr);
  engine.calls.clear();
  map->SetTexture(island);
  EXPECT_EQ(Shown(*map), island);
  ASSERT_EQ(engine.calls.size(), 2U);
  EXPECT_EQ(engine.calls[0].name, "MaterialParams::RemoveTexture");
  EXPECT_EQ(std::get<std::int64_t>(engine.calls[0].arguments[1]), TEXTURE_SLOT_1);
  EXPECT_EQ(engine.calls[1].name, "MaterialParams::AddTexture");
  EXPECT_EQ(std::get<std::int64_t>(engine.calls[1].arguments[1]), TEXTURE_SLOT_1);
  map->SetTexture(island);
  Frame();
  DrawPages();
  EXPECT_EQ(Shown(*map), island) << "stays";
  map->SetTexture(nullptr);
  map->SetTexture(nullptr);
  EXPECT_EQ(Shown(*map), first);
}

TEST_F(Picture, WithoutTextureOrMeshStandsTheSame) {
  auto& plain = dynamic_cast<ICGUIPicture&>(*Find(u"~pplain"));
  plain.SetTexture(island);
  EXPECT_EQ(Shown(plain), island);
  plain.SetTexture(nullptr);
  EXPECT_EQ(Shown(plain), nullptr);
  auto& empty = dynamic_cast<ICGUIPicture&>(*Find(u"~pempty"));
  engine.calls.clear();
  empty.SetTexture(island);
  empty.SetTexture(nullptr);
  EXPECT_TRUE(engine.calls.empty());
  Aim({-60, 0, 0});
  ClickHere();
  gui->GetActivePages().clear();
  map->SetVisible(0);
  map->SetTexture(island);
  EXPECT_EQ(Shown(*map), island) << "out of sight as well";
  map->Release();
  map->Release();
  map->SetTexture(nullptr);
  DrawPages();
}

TEST_F(Picture, MovesWithItsMatrix) {
  Matrix4x4 matrix = Matrix4x4::Identity;
  map->GetMatrix(matrix);
  matrix.SetTranslation({0, 45, 0});
  map->SetMatrix(matrix);
  Aim({0, -10, -1});
  ClickHere();
  EXPECT_TRUE(listener.records.empty());
  Aim({0, 45, -1});
  ClickHere();
  EXPECT_EQ(listener.records.size(), 1U);
}

}  // namespace
}  // namespace qen::test
