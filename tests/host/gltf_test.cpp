// Reads glTF files made here. What they hold is written as text that leaves out what is usual.
#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "base/recording/fake_files.h"
#include "base/utf.h"
#include "host/scenes/gltf_scenes.h"
#include "tests/host/gltf_builder.h"

namespace qen::host {
namespace {

// "0.5,2", with four digits behind the point.
template <class Values>
std::string Text(const Values& values) {
  std::ostringstream text;
  for (const auto value : values) {
    text << (text.tellp() == 0 ? "" : ",") << std::round(static_cast<float>(value) * 1e4F) / 1e4F + 0.0F;
  }
  return text.str();
}
std::string Text(std::initializer_list<float> values) { return Text(std::span(values)); }
std::string Text(const Vec3& v) { return Text({v.x, v.y, v.z}); }
std::string Text(const base::Quaternion& q) { return Text({q.x, q.y, q.z, q.w}); }

std::string Unusual(const std::string& word, const std::string& value, const std::string& usual) {
  return value == usual ? "" : ' ' + word + ' ' + value;
}

std::string Text(const Light& light) {
  return "light " + std::to_string(light.type) + " color " + Text(light.color) +
         Unusual("range", Text({light.range}), "0") +
         Unusual("cone", Text({light.innerAngle, light.outerAngle}), "0,0.7854");
}

std::string Text(const base::NodeData& node) {
  return base::ToUtf8(node.name) + Unusual("in", std::to_string(node.parent), "-1") +
         Unusual("at", Text(node.pose.translation), "0,0,0") + Unusual("turned", Text(node.pose.rotation), "0,0,0,1") +
         Unusual("sized", Text(node.pose.scale), "1,1,1") + Unusual("mesh", std::to_string(node.mesh), "-1") +
         Unusual("camera", node.camera ? Text(*node.camera) : "", "") + (node.light ? ' ' + Text(*node.light) : "");
}

std::string Text(const std::vector<base::SubMeshData>& mesh) {
  std::string text;
  for (const base::SubMeshData& subMesh : mesh) {
    if (!text.empty()) text += " and ";
    for (const base::Vertex& vertex : subMesh.vertices) {
      text += '(' + Text(vertex.position) + Unusual("normal", Text(vertex.normal), "0,0,1") +
              Unusual("uv", Text({vertex.u, vertex.v}), "0,0") + Unusual("uv2", Text({vertex.u2, vertex.v2}), "0,0") +
              Unusual("color", Text(vertex.color), "255,255,255,255") + ')';
    }
    text += Unusual("of", Text(subMesh.indices), "") + Unusual("material", std::to_string(subMesh.material), "-1");
  }
  return text;
}

std::string Text(const base::MaterialData& material) {
  const MaterialParams& params = material.params;
  std::string text = "material" + Unusual("color", Text(params.baseColor), "1,1,1,1") +
                     Unusual("emissive", Text(params.emissive), "0,0,0") +
                     Unusual("surface", Text({params.metallic, params.roughness}), "1,1") +
                     Unusual("bumps", Text({params.normalScale}), "1") +
                     Unusual("occlusion", Text({params.occlusionStrength}), "1") +
                     Unusual("alpha", std::to_string(static_cast<int>(params.alphaMode)), "0") +
                     Unusual("cutoff", Text({params.alphaCutoff}), "0.5") +
                     (params.doubleSided ? " double sided" : "") + (params.unlit ? " unlit" : "");
  for (std::size_t slot = 0; slot < material.images.size(); ++slot) {
    const TexturePlacement& placement = params.placements[slot];
    const std::string word = "slot " + std::to_string(slot);
    text += Unusual(word, std::to_string(material.images[slot]), "-1") +
            Unusual("placed", Text(placement.x) + ' ' + Text(placement.y), "1,0,0 0,1,0") +
            Unusual("by set", std::to_string(placement.uvSet), "0");
  }
  return text;
}

std::string Text(const base::Image& image) {
  return "image " + std::to_string(image.width) + 'x' + std::to_string(image.height) + ' ' + Text(image.rgba) +
         (image.isLinear ? " of numbers" : "");
}

template <class T>
std::string Text(const base::Track<T>& track) {
  std::string text = Text(track.times);
  for (const T& value : track.values) text += ' ' + Text(value);
  return text.empty() ? "" : text + " by " + std::to_string(static_cast<int>(track.interpolation));
}

std::string Text(const base::NodeTracks& tracks) {
  return base::ToUtf8(tracks.node) + Unusual("at", Text(tracks.translation), "") +
         Unusual("turned", Text(tracks.rotation), "") + Unusual("sized", Text(tracks.scale), "");
}

template <class Parts>
void Append(std::string& text, const Parts& parts) {
  for (const auto& part : parts) text += (text.empty() ? "" : "; ") + Text(part);
}

struct Row {
  std::string members;  // of a file
  std::string text;     // of what it holds, or why it is refused
};

// A table in which "members => text" may begin with lines that have no arrow. The members stand for "$" in the frame.
std::vector<Row> Rows(const std::string& frame, const char* table) {
  std::vector<Row> rows;
  std::string members;
  std::istringstream lines(table);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t arrow = line.find(" => ");
    members += line.substr(0, arrow);
    if (arrow == std::string::npos) continue;
    rows.push_back({std::string(frame).replace(frame.find('$'), 1, members), line.substr(arrow + 4)});
    members.clear();
  }
  return rows;
}

class GltfTest : public ::testing::Test {
 protected:
  // What a scene file holds or why it is refused, and the warnings.
  std::string Scene(const Bytes& file) {
    warnings.clear();
    String error;
    const auto scene = scenes.ParseScene(u"scenes\\test.gltf", file, true, error);
    std::string text = base::ToUtf8(error);
    if (scene) {
      Append(text, scene->nodes);
      Append(text, scene->meshes);
      Append(text, scene->materials);
      Append(text, scene->images);
      if (scene->ambient) text += "; ambient " + Text(*scene->ambient);
      for (const String& what : scene->undrawn) text += "; not drawn: " + base::ToUtf8(what);
    }
    return (text.empty() ? "nothing" : text) + warnings;
  }
  void CheckScenes(const std::string& frame, const char* table) {
    for (const Row& row : Rows(frame, table)) EXPECT_EQ(Scene(MakeGlb(row.members)), row.text) << row.members;
  }

  std::string Animation(const std::string& members) {
    String error;
    const auto animation = scenes.ParseAnimation(u"anims\\test.glb", MakeGlb(members), error);
    if (!animation) return base::ToUtf8(error);
    std::string text = Text({animation->seconds}) + " s";
    Append(text, animation->nodes);
    return text;
  }

  base::FakeFiles files;
  std::string warnings;
  GltfScenes scenes{files, [this](StringView line) { warnings += "; warning: " + base::ToUtf8(line); }};
};

TEST_F(GltfTest, ReadsTheNodesOfTheScene) {
  CheckScenes(R"("nodes":[{"name":"c"},{"name":"a","children":[3,0]},{"name":"d"},{"name":"b"},{"name":"Über 灯"}],$)",
              R"(
"scene":1,"scenes":[{"nodes":[4]},{"nodes":[2,1]}] => d; a; b in 1; c in 1
"scenes":[{"nodes":[4]},{"nodes":[1,2]}] => Über 灯
"scenes":[] => a; b in 0; c in 0; d; Über 灯
"nodes":[{"children":[1]},{}] => node 0; node 1 in 0)");
  std::string deep = R"("scenes":[{"nodes":[0]}],"nodes":[)";
  for (int i = 1; i < 100'000; ++i) deep += R"({"children":[)" + std::to_string(i) + "]},";
  const std::string text = Scene(MakeGlb(deep + "{}]"));
  EXPECT_EQ(text.substr(text.rfind(';')), "; node 99999 in 99998");
}

TEST_F(GltfTest, ReadsPlacesAndCameras) {
  CheckScenes(R"("nodes":[{"name":"n",$}])", R"(
"translation":[1,2.5,-3],"rotation":[0.6,0,0,0.8],"scale":[2,3,4] => n at 1,2.5,-3 turned 0.6,0,0,0.8 sized 2,3,4
"matrix":[0.2928,0.864,-0.4096,0,0.928,-0.36,-0.096,0,-0.2304,-0.352,-0.9072,0,0,0,0,1] => n turned 0.8,0.56,-0.2,0.08
"matrix":[-0.36,0.928,-0.096,0,0.864,0.2928,-0.4096,0,-0.352,-0.2304,-0.9072,0,0,0,0,1] => n turned 0.56,0.8,-0.2,-0.08
"matrix":[0.9072,-0.096,0.4096,0,-0.352,0.36,0.864,0,-0.2304,-0.928,0.2928,0,0,0,0,1] => n turned 0.56,-0.2,0.08,0.8
"matrix":[0,2,0,0,-3,0,0,0,0,0,4,0,5,6,7,1] => n at 5,6,7 turned 0,0,0.7071,0.7071 sized 2,3,4
"matrix":[-1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1] => n sized -1,1,1
"matrix":[0,0,0,0,0,0,0,0,0,0,0,0,1,2,3,1] => n at 1,2,3 sized 0,0,0)");
  CheckScenes(R"("nodes":[{"camera":0},{}],"cameras":[{"perspective":{$}}])", R"(
"yfov":0.5,"znear":0.25,"zfar":100 => node 0 camera 0.5,0.25,100; node 1
"yfov":0.5,"znear":0.25 => node 0 camera 0.5,0.25,80000; node 1
}},{"perspective":{ => a camera has wrong values
"yfov":1,"znear":1,"zfar":1 => a camera has wrong values)");
  EXPECT_EQ(Scene(MakeGlb(R"("nodes":[{"camera":0}],"cameras":[{"orthographic":{}}])")), "node 0");
}

TEST_F(GltfTest, ReadsMeshes) {
  const std::string square = R"({"attributes":{
      "POSITION":<byte3 0 0 0 1 0 0 1 1 0 -1 1 0>,"NORMAL":<float3 0 0 1 0 0 1 0 0 1 0 0 1>)";
  CheckScenes(R"("meshes":[{"primitives":[)" + square + "$}]}]", R"(
}},{"attributes":{"POSITION":0,"NORMAL":1}
 => (0,0,0)(1,0,0)(1,1,0)(-1,1,0) of 0,1,2 and (0,0,0)(1,0,0)(1,1,0)(-1,1,0) of 0,1,2
},"mode":5 => (0,0,0)(1,0,0)(1,1,0)(-1,1,0) of 0,1,2,2,1,3
},"mode":6 => (0,0,0)(1,0,0)(1,1,0)(-1,1,0) of 0,1,2,0,2,3
},"indices":<ubyte1 0 1 2 2 3 0> => (0,0,0)(1,0,0)(1,1,0)(-1,1,0) of 0,1,2,2,3,0
},"mode":5,"indices":<uint1 0 1 3 2 0> => (0,0,0)(1,0,0)(1,1,0)(-1,1,0) of 0,1,3,3,1,2,3,2,0
},"mode":0},{"mode":1 => ; not drawn: points or lines
,"TEXCOORD_0":<float2 1.5 -0.25 0 0 0 0 0 0>} => (0,0,0 uv 1.5,-0.25)(1,0,0)(1,1,0)(-1,1,0) of 0,1,2
,"TEXCOORD_0":<ubyte2n 51 255 0 0 0 0 0 0>} => (0,0,0 uv 0.2,1)(1,0,0)(1,1,0)(-1,1,0) of 0,1,2
,"TEXCOORD_1":<float2 0.5 2 0 0 0 0 0 0>} => (0,0,0 uv2 0.5,2)(1,0,0)(1,1,0)(-1,1,0) of 0,1,2
,"COLOR_0":<float3 0.2 2 -1 1 1 1 1 1 1 1 1 1>} => (0,0,0 color 51,255,0,255)(1,0,0)(1,1,0)(-1,1,0) of 0,1,2
,"COLOR_0":<ubyte4n 1 2 3 4 255 255 255 255 255 255 255 255 255 255 255 255>}
 => (0,0,0 color 1,2,3,4)(1,0,0)(1,1,0)(-1,1,0) of 0,1,2
,"NORMAL":<byte3 0 0 0>} => NORMAL does not have a value a vertex
,"COLOR_0":<byte2 0 0 0 0 0 0 0 0>} => COLOR_0 has elements of the wrong kind
},"indices":<ubyte1 0 1 4> => an index is that of no vertex
},"indices":<byte1 0 1 2> => accessor 2 has no unsigned integers
},"material":0 => there is no element 0 of "materials"
},"mode":7 => there is no primitive mode 7)");
  CheckScenes(R"("meshes":[{"primitives":[{"attributes":{$}]}],"materials":[{},{}])", R"(
"POSITION":<short3n 32767 -32768 0 1 0 0 0 0 0>,"NORMAL":<byte3n 0 127 0 0 -128 0 0 0 127>},"material":1
 => (1,-1,0 normal 0,1,0)(0,0,0 normal 0,-1,0)(0,0,0) of 0,1,2 material 1; material; material
"POSITION":<float3 0 0 0 1 0 0 0 1 0 0 0 1>},"indices":<ubyte1 0 1 2 0 2 3>
 => (0,0,0)(1,0,0)(0,1,0)(0,0,0 normal 1,0,0)(0,1,0 normal 1,0,0)(0,0,1 normal 1,0,0) of 0,1,2,3,4,5; material; material
"POSITION":<float3 nan 0 0>} => a value is not a number
} => a primitive has no positions)");
}

// The positions of a mesh lie in a buffer of 36 bytes.
TEST_F(GltfTest, FindsNumbersInBuffers) {
  const std::string mesh =
      R"("extras":<float3 0 0 0 1 0 0 0 1 0>,"meshes":[{"primitives":[{"attributes":{"POSITION":0,"NORMAL":0}}]}],)";
  CheckScenes(mesh + R"("bufferViews":[{"buffer":0,"byteLength":36}],"accessors":[{$}])", R"(
"bufferView":0,"componentType":5126,"byteOffset":12,"count":2,"type":"VEC3" => (1,0,0 normal 1,0,0)(0,1,0 normal 0,1,0)
"bufferView":0,"componentType":5126,"count":4,"type":"VEC3" => accessor 0 does not fit its buffer view
"bufferView":0,"componentType":5126,"byteOffset":4,"count":3,"type":"VEC3" => accessor 0 does not fit its buffer view
"bufferView":0,"componentType":5126,"byteOffset":37,"count":0,"type":"VEC3" => accessor 0 does not fit its buffer view
"bufferView":0,"componentType":5126,"count":9999999999999999999,"type":"VEC3" => accessor 0 does not fit its buffer view
"bufferView":0,"componentType":5126,"count":-1,"type":"VEC3" => "count" has a wrong value
"bufferView":0,"componentType":5126,"sparse":{},"count":3,"type":"VEC3" => accessor 0 is sparse
"bufferView":0,"componentType":5126,"count":1,"type":"VEC2" => accessor 0 has elements of the wrong kind
"bufferView":0,"componentType":5126,"count":1,"type":"MAT3" => accessor 0 has elements of an unknown kind
"bufferView":0,"componentType":5130,"count":1,"type":"VEC3" => there is no component type 5130)");
  CheckScenes(
      mesh + R"("bufferViews":[{$}],"accessors":[{"bufferView":0,"componentType":5126,"count":2,"type":"VEC3"}])", R"(
"buffer":0,"byteLength":36,"byteStride":24 => (0,0,0 normal 0,0,0)(0,1,0 normal 0,1,0)
"buffer":0,"byteLength":36,"byteStride":25 => accessor 0 does not fit its buffer view
"buffer":0,"byteLength":36,"byteStride":11 => accessor 0 does not fit its buffer view
"buffer":0,"byteOffset":12,"byteLength":24 => (1,0,0 normal 1,0,0)(0,1,0 normal 0,1,0)
"buffer":0,"byteOffset":13,"byteLength":24 => buffer view 0 is too long
"buffer":0,"byteOffset":18446744073709551600,"byteLength":24 => buffer view 0 is too long
"buffer":1,"byteLength":36 => there is no buffer 1)");
  files.Add(u"scenes\\Kugel Öl%x.bin", Bytes(4));
  CheckScenes(R"("nodes":[{}],"buffers":[{"byteLength":4,"uri":"$"}])", R"(
Kugel%20%C3%96l%x.bin => node 0
a\nb.bin => cannot read a?b.bin
data:;base64,AAAAAA== => node 0
data:;base64,AAAAA*== => a data URI cannot be decoded
data:,AAAAAA => a data URI cannot be decoded
data:;base64,AAAA => a buffer is shorter than it should be)");
}

TEST_F(GltfTest, ReadsMaterials) {
  CheckScenes(R"("materials":[{$}])", R"(
}, {"alphaMode":"BLEND" => material; material alpha 2
"alphaMode":"MASK","alphaCutoff":0.25,"doubleSided":true,"emissiveFactor":[0.5,0.25,1],
"extensions":{"KHR_materials_emissive_strength":{"emissiveStrength":4}},
"pbrMetallicRoughness":{"baseColorFactor":[0.1,0.2,0.3,0.4],"metallicFactor":0.5,"roughnessFactor":0.75}
 => material color 0.1,0.2,0.3,0.4 emissive 2,1,4 surface 0.5,0.75 alpha 1 cutoff 0.25 double sided
"extensions":{"KHR_materials_unlit":{}},"emissiveFactor":[1,1,1],
"pbrMetallicRoughness":{"baseColorFactor":[0.5,0.5,0.5,1],"metallicFactor":1,"roughnessFactor":0}
 => material color 0.5,0.5,0.5,1 surface 1,0 unlit)");
  // A red pixel and a half transparent blue one, and another picture.
  files.Add(u"scenes\\Glow.tga", {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 1, 0, 24, 32, 3, 2, 1});
  const std::string textures = R"("textures":[{"source":1},{"source":0},{}],"materials":[
      {"pbrMetallicRoughness":{"baseColorTexture":{"index":1}},"emissiveTexture":{"index":0}},
      {"pbrMetallicRoughness":{"baseColorTexture":{"index":1}},"emissiveTexture":{"index":2}}],"images":[$])";
  CheckScenes(textures,
              R"(
{"bufferView":<ubyte1 0 0 2 0 0 0 0 0 0 0 0 0 2 0 1 0 32 40 0 0 255 255 255 0 0 128>},{"uri":"Glow.tga"}
 => material slot 0 1 slot 1 0; material slot 1 0; image 2x1 255,0,0,255,0,0,255,128; image 1x1 1,2,3,255
{"uri":"a\nb.png"},{"uri":"data:image/png;base64,AAAA"} => material; material)"
              "; warning: scenes\\test.gltf: image 0: cannot read a?b.png"
              "; warning: scenes\\test.gltf: image 1: not a picture");
}

TEST_F(GltfTest, ReadsTexturesOfNumbersAndTheirPlaces) {
  const std::string pixel = R"({"bufferView":<ubyte1 0 0 2 0 0 0 0 0 0 0 0 0 1 0 1 0 24 32 3 2 1>})";
  CheckScenes(R"("images":[)" + pixel + R"(],"textures":[{"source":0}],"materials":[{$}])", R"(
"normalTexture":{"index":0,"scale":0.5,"texCoord":1},"occlusionTexture":{"index":0,"strength":0.25},
"pbrMetallicRoughness":{"metallicRoughnessTexture":{"index":0,"texCoord":2}}
 => material bumps 0.5 occlusion 0.25 slot 2 0 by set 1 slot 3 0 slot 4 0; image 1x1 1,2,3,255 of numbers
"normalTexture":{"index":0},"emissiveTexture":{"index":0,"texCoord":1,"extensions":{"KHR_texture_transform":{
"offset":[3,4],"rotation":0.5235987756,"scale":[2,10],"texCoord":0}}}
 => material slot 0 0 placed 1.7321,5,3 -1,8.6603,4 slot 2 1; image 1x1 1,2,3,255; image 1x1 1,2,3,255 of numbers
"normalTexture":{} => "index" is missing)");
}

TEST_F(GltfTest, ReadsLightsAndSaysWhatIsNotDrawn) {
  CheckScenes(R"("scenes":[{"nodes":[0]$)", R"(
,"extras":{"ambient":[0.5,0,2]}}],"nodes":[{}] => node 0; ambient 0.5,0,2
,"extras":[1]}],"nodes":[{}] => node 0
,"extras":{"ambient":[1]}}],"nodes":[{}] => "ambient" has a wrong value
}],"nodes":[{"skin":0,"mesh":0}],"extensionsUsed":["KHR_texture_transform","KHR_materials_clearcoat"],
"meshes":[{"primitives":[{"mode":1,"targets":[{}]}]}]
 => node 0 mesh 0; ; not drawn: skins; not drawn: morph targets; not drawn: points or lines; not drawn: the extension KHR_materials_clearcoat)");
  CheckScenes(R"("nodes":[{"extensions":{"KHR_lights_punctual":{"light":0}}}],
      "extensions":{"KHR_lights_punctual":{"lights":[{$}]}})",
              R"(
"type":"directional","intensity":1366,"color":[1,0.5,0] => node 0 light 3 color 2,1,0
"type":"point","intensity":683,"range":5 => node 0 light 1 color 1,1,1 range 5
"type":"spot","intensity":683,"spot":{"innerConeAngle":0.1,"outerConeAngle":0.2} => node 0 light 2 color 1,1,1 cone 0.1,0.2
"type":"spot","intensity":683,"spot":{"innerConeAngle":9,"outerConeAngle":9} => node 0 light 2 color 1,1,1 cone 1.5708,1.5708
"type":"tube" => node 0
}],"lights":[],"":[{ => there is no light 0)");
}

TEST_F(GltfTest, ReadsAnimations) {
  const auto check = [this](const std::string& frame, const char* table) {
    const std::string nodes = R"("nodes":[{"name":"door"},{"name":"lid"}],"animations":[{)";
    for (const Row& row : Rows(nodes + frame + "}]", table)) EXPECT_EQ(Animation(row.members), row.text) << row.members;
  };
  check(R"("samplers":[{$"}}])", R"(
"input":<float1 0.5 2>,"output":<float3 1 2 3 4 5 6>,"interpolation":"STEP"}],"channels":[
{"sampler":0,"target":{"node":1,"path":"translation => 2 s; lid at 0.5,2 1,2,3 4,5,6 by 0
"input":<float1 0>,"output":<ushort4n 0 0 65535 0>}],"channels":[
{"sampler":0,"target":{"node":1,"path":"rotation => 0 s; lid turned 0 0,0,1,0 by 1
"input":<float1 0>,"output":<float1 1>}],"channels":[{"sampler":0,"target":{"node":1,"path":"weights => 0 s; lid
}],"channels":[{},{"sampler":0,"target":{"path":"scale => 0 s
}],"channels":[{"sampler":0,"target":{"node":2,"path":"scale => there is no element 2 of "nodes"
}],"channels":[{"sampler":1,"target":{"node":0,"path":"scale => there is no sampler 1)");
  check(R"("channels":[{"sampler":0,"target":{"node":1,"path":"scale"}}],"samplers":[{$}])", R"(
"input":<float1 1>,"output":<byte3 9 9 9 2 2 2 8 8 8>,"interpolation":"CUBICSPLINE"
 => 1 s; lid sized 1 9,9,9 2,2,2 8,8,8 by 2
"input":<float1 0 3>,"output":<byte3 1 1 1 1 1 1>}]},{"samplers":[{"input":<float1 0 1>,"output":<byte3 2 2 2 2 2 2>}],
"channels":[{"sampler":0,"target":{"node":1,"path":"scale"}},{"sampler":0,"target":{"node":0,"path":"scale"}
 => 3 s; door sized 0,1 2,2,2 2,2,2 by 1; lid sized 0,3 1,1,1 1,1,1 by 1
"input":<float1 1 1>,"output":<byte3 1 1 1 2 2 2> => the times of an animation do not grow
"input":<float1 0 1>,"output":<byte3 1 1 1> => an animation does not have a value a key
"input":<float1 0>,"output":<byte3 1 1 1>,"interpolation":"CUBICSPLINE" => an animation does not have a value a key)");
}

TEST_F(GltfTest, SaysWhatIsWrong) {
  CheckScenes("$", R"(
"asset":{"version":"1.0"} => not a glTF 2.0 file
"asset":0 => "version" is looked for in something else than an object
"extensionsRequired":["KHR_materials_unlit","KHR_materials_emissive_strength","KHR_mesh_quantization"] => nothing
"extensionsRequired":["KHR_draco_mesh_compression"] => it requires the extension KHR_draco_mesh_compression
"scenes":[{"nodes":[0]}],"nodes":[{"children":[1]},{"children":[0]}] => node 0 has two parents
"nodes":[{"children":[7]}] => there is no element 7 of "nodes"
"scenes":[{"nodes":[-1]}],"nodes":[{}] => a node is named by something else than its position
"scene":1,"scenes":[{}] => there is no element 1 of "scenes"
"nodes":[{"translation":["a",0,0]}] => "translation" has a wrong value
"nodes":[{"translation":[1,2]}] => "translation" has a wrong value
"nodes":[{"translation":[1e300,0,0]}] => "translation" has a wrong value
"nodes":{"a":1} => "nodes" has a wrong value)");
}

TEST_F(GltfTest, AFewBytesCannotFillTheMemory) {
  constexpr std::size_t kDepth = 1'000'000;
  const std::string deep = std::string(kDepth, '[') + std::string(kDepth, ']');
  EXPECT_EQ(Scene(ToBytes(R"({"extras":)" + deep + '}')), "not a glTF 2.0 file");
  std::string primitives;  // each of them has the same hundred thousand vertices
  for (int i = 0; i < 100; ++i) primitives += R"({"attributes":{"POSITION":0}},)";
  EXPECT_EQ(Scene(MakeGlb(R"("buffers":[{"byteLength":300000,"uri":"data:;base64,)" + std::string(400'000, 'A') +
                          R"("}],"bufferViews":[{"buffer":0,"byteLength":300000}],"accessors":[
      {"bufferView":0,"componentType":5120,"count":100000,"type":"VEC3"}],"meshes":[{"primitives":[)" +
                          primitives + "{}]}]")),
            "it has too many values");
}

TEST_F(GltfTest, RefusesWhatIsNoWholeFile) {
  EXPECT_EQ(Scene(ToBytes("solid cube")), "its JSON is not well-formed");
  const Bytes whole = MakeGlb(R"("meshes":[{"primitives":[{"attributes":{"POSITION":<byte3 0 0 0 1 0 0 0 1 0>}}]}])");
  EXPECT_EQ(Scene(whole), "(0,0,0)(1,0,0)(0,1,0) of 0,1,2");
  for (std::size_t length = 4; length < whole.size(); ++length) {
    // Storage of exactly that size, so that reading past it is noticed.
    EXPECT_EQ(Scene(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length))), "the file is cut off");
  }
  const std::size_t binary = 20 + whole[12] + 256U * whole[13];  // where the second chunk begins
  const struct {
    std::size_t at;
    std::uint8_t byte;
    const char* text;
  } changes[] = {{4, 1, "not a binary glTF 2.0 file"},
                 {8, 11, "the file is cut off"},
                 {16, 'X', "its first chunk is no JSON"},
                 {binary + 3, 0x7F, "the file is cut off"},
                 {binary + 4, 'X', "a buffer is shorter than it should be"}};
  for (const auto& change : changes) {
    Bytes changed = whole;
    changed[change.at] = change.byte;
    EXPECT_EQ(Scene(changed), change.text) << change.at;
  }
}

}  // namespace
}  // namespace qen::host
