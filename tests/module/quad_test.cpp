// One slot of the bag: its texture, colour and pulse.
#include <gmock/gmock.h>

#include "engine/material.h"
#include "tests/module/bag_fixture.h"

namespace qen::test {
namespace {

using ::testing::ElementsAre;

class Quad : public BagTest {
 protected:
  ICGUIDummy& OpenQuad(StringView properties = u"") {
    bag = OpenBagOf(1, u"item ~qslot0 { " + String(properties) + u" }");
    return BagTest::Quad(*bag, 0);
  }

  // Calls since the last time, with their last text where they have one.
  std::vector<std::string> TakeCalls() {
    std::vector<std::string> names;
    for (const base::Call& call : engine.calls) {
      names.push_back(call.name);
      for (const base::CallArgument& argument : call.arguments) {
        const auto* text = std::get_if<std::string>(&argument);
        if (text != nullptr && !text->empty() && *text != "_DefaultGroup_") names.back() += " " + *text;
      }
    }
    engine.calls.clear();
    return names;
  }

  // The factor by which the square is drawn.
  float DrawnFactor() {
    DrawPages();
    return engine.render.frame.items.at(0).world.m[0][0];
  }

  ICGUIPageObject* bag = nullptr;
};

TEST_F(Quad, BeginsWithItsDefaults) {
  ICGUIDummy& quad = OpenQuad();
  EXPECT_EQ(quad.GetScale(), 1.0F);
  EXPECT_EQ(quad.GetAlpha(), 255);
  EXPECT_EQ(quad.GetActive(), 0);
  EXPECT_EQ(quad.GetBagRecord().texture, u"textures\\guitex\\default_bag");
  ASSERT_NE(quad.GetBagRecord().size, nullptr);
  EXPECT_EQ(quad.GetBagRecord().size[0], 4.0F);
  EXPECT_EQ(quad.GetBagRecord().size[1], 4.0F);
  EXPECT_EQ(quad.node, quad.normalNode);
  EXPECT_EQ(quad.normalIndex, 0);
  const std::vector<Seen> seen = DrawSlots();
  ASSERT_EQ(seen.size(), 1U);
  EXPECT_EQ(seen[0].argb, kPlainSlot);
  EXPECT_NE(seen[0].texture, 0U);
  EXPECT_THAT(engine.CallsOf("TextureManager::Load").at(0).arguments,
              ElementsAre(base::CallArgument("textures\\guitex\\default_bag"), base::CallArgument("_DefaultGroup_"),
                          base::CallArgument(std::int64_t{0}), base::CallArgument(std::int64_t{129})));
}

TEST_F(Quad, LoadsItsTextureInOrder) {
  engine.AddPictureFile(u"own.png");
  ICGUIDummy& quad = OpenQuad();
  engine.calls.clear();
  quad.GetBagRecord().texture = u"own.png";
  quad.LoadTexture();
  EXPECT_THAT(TakeCalls(),
              ElementsAre("MaterialParams::RemoveTexture", "TextureManager::Destroy textures\\guitex\\default_bag",
                          "MaterialManager::Destroy gui", "MaterialManager::GetByName gui",
                          "TextureManager::Load own.png", "MaterialParams::AddTexture own.png"));
  quad.GetBagRecord().texture = u"missing.png";
  quad.LoadTexture();
  EXPECT_THAT(TakeCalls(), ElementsAre("MaterialParams::RemoveTexture", "TextureManager::Destroy own.png",
                                       "MaterialManager::Destroy gui", "MaterialManager::GetByName gui",
                                       "TextureManager::Load missing.png"));
  quad.LoadTexture();
  EXPECT_THAT(TakeCalls(), ElementsAre("MaterialParams::RemoveTexture", "MaterialManager::Destroy gui",
                                       "MaterialManager::GetByName gui", "TextureManager::Load missing.png"))
      << "without a texture there is none to destroy";
  EXPECT_EQ(DrawSlots().at(0).texture, 0U);
}

TEST_F(Quad, PutsItsAlphaOverItsColor) {
  ICGUIDummy& quad = OpenQuad(u"alpha 128");
  EXPECT_EQ(DrawSlots().at(0).argb, 0x80FFFFFFU);
  quad.SetColor(0x123456, false);
  EXPECT_EQ(DrawSlots().at(0).argb, 0x80123456U);
  quad.GetAlpha() = 0;
  EXPECT_EQ(DrawSlots().at(0).argb, 0x00123456U);
  quad.SetColor(0x123456, true);
  quad.GetAlpha() = 1;
  EXPECT_EQ(DrawSlots().at(0).argb, 0x01FFFFFFU);
}

TEST_F(Quad, DrawsItsSquareInTheNodesPlane) {
  ICGUIDummy& quad = OpenQuad(u"scale 3 alpha 255");
  Matrix4x4 moved = Matrix4x4::Identity;
  moved.SetTranslation({1, 2, 5});
  quad.SetMatrix(moved);
  engine.calls.clear();
  DrawPages();
  std::vector<base::Call> calls = engine.calls;
  std::erase_if(calls, [](const base::Call& call) { return !call.name.starts_with("Drawing::"); });
  ASSERT_EQ(calls.size(), 4U);
  EXPECT_EQ(calls[0].name, "Drawing::SetWorldMatrix");
  EXPECT_EQ(std::get<std::string>(calls[0].arguments[0]), "3 0 0 0 0 3 0 0 0 0 3 0 1 2 5 1") << "scaled, then placed";
  EXPECT_EQ(calls[1].name, "Drawing::BeginQuads3D");
  EXPECT_EQ(std::get<std::string>(calls[1].arguments[0]), "gui");
  EXPECT_EQ(calls[2].name, "Drawing::DrawQuad3D");
  EXPECT_THAT(calls[2].arguments,
              ElementsAre(base::CallArgument("-4 0 4"), base::CallArgument("4 0 4"), base::CallArgument("-4 0 -4"),
                          base::CallArgument("4 0 -4"), base::CallArgument(std::int64_t{0xFFFFFFFF})));
  EXPECT_EQ(calls[3].name, "Drawing::EndQuads");

  EXPECT_EQ(gui->GetNodeMatrix(0, u"~qslot0")->m[3][1], 2.0F);
  EXPECT_EQ(quad.node->transform.m[3][2], 5.0F);
  EXPECT_EQ(quad.node->inverseTransform.m[3][0], -1.0F);
  Matrix4x4 read = Matrix4x4::Identity;
  quad.GetMatrix(read);
  EXPECT_EQ(read.m[3][0], 1.0F);
}

TEST_F(Quad, PulsesWhileActive) {
  ICGUIDummy& quad = OpenQuad(u"scale 2 active 1");
  // The phase moves by twice the seconds of the frame before.
  const auto pass = [&](double seconds) {
    gui->GetFrameTime() = seconds;
    bag->Pick(nullptr, 0, 0, 0, 0, 0);
  };
  EXPECT_FLOAT_EQ(DrawnFactor(), 1.0F);
  pass(0.25);
  EXPECT_FLOAT_EQ(DrawnFactor(), 1.5F);
  pass(0.25);
  EXPECT_FLOAT_EQ(DrawnFactor(), 2.0F);
  pass(0.25);
  EXPECT_FLOAT_EQ(DrawnFactor(), 1.5F);
  pass(0.25);
  EXPECT_FLOAT_EQ(DrawnFactor(), 1.0F);
  pass(7.125);
  EXPECT_FLOAT_EQ(DrawnFactor(), 1.25F) << "more than a second";
  quad.GetScale() = 0.5F;
  EXPECT_FLOAT_EQ(DrawnFactor(), 0.875F) << "it may shrink as well";
  quad.GetActive() = 0;
  EXPECT_FLOAT_EQ(DrawnFactor(), 0.5F);
  pass(0.25);
  quad.GetActive() = 1;
  EXPECT_FLOAT_EQ(DrawnFactor(), 0.625F) << "the phase runs on meanwhile";
  pass(1e30);
  EXPECT_GE(DrawnFactor(), 0.5F);
  EXPECT_LE(DrawnFactor(), 1.0F);
}

TEST_F(Quad, CannotBeHiddenOrDisabledButItsNodeCanBeTurnedOff) {
  ICGUIDummy& quad = OpenQuad();
  quad.SetVisible(0);
  quad.SetDisabled(1);
  EXPECT_EQ(quad.info->visible, 1U);
  EXPECT_EQ(quad.info->disabled, 0U);
  bag->Pick(nullptr, 0, 0, 0, 0, 0);
  EXPECT_EQ(DrawSlots().size(), 1U);
  quad.ShowNodes(0);
  bag->Pick(nullptr, 0, 0, 0, 0, 0);
  EXPECT_TRUE(DrawSlots().empty());
  quad.ShowNodes(1);
  EXPECT_EQ(DrawSlots().size(), 1U);
}

}  // namespace
}  // namespace qen::test
