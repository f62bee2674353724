#include <cmath>

#include "tests/host/gltf_test.h"

namespace qen::host {
namespace {

using ::testing::ElementsAre;
using ::testing::FloatNear;

class GltfNodesTest : public GltfTest {
 protected:
  std::vector<std::string> Names(const std::string& members) {
    std::vector<std::string> names;
    for (const base::NodeData& node : Scene(builder.Glb(members)).nodes) names.push_back(base::ToUtf8(node.name));
    return names;
  }

  base::NodeData Node(const std::string& node) {
    const auto nodes = Scene(builder.Glb(R"("nodes":[)" + node + ']')).nodes;
    return nodes.empty() ? base::NodeData{} : nodes.front();
  }
};

constexpr const char* kFamily =
    R"("nodes":[{"name":"c"},{"name":"a","children":[3,0]},{"name":"d"},{"name":"b"},{"name":"Über 灯"}],)";

TEST_F(GltfNodesTest, AreThoseOfTheSceneDepthFirst) {
  const std::string family = kFamily;
  EXPECT_THAT(Names(family + R"("scene":1,"scenes":[{"nodes":[4]},{"nodes":[1,2]}])"), ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(Names(family + R"("scenes":[{"nodes":[4]},{"nodes":[1,2]}])"), ElementsAre("Über 灯"))
      << "the first without a default";
  EXPECT_THAT(Names(family + R"("extras":0)"), ElementsAre("a", "b", "c", "d", "Über 灯")) << "all without scenes";
}

TEST_F(GltfNodesTest, NameTheirParentsByPosition) {
  const auto nodes = Scene(builder.Glb(std::string(kFamily) + R"("scenes":[{"nodes":[2,1]}])")).nodes;
  std::vector<int> parents;
  parents.reserve(nodes.size());
  for (const base::NodeData& node : nodes) parents.push_back(node.parent);
  EXPECT_THAT(parents, ElementsAre(-1, -1, 1, 1));
}

TEST_F(GltfNodesTest, MayNestAsDeepAsTheyLike) {
  constexpr int kDepth = 100'000;
  std::string nodes = R"("scenes":[{"nodes":[0]}],"nodes":[)";
  for (int i = 1; i < kDepth; ++i) nodes += R"({"children":[)" + std::to_string(i) + "]},";
  const auto scene = Scene(builder.Glb(nodes + "{}]"));
  ASSERT_EQ(scene.nodes.size(), kDepth);
  EXPECT_EQ(scene.nodes.back().parent, kDepth - 2);
}

TEST_F(GltfNodesTest, KeepTranslationRotationAndScale) {
  const base::Pose pose = Node(R"({"translation":[1,2.5,-3],"rotation":[0.6,0,0,0.8],"scale":[2,3,4]})").pose;
  EXPECT_THAT(pose.translation, IsVec3(1.0F, 2.5F, -3.0F));
  EXPECT_THAT(pose.scale, IsVec3(2.0F, 3.0F, 4.0F));
  EXPECT_FLOAT_EQ(pose.rotation.x, 0.6F);
  EXPECT_FLOAT_EQ(pose.rotation.w, 0.8F);
}

struct Turn {
  Vec3 axis;  // of length 1
  float angle;
};

class GltfTurnTest : public GltfNodesTest, public ::testing::WithParamInterface<Turn> {};

TEST_P(GltfTurnTest, IsFoundInAMatrix) {
  const auto [axis, angle] = GetParam();
  std::string matrix;
  for (const Vec3& v : {Vec3{1.0F, 0.0F, 0.0F}, Vec3{0.0F, 1.0F, 0.0F}, Vec3{0.0F, 0.0F, 1.0F}}) {
    const Vec3 turned =  // Rodrigues' formula
        v * std::cos(angle) + Cross(axis, v) * std::sin(angle) + axis * (Dot(axis, v) * (1.0F - std::cos(angle)));
    matrix += std::to_string(turned.x) + ',' + std::to_string(turned.y) + ',' + std::to_string(turned.z) + ",0,";
  }
  const base::Quaternion rotation = Node(R"({"matrix":[)" + matrix + "0,0,0,1]}").pose.rotation;
  const float sign = rotation.w < 0.0F ? -1.0F : 1.0F;  // both are the same turn
  const Vec3 wanted = axis * (sign * std::sin(0.5F * angle));
  constexpr float kTolerance = 5e-6F;  // the matrix has six digits
  EXPECT_THAT(rotation.x, FloatNear(wanted.x, kTolerance));
  EXPECT_THAT(rotation.y, FloatNear(wanted.y, kTolerance));
  EXPECT_THAT(rotation.z, FloatNear(wanted.z, kTolerance));
  EXPECT_THAT(rotation.w, FloatNear(sign * std::cos(0.5F * angle), kTolerance));
}

INSTANTIATE_TEST_SUITE_P(SmallAndLarge, GltfTurnTest,
                         ::testing::Values(Turn{{0.6F, 0.48F, 0.64F}, 0.5F}, Turn{{0.8F, 0.36F, 0.48F}, 3.0F},
                                           Turn{{0.48F, 0.8F, 0.36F}, 3.0F}, Turn{{0.36F, 0.48F, 0.8F}, 3.0F},
                                           Turn{{0.0F, 0.6F, -0.8F}, 2.0F}));

TEST_F(GltfNodesTest, TakeMatricesApart) {
  const struct {
    const char* matrix = nullptr;
    Vec3 translation, scale;
    float z = 0.0F, w = 0.0F;  // of the rotation
  } kCases[] = {
      // a quarter turn about z that brings x to y
      {"0,2,0,0, -3,0,0,0, 0,0,4,0, 5,6,7,1", {5, 6, 7}, {2, 3, 4}, 0.70711F, 0.70711F},
      {"-1,0,0,0, 0,1,0,0, 0,0,1,0, 0,0,0,1", {}, {-1, 1, 1}, 0.0F, 1.0F},  // mirrored
      {"0,0,0,0, 0,0,0,0, 0,0,0,0, 1,2,3,1", {1, 2, 3}, {}, 0.0F, 1.0F},    // without size
  };
  for (const auto& c : kCases) {
    const base::Pose pose = Node(R"({"matrix":[)" + std::string(c.matrix) + "]}").pose;
    EXPECT_THAT(pose.translation, IsVec3(c.translation.x, c.translation.y, c.translation.z)) << c.matrix;
    EXPECT_THAT(pose.scale, IsVec3(c.scale.x, c.scale.y, c.scale.z)) << c.matrix;
    EXPECT_THAT(pose.rotation.z, FloatNear(c.z, 1e-5F)) << c.matrix;
    EXPECT_THAT(pose.rotation.w, FloatNear(c.w, 1e-5F)) << c.matrix;
  }
}

TEST_F(GltfNodesTest, CamerasHaveAFarPlaneOfTheirOwnOrAVeryFarOne) {
  const auto nodes = Scene(builder.Glb(R"("nodes":[{"camera":0},{"camera":1},{"camera":2},{}],"cameras":[
      {"type":"perspective","perspective":{"yfov":0.5,"znear":0.25,"zfar":100}},
      {"type":"perspective","perspective":{"yfov":0.5,"znear":0.25}},
      {"type":"orthographic","orthographic":{"xmag":1,"ymag":1,"zfar":1,"znear":0}}])"))
                         .nodes;
  ASSERT_EQ(nodes.size(), 4U);
  ASSERT_TRUE(nodes[0].camera && nodes[1].camera);
  EXPECT_THAT(*nodes[0].camera, ElementsAre(0.5F, 0.25F, 100.0F));
  EXPECT_THAT(*nodes[1].camera, ElementsAre(0.5F, 0.25F, 80000.0F));
  EXPECT_FALSE(nodes[2].camera);
  EXPECT_FALSE(nodes[3].camera);
}

}  // namespace
}  // namespace qen::host
