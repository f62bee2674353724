#include "tests/host/guihost_run.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

#include "host/scenes/image_decoder.h"
#include "tests/host/gltf_builder.h"

namespace qen::host {

std::string MakeEmptyScene() {
  return GltfBuilder().Json(R"("scenes":[{"nodes":[0]}],"nodes":[{"name":"~bBack","children":[1]},{"name":"normal"}])");
}

std::string MakeSquares(const std::string& nodes) {
  GltfBuilder scene;
  scene.Add<float>("VEC3", {-30, -30, 0, 30, -30, 0, 30, 30, 0, -30, 30, 0});
  scene.Add<float>("VEC3", {0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1});
  scene.Add<std::uint8_t>("SCALAR", {0, 1, 2, 0, 2, 3});
  const Bytes glb = scene.Glb("\"nodes\":[" + nodes + R"(],
      "meshes":[{"primitives":[{"attributes":{"POSITION":0,"NORMAL":1},"indices":2,"material":0}]}],
      "materials":[{"pbrMetallicRoughness":{"baseColorFactor":[1,0,0,1],"metallicFactor":0}}])");
  return {glb.begin(), glb.end()};
}

GuihostTest::GuihostTest() {
  folder.Write("Gui.txt", "lang lang.txt\nname pages\\first.txt\nname pages\\second.txt\n");
  folder.Write("Lang.txt", "lang english { str1 One }\nlang german { str1 Eins }\n");
  folder.Write("Empty.txt", "lang lang.txt\n");
  folder.Write("Pages/First.txt", "name scenes\\first.glb\n");
  folder.Write("Pages/Second.txt", "name scenes\\second.glb\n");
  folder.Write("Scenes/First.glb", MakeSquares(R"({"name":"~bSquare","children":[1]},{"name":"normal","mesh":0})"));
  folder.Write("Scenes/Second.glb", MakeEmptyScene());
}

int GuihostTest::Run(const std::string& arguments) {
  const std::string inFolder = "cd '" + folder.Path().string() + "' && ";
  const std::string program = "env -u DISPLAY -u WAYLAND_DISPLAY '" GUIHOST_PROGRAM "' ";
  const int status = std::system((inFolder + program + arguments + " >out 2>err").c_str());
  out = folder.Read("out");
  err = folder.Read("err");
  return status;
}

std::string GuihostTest::Complaint(const std::string& arguments) {
  EXPECT_NE(Run(arguments), 0) << arguments;
  EXPECT_EQ(std::ranges::count(err, '\n'), 1) << err;
  EXPECT_THAT(err, ::testing::StartsWith("guihost: "));
  return err;
}

std::optional<base::Image> GuihostTest::Picture(const std::string& name) {
  const std::string bytes = folder.Read(name);
  return DecodeImage({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

}  // namespace qen::host
