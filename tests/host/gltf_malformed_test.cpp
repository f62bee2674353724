#include <limits>

#include "tests/host/gltf_test.h"

namespace qen::host {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// A triangle with a material, a picture, an animation and a camera.
Bytes SmallScene(GltfBuilder& builder) {
  builder.Add<float>("VEC3", {0, 0, 0, 1, 0, 0, 0, 1, 0});
  builder.Add<std::uint8_t>("SCALAR", {0, 1, 2, 0});
  builder.Add<float>("SCALAR", {0.0F, 1.0F});
  builder.Add<float>("VEC3", {0, 0, 0, 1, 1, 1});
  const auto view = builder.AddView(MakePicture());
  return builder.Glb(R"("scenes":[{"nodes":[0]}],"nodes":[{"name":"n","mesh":0,"children":[1]},{"camera":0}],
      "cameras":[{"perspective":{"yfov":1,"znear":1}}],
      "meshes":[{"primitives":[{"attributes":{"POSITION":0},"indices":1,"material":0}]}],
      "materials":[{"pbrMetallicRoughness":{"baseColorTexture":{"index":0}}}],"textures":[{"source":0}],
      "images":[{"bufferView":)" +
                     std::to_string(view) + R"(}],
      "animations":[{"samplers":[{"input":2,"output":3}],"channels":[{"sampler":0,"target":{"node":0,"path":"scale"}}]}])");
}

using GltfMalformedTest = GltfTest;

TEST_F(GltfMalformedTest, EveryBeginningOfAFileIsRefused) {
  const Bytes whole = SmallScene(builder);
  ASSERT_EQ(Scene(whole).images.size(), 1U);
  for (std::size_t length = 0; length < whole.size(); ++length) {
    // Storage of exactly that size, so that reading past it is noticed.
    const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    EXPECT_THAT(WhyRefused(part), Not(IsEmpty())) << length << " bytes";
  }
}

TEST_F(GltfMalformedTest, ChunksMustLieInTheFile) {
  const Bytes whole = SmallScene(builder);
  constexpr std::size_t kFirstChunk = 12;
  const std::size_t textLength = whole[kFirstChunk] + 256U * whole[kFirstChunk + 1];
  for (const std::size_t chunk : {kFirstChunk, kFirstChunk + 8 + textLength}) {
    Bytes changed = whole;
    changed[chunk + 3] = 0x7F;  // the highest byte of its length
    EXPECT_THAT(WhyRefused(changed), HasSubstr("cut off")) << "chunk at " << chunk;
  }
}

TEST_F(GltfMalformedTest, NoChangedByteDoesHarm) {
  const Bytes whole = SmallScene(builder);
  for (std::size_t i = 0; i < whole.size(); ++i) {
    for (const int change : {0x01, 0x10, 0x80, 0xFF}) {
      Bytes changed = whole;
      changed[i] = static_cast<std::uint8_t>(changed[i] ^ change);
      const auto scene = scenes.ParseScene(u"test.glb", changed, true, error);
      if (!scene) continue;
      for (const auto& mesh : scene->meshes) {
        for (const base::SubMeshData& subMesh : mesh) {
          for (const std::uint32_t index : subMesh.indices) ASSERT_LT(index, subMesh.vertices.size()) << "byte " << i;
        }
      }
    }
  }
}

// Members of a file whose one mesh has these positions.
#define POSITIONS(views, accessor) \
  R"("meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}],"bufferViews":[)" views R"(],"accessors":[)" accessor "]"
#define ACCESSOR(members) R"({"bufferView":0,"componentType":5126,)" members "}"
#define ONE R"("count":1,"type":"VEC3")"
#define VIEW R"({"buffer":0,"byteLength":36})"

struct Wrong {
  const char* members;  // of the file
  const char* reason;   // part of the message
};

constexpr Wrong kWrong[] = {
    {R"("scenes":[{"nodes":[0]}],"nodes":[{"children":[1]},{"children":[0]}])", "two parents"},
    {R"("nodes":[{"children":[2]},{"children":[2]},{}])", "two parents"},
    {R"("nodes":[{"children":[7]}])", "no element 7 of \"nodes\""},
    {R"("scenes":[{"nodes":[-1]}],"nodes":[{}])", "something else than its position"},
    {R"("scene":3,"scenes":[{}])", "no element 3 of \"scenes\""},
    {R"("nodes":[{"camera":1}],"cameras":[{}])", "no element 1 of \"cameras\""},
    {R"("nodes":[{"camera":0}],"cameras":[{"perspective":{"yfov":0,"znear":1}}])", "camera"},
    {R"("nodes":[{"translation":["a",0,0]}])", "\"translation\" has a wrong value"},
    {R"("nodes":[{"translation":[1,2]}])", "\"translation\" has a wrong value"},
    {R"("nodes":[{"translation":[1e300,0,0]}])", "\"translation\" has a wrong value"},
    {R"("nodes":{"a":1})", "\"nodes\" has a wrong value"},
    {R"("nodes":[5])", "something else than an object"},
    {R"("nodes":[{"name":5}])", "\"name\" has a wrong value"},
    {R"("meshes":[{"primitives":[{"attributes":{}}]}])", "no positions"},
    {R"("meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}])", "no element 0 of \"accessors\""},
    {R"("meshes":[{"primitives":[{"mode":7,"attributes":{}}]}])", "mode 7"},
    {POSITIONS(VIEW, ACCESSOR(R"("count":4,"type":"VEC3")")), "does not fit"},
    {POSITIONS(VIEW, ACCESSOR(R"("count":18446744073709551615,"type":"VEC3")")), "does not fit"},
    {POSITIONS(VIEW, ACCESSOR(R"("count":-1,"type":"VEC3")")), "count"},
    {POSITIONS(VIEW, ACCESSOR(R"("type":"VEC3")")), "\"count\" is missing"},
    {POSITIONS(VIEW, ACCESSOR(R"("byteOffset":99,)" ONE)), "does not fit"},
    {POSITIONS(VIEW, ACCESSOR(R"("byteOffset":18446744073709551600,)" ONE)), "does not fit"},
    {POSITIONS(R"({"buffer":0,"byteOffset":30,"byteLength":36})", ACCESSOR(ONE)), "buffer view 0 is too long"},
    {POSITIONS(R"({"buffer":0,"byteOffset":18446744073709551600,"byteLength":36})", ACCESSOR(ONE)),
     "buffer view 0 is too long"},
    {POSITIONS(R"({"buffer":1,"byteLength":36})", ACCESSOR(ONE)), "no buffer 1"},
    {POSITIONS(R"({"buffer":0,"byteLength":36,"byteStride":4})", ACCESSOR(R"("count":3,"type":"VEC3")")),
     "does not fit"},
    {POSITIONS(R"({"buffer":0,"byteLength":36,"byteStride":18446744073709551615})",
               ACCESSOR(R"("count":3,"type":"VEC3")")),
     "does not fit"},
    {POSITIONS("", R"({"componentType":5126,"count":1,"type":"VEC3"})"), "\"bufferView\" is missing"},
    {POSITIONS(VIEW, ACCESSOR(R"("count":1,"type":"VEC3","sparse":{})")), "is sparse"},
    {POSITIONS(VIEW, ACCESSOR(R"("count":1,"type":"VEC2")")), "the wrong kind"},
    {POSITIONS(VIEW, ACCESSOR(R"("count":1,"type":"MAT3")")), "unknown kind"},
    {POSITIONS(VIEW, R"({"bufferView":0,"componentType":5130,"count":1,"type":"VEC3"})"), "component type 5130"},
    {R"("extensionsRequired":["KHR_draco_mesh_compression"])", "KHR_draco_mesh_compression"},
    {R"("images":[],"buffers":[{"uri":"a\nb.bin","byteLength":4}])", "cannot read a?b.bin"},
    {R"("buffers":[{"uri":"data:;base64,A*A=","byteLength":1}])", "data URI"},
    {R"("buffers":[{"uri":"data:;base64,AAAA","byteLength":4}])", "shorter"},
};

TEST_F(GltfMalformedTest, WrongMembersAreRefusedWithAReason) {
  for (const Wrong& wrong : kWrong) {
    const std::string reason = WhyRefused(MakeGlb(
        R"({"asset":{"version":"2.0"},"buffers":[{"byteLength":40}],)" + std::string(wrong.members) + '}', Bytes(40)));
    EXPECT_THAT(reason, HasSubstr(wrong.reason)) << wrong.members;
    EXPECT_THAT(reason, Not(HasSubstr("\n"))) << wrong.members;
  }
}

TEST_F(GltfMalformedTest, WhatIsNoGltfIsRefused) {
  EXPECT_THAT(WhyRefused({}), HasSubstr("JSON"));
  EXPECT_THAT(WhyRefused(ToBytes("solid cube")), HasSubstr("JSON"));
  EXPECT_THAT(WhyRefused(ToBytes("[]")), Not(IsEmpty()));
  EXPECT_THAT(WhyRefused(ToBytes("{}")), HasSubstr("not a glTF 2.0 file"));
  EXPECT_THAT(WhyRefused(ToBytes(R"({"asset":{"version":"1.0"}})")), HasSubstr("not a glTF 2.0 file"));
}

TEST_F(GltfMalformedTest, DeepJsonIsNoDanger) {
  constexpr std::size_t kDepth = 1'000'000;
  const std::string deep = std::string(kDepth, '[') + std::string(kDepth, ']');
  EXPECT_THAT(WhyRefused(ToBytes(R"({"extras":)" + deep + '}')), HasSubstr("not a glTF 2.0 file"));
}

TEST_F(GltfMalformedTest, AFewBytesCannotFillTheMemory) {
  // Each of many primitives reads the same vertices.
  constexpr int kPrimitives = 3000;
  const Bytes zeros(1'200'000);
  builder.AddView(zeros);
  std::string json = builder.Json(R"("meshes":[{"primitives":[)");
  json.resize(json.size() - 1);
  for (int i = 0; i < kPrimitives; ++i) json += std::string(i == 0 ? "" : ",") + R"({"attributes":{"POSITION":0}})";
  json += "]}]}";
  const std::string noAccessors = R"("accessors":[])";
  json.replace(json.find(noAccessors), noAccessors.size(),
               R"("accessors":[{"bufferView":0,"componentType":5126,"count":100000,"type":"VEC3"}])");
  EXPECT_THAT(WhyRefused(MakeGlb(json, builder.Binary())), HasSubstr("too many values"));
}

TEST_F(GltfMalformedTest, IndicesMustBeThoseOfVertices) {
  builder.Add<float>("VEC3", {0, 0, 0, 1, 0, 0, 0, 1, 0});
  builder.Add<std::uint8_t>("SCALAR", {0, 1, 3});
  builder.Add<float>("SCALAR", {0, 1, 2});
  const auto with = [&](int indices) {
    return WhyRefused(builder.Glb(R"("meshes":[{"primitives":[{"attributes":{"POSITION":0},"indices":)" +
                                  std::to_string(indices) + "}]}]"));
  };
  EXPECT_THAT(with(1), HasSubstr("that of no vertex"));
  EXPECT_THAT(with(2), HasSubstr("no unsigned integers"));
}

TEST_F(GltfMalformedTest, ValuesMustBeNumbers) {
  builder.Add<float>("VEC3", {0, 0, 0, 1, std::numeric_limits<float>::quiet_NaN(), 0, 0, 1, 0});
  EXPECT_THAT(WhyRefused(builder.Glb(R"("meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}])")),
              HasSubstr("not a number"));
}

}  // namespace
}  // namespace qen::host
