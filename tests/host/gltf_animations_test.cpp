#include "tests/host/gltf_test.h"

namespace qen::host {
namespace {

using base::Interpolation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class GltfAnimationsTest : public GltfTest {
 protected:
  static std::string Sampler(std::size_t input, std::size_t output, const std::string& interpolation) {
    return R"({"input":)" + std::to_string(input) + R"(,"output":)" + std::to_string(output) + R"(,"interpolation":")" +
           interpolation + "\"}";
  }
  static std::string Channel(int sampler, int node, const std::string& path) {
    return R"({"sampler":)" + std::to_string(sampler) + R"(,"target":{"node":)" + std::to_string(node) +
           R"(,"path":")" + path + "\"}}";
  }
  static std::string Animation(const std::string& samplers, const std::string& channels) {
    return R"({"samplers":[)" + samplers + R"(],"channels":[)" + channels + "]}";
  }
  base::AnimationData Read(const std::string& animations) {
    return GltfTest::Animation(
        builder.Glb(R"("nodes":[{"name":"door"},{"name":"lid"}],"animations":[)" + animations + ']'));
  }
};

TEST_F(GltfAnimationsTest, HaveTracksOfEveryPropertyAndInterpolation) {
  const auto times = builder.Add<float>("SCALAR", {0.5F, 2.0F});
  const auto moves = builder.Add<float>("VEC3", {1, 2, 3, 4, 5, 6});
  const auto turns = builder.Add<float>("VEC4", {0, 0, 0, 1, 1, 0, 0, 0});
  const auto sizes = builder.Add<float>("VEC3", {0, 0, 0, 1, 1, 1, 9, 9, 9, 8, 8, 8, 2, 2, 2, 0, 0, 0});
  const auto data =
      Read(Animation(Sampler(times, moves, "STEP") + ',' + Sampler(times, turns, "LINEAR") + ',' +
                         Sampler(times, sizes, "CUBICSPLINE"),
                     Channel(0, 1, "translation") + ',' + Channel(1, 1, "rotation") + ',' + Channel(2, 1, "scale")));
  ASSERT_THAT(data.nodes, SizeIs(1));
  const base::NodeTracks& lid = data.nodes[0];
  EXPECT_EQ(lid.node, u"lid");
  EXPECT_EQ(data.seconds, 2.0F);
  EXPECT_THAT(lid.translation.times, ElementsAre(0.5F, 2.0F));
  EXPECT_EQ(lid.translation.interpolation, Interpolation::Step);
  EXPECT_THAT(lid.translation.values, ElementsAre(IsVec3(1.0F, 2.0F, 3.0F), IsVec3(4.0F, 5.0F, 6.0F)));
  EXPECT_EQ(lid.rotation.interpolation, Interpolation::Linear);
  ASSERT_THAT(lid.rotation.values, SizeIs(2));
  EXPECT_EQ(lid.rotation.values[1].x, 1.0F);
  EXPECT_EQ(lid.rotation.values[1].w, 0.0F);
  EXPECT_EQ(lid.scale.interpolation, Interpolation::Cubic);
  ASSERT_THAT(lid.scale.values, SizeIs(6));
  EXPECT_THAT(lid.scale.values[4], IsVec3(2.0F, 2.0F, 2.0F));
}

TEST_F(GltfAnimationsTest, OfOneFileBecomeOne) {
  const auto early = builder.Add<float>("SCALAR", {0.0F, 1.0F});
  const auto late = builder.Add<float>("SCALAR", {0.0F, 3.0F});
  const auto a = builder.Add<float>("VEC3", {1, 1, 1, 1, 1, 1});
  const auto b = builder.Add<float>("VEC3", {2, 2, 2, 2, 2, 2});
  const auto data =
      Read(Animation(Sampler(early, a, "LINEAR"), Channel(0, 0, "translation")) + ',' +
           Animation(Sampler(late, b, "LINEAR"), Channel(0, 1, "translation") + ',' + Channel(0, 0, "translation")));
  ASSERT_THAT(data.nodes, SizeIs(2));
  EXPECT_THAT(data.nodes[0].translation.values, ElementsAre(IsVec3(1.0F, 1.0F, 1.0F), IsVec3(1.0F, 1.0F, 1.0F)));
  EXPECT_THAT(data.nodes[1].translation.values, ElementsAre(IsVec3(2.0F, 2.0F, 2.0F), IsVec3(2.0F, 2.0F, 2.0F)));
  EXPECT_EQ(data.seconds, 3.0F);
}

TEST_F(GltfAnimationsTest, ReadNormalisedRotations) {
  const auto times = builder.Add<float>("SCALAR", {0.0F});
  const auto turns = builder.Add<std::uint16_t>("VEC4", {0, 0, 65535, 0}, true);
  const auto data = Read(Animation(Sampler(times, turns, "LINEAR"), Channel(0, 0, "rotation")));
  ASSERT_THAT(data.nodes, SizeIs(1));
  ASSERT_THAT(data.nodes[0].rotation.values, SizeIs(1));
  EXPECT_EQ(data.nodes[0].rotation.values[0].z, 1.0F);
}

TEST_F(GltfAnimationsTest, LeaveOutWhatIsNoNodesPlace) {
  const auto times = builder.Add<float>("SCALAR", {0.0F});
  const auto weights = builder.Add<float>("SCALAR", {1.0F});
  const auto data = Read(Animation(Sampler(times, weights, "LINEAR"),
                                   Channel(0, 0, "weights") + R"(,{"sampler":0,"target":{"path":"translation"}})"));
  for (const base::NodeTracks& tracks : data.nodes) EXPECT_THAT(tracks.translation.times, IsEmpty());
}

TEST_F(GltfAnimationsTest, AreRefusedWhenTimesAndValuesDoNotBelongTogether) {
  const auto growing = builder.Add<float>("SCALAR", {0.0F, 1.0F});
  const auto falling = builder.Add<float>("SCALAR", {1.0F, 0.5F});
  const auto two = builder.Add<float>("VEC3", {1, 1, 1, 2, 2, 2});
  const auto three = builder.Add<float>("VEC3", {1, 1, 1, 2, 2, 2, 3, 3, 3});
  const auto why = [&](std::size_t times, std::size_t values, const std::string& interpolation, int node) {
    error.clear();
    const auto bytes = builder.Glb(R"("nodes":[{}],"animations":[)" +
                                   Animation(Sampler(times, values, interpolation), Channel(0, node, "scale")) + ']');
    EXPECT_FALSE(scenes.ParseAnimation(u"a.glb", bytes, error).has_value());
    return base::ToUtf8(error);
  };
  EXPECT_EQ(why(falling, two, "LINEAR", 0), "the times of an animation do not grow");
  EXPECT_EQ(why(growing, three, "LINEAR", 0), "an animation does not have a value a key");
  EXPECT_EQ(why(growing, two, "CUBICSPLINE", 0), "an animation does not have a value a key");
  EXPECT_EQ(why(growing, two, "LINEAR", 1), "there is no element 1 of \"nodes\"");
}

}  // namespace
}  // namespace qen::host
