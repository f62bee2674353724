// Scripts: pictures.
#include <array>
#include <filesystem>
#include <stdexcept>

#include "host/app/options.h"
#include "host/app/picture_compare.h"
#include "host/app/picture_file.h"
#include "host/script/script_functions.h"
#include "host/script/script_world.h"
#include "host/script/writing_place.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

int Resize(ScriptWorld& world, lua_State* state) {
  const std::int32_t width = IntegerArgument(state, 1);
  const std::int32_t height = IntegerArgument(state, 2);
  luaL_argcheck(state, width >= 1 && width <= kMaxSide, 1, "not a width in pixels");
  luaL_argcheck(state, height >= 1 && height <= kMaxSide, 2, "not a height in pixels");
  world.GetStage().Window().Resize(width, height);
  world.GetStage().Resize();
  return 0;
}

int Shot(ScriptWorld& world, lua_State* state) {
  world.GetStage().WritePicture(WritablePicture(state, 1, "gui.shot"));
  return 0;
}

// Compares the picture on screen, written to the first file, with the second one.
int SameImage(ScriptWorld& world, lua_State* state) {
  const fs::path file = WritablePicture(state, 1, "gui.same_image");
  const fs::path golden = WritablePicture(state, 2, "gui.same_image");
  const double tolerance = luaL_optnumber(state, 3, kPictureTolerance);
  lua_pushstring(state, fs::path(TextArgument(state, 1)).replace_extension("difference.png").string().c_str());
  const fs::path difference = WritablePicture(state, -1, "gui.same_image");
  world.GetStage().WritePicture(file);
  if (world.RenewsPictures()) {
    fs::copy_file(file, golden, fs::copy_options::overwrite_existing);
    Push(state, true);
    return 1;
  }
  const PictureDifference found = ComparePictures(file, golden);
  if (!found.comparable) {
    throw std::runtime_error(golden.string() + " cannot be compared: it is missing or of another size");
  }
  const bool same = found.IsWithin(tolerance);
  if (!same) host::WritePicture(found.shown, difference);
  Push(state, same);
  return 1;
}

}  // namespace

ScriptFunctions PictureFunctions() {
  static constexpr std::array<ScriptFunction, 3> kFunctions{
      {{"resize", Resize}, {"shot", Shot}, {"same_image", SameImage}}};
  return kFunctions;
}

}  // namespace qen::host
