// Looks over the data with the program's own backends.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/check.h"
#include "host/check/measuring_fonts.h"
#include "host/files/physfs_files.h"
#include "host/scenes/gltf_scenes.h"

namespace qen::host {

class GuiCheck {
 public:
  // `script` is the file of the game's script. The files must outlive this.
  GuiCheck(String description, String script, PhysfsFiles& files);

  analysis::Report Run(analysis::Settings settings = {});  // their script is the one above
  analysis::Report RunForProblems();                       // without notes

 private:
  String description_;
  String script_;
  PhysfsFiles& files_;
  GltfScenes scenes_;
  std::optional<MeasuringFonts> fonts_;  // made for the first check: finding what is installed takes its time
};

}  // namespace qen::host
