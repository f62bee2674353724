#include "tests/host/gltf_test.h"

namespace qen::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class GltfMeshesTest : public GltfTest {
 protected:
  // The sub-meshes of a mesh whose primitives are these.
  std::vector<base::SubMeshData> SubMeshes(const std::string& primitives) {
    const auto meshes = Scene(builder.Glb(R"("meshes":[{"primitives":[)" + primitives + "]}]")).meshes;
    return meshes.empty() ? std::vector<base::SubMeshData>{} : meshes.front();
  }

  base::SubMeshData SubMesh(const std::string& primitive) {
    const auto all = SubMeshes(primitive);
    return all.empty() ? base::SubMeshData{} : all.front();
  }

  // A unit square with normals; the attributes of a primitive.
  std::string Square() {
    const auto positions = builder.Add<float>("VEC3", {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0});
    const auto normals = builder.Add<float>("VEC3", {0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1});
    return R"("POSITION":)" + std::to_string(positions) + R"(,"NORMAL":)" + std::to_string(normals);
  }

  static std::string Primitive(const std::string& attributes, const std::string& more = "") {
    return R"({"attributes":{)" + attributes + '}' + more + '}';
  }
};

TEST_F(GltfMeshesTest, KeepPositionsAndNormals) {
  const auto mesh = SubMesh(Primitive(Square()));
  ASSERT_THAT(mesh.vertices, SizeIs(4));
  EXPECT_THAT(mesh.vertices[2].position, IsVec3(1.0F, 1.0F, 0.0F));
  EXPECT_THAT(mesh.vertices[2].normal, IsVec3(0.0F, 0.0F, 1.0F));
  EXPECT_EQ(mesh.material, -1);
  EXPECT_THAT(mesh.vertices[2].color, ElementsAre(255, 255, 255, 255));
}

TEST_F(GltfMeshesTest, ReadIndicesOfEverySize) {
  const std::string square = Square();
  const auto with = [&](std::size_t accessor) {
    return SubMesh(Primitive(square, R"(,"indices":)" + std::to_string(accessor))).indices;
  };
  EXPECT_THAT(with(builder.Add<std::uint8_t>("SCALAR", {0, 1, 2, 2, 3, 0})), ElementsAre(0, 1, 2, 2, 3, 0));
  EXPECT_THAT(with(builder.Add<std::uint16_t>("SCALAR", {2, 3, 0})), ElementsAre(2, 3, 0));
  EXPECT_THAT(with(builder.Add<std::uint32_t>("SCALAR", {3, 2, 1})), ElementsAre(3, 2, 1));
}

TEST_F(GltfMeshesTest, TurnStripsAndFansIntoTriangles) {
  const std::string square = Square();
  const auto indices = R"(,"indices":)" + std::to_string(builder.Add<std::uint8_t>("SCALAR", {0, 1, 3, 2, 0}));
  EXPECT_THAT(SubMesh(Primitive(square, indices + R"(,"mode":5)")).indices, ElementsAre(0, 1, 3, 3, 1, 2, 3, 2, 0));
  EXPECT_THAT(SubMesh(Primitive(square, indices + R"(,"mode":6)")).indices, ElementsAre(0, 1, 3, 0, 3, 2, 0, 2, 0));
  EXPECT_THAT(SubMesh(Primitive(square)).indices, ElementsAre(0, 1, 2)) << "without indices";
  EXPECT_THAT(SubMesh(Primitive(square, R"(,"mode":6)")).indices, ElementsAre(0, 1, 2, 0, 2, 3));
  EXPECT_THAT(SubMeshes(Primitive(square, R"(,"mode":1)") + ',' + Primitive(square, R"(,"mode":4)") + ',' +
                        Primitive(square, R"(,"mode":0)")),
              SizeIs(1))
      << "points and lines are left out";
}

TEST_F(GltfMeshesTest, AreFlatWhereNormalsAreMissing) {
  // Two triangles that share an edge and stand at a right angle.
  const auto positions = builder.Add<float>("VEC3", {0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1});
  const auto indices = builder.Add<std::uint8_t>("SCALAR", {0, 1, 2, 0, 2, 3});
  const auto mesh =
      SubMesh(Primitive(R"("POSITION":)" + std::to_string(positions), R"(,"indices":)" + std::to_string(indices)));
  ASSERT_THAT(mesh.vertices, SizeIs(6));
  EXPECT_THAT(mesh.indices, ElementsAre(0, 1, 2, 3, 4, 5));
  for (std::size_t i = 0; i < 3; ++i) EXPECT_THAT(mesh.vertices[i].normal, IsVec3(0.0F, 0.0F, 1.0F));
  for (std::size_t i = 3; i < 6; ++i) EXPECT_THAT(mesh.vertices[i].normal, IsVec3(1.0F, 0.0F, 0.0F));
}

TEST_F(GltfMeshesTest, ReadTextureCoordinatesOfEveryType) {
  const std::string square = Square();
  const auto with = [&](std::size_t accessor) {
    return SubMesh(Primitive(square + R"(,"TEXCOORD_0":)" + std::to_string(accessor))).vertices[1];
  };
  EXPECT_FLOAT_EQ(with(builder.Add<float>("VEC2", {0, 0, 1.5F, -0.25F, 0, 0, 0, 0})).u, 1.5F);
  EXPECT_FLOAT_EQ(with(builder.Add<std::uint8_t>("VEC2", {0, 0, 51, 255, 0, 0, 0, 0}, true)).u, 0.2F);
  EXPECT_FLOAT_EQ(with(builder.Add<std::uint16_t>("VEC2", {0, 0, 0, 65535, 0, 0, 0, 0}, true)).v, 1.0F);
}

TEST_F(GltfMeshesTest, ReadColoursOfEveryType) {
  const std::string square = Square();
  const auto with = [&](std::size_t accessor) {
    return SubMesh(Primitive(square + R"(,"COLOR_0":)" + std::to_string(accessor))).vertices[0].color;
  };
  EXPECT_THAT(with(builder.Add<float>("VEC3", {0.2F, 2, -1, 0, 0, 0, 0, 0, 0, 0, 0, 0})), ElementsAre(51, 255, 0, 255));
  EXPECT_THAT(with(builder.Add<std::uint8_t>("VEC4", {1, 2, 3, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, true)),
              ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(with(builder.Add<std::uint16_t>("VEC4", {65535, 0, 257, 514, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, true)),
              ElementsAre(255, 0, 1, 2));
}

TEST_F(GltfMeshesTest, FollowTheStrideOfInterleavedBuffers) {
  // Positions and normals of three vertices take turns.
  builder.Add<float>("SCALAR", {0, 0, 0, 0, 0, 1, 1, 0, 0, 0, 0, 1, 1, 1, 0, 0, 0, 1});
  std::string json = builder.Json(R"("meshes":[{"primitives":[{"attributes":{"POSITION":0,"NORMAL":1}}]}])");
  const auto replace = [&json](const std::string& list, const std::string& with) {
    const std::size_t start = json.find('"' + list + "\":[") + list.size() + 3;
    json.replace(start, json.find(']', start) - start + 1, with);
  };
  replace("bufferViews", R"([{"buffer":0,"byteLength":72,"byteStride":24}])");
  replace("accessors", R"([{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3"},
                           {"bufferView":0,"byteOffset":12,"componentType":5126,"count":3,"type":"VEC3"}])");
  const auto meshes = Scene(MakeGlb(json, builder.Binary())).meshes;
  ASSERT_THAT(meshes, SizeIs(1));
  const auto& vertices = meshes[0][0].vertices;
  ASSERT_THAT(vertices, SizeIs(3));
  EXPECT_THAT(vertices[1].position, IsVec3(1.0F, 0.0F, 0.0F));
  EXPECT_THAT(vertices[2].position, IsVec3(1.0F, 1.0F, 0.0F));
  EXPECT_THAT(vertices[2].normal, IsVec3(0.0F, 0.0F, 1.0F));
}

TEST_F(GltfMeshesTest, ComeFromABufferBesideTheFileOrInAUri) {
  builder.Add<float>("VEC3", {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0});
  const std::string meshes = R"("meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}])";
  const std::string uri = "data:;base64,AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAACAPwAAgD8AAAAAAAAAAAAAgD8AAAAA";
  EXPECT_THAT(Scene(ToBytes(builder.Json(meshes, uri))).meshes.at(0).at(0).vertices[2].position,
              IsVec3(1.0F, 1.0F, 0.0F));
  EXPECT_THAT(files.reads, IsEmpty());
  files.Add(u"scenes/Kugel Öl.bin", builder.Binary());
  EXPECT_THAT(Scene(ToBytes(builder.Json(meshes, "Kugel%20%C3%96l.bin"))).meshes, SizeIs(1));
}

}  // namespace
}  // namespace qen::host
