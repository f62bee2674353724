#include "tests/host/guihost_run.h"

#include <cstdlib>

#include "host/scenes/image_decoder.h"
#include "tests/host/gltf_builder.h"

namespace qen::host {

std::string MakeEmptyScene() {
  return R"({"asset":{"version":"2.0"},"nodes":[{"name":"~bBack","children":[1]},{"name":"normal"}]})";
}

std::string MakeSquares(const std::string& nodes) {
  const Bytes glb = MakeGlb("\"nodes\":[" + nodes + R"(],"meshes":[{"primitives":[{"material":0,"mode":6,"attributes":{
      "POSITION":<float3 -30 -30 0 30 -30 0 30 30 0 -30 30 0>,"NORMAL":<byte3 0 0 1 0 0 1 0 0 1 0 0 1>}}]}],
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

std::optional<base::Image> GuihostTest::Picture(const std::string& name) {
  const std::string bytes = folder.Read(name);
  return DecodeImage({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

}  // namespace qen::host
