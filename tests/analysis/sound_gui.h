// A GUI in memory that has nothing to be told of, to be spoilt in one place each.
#pragma once

#include <map>
#include <string>

#include "analysis/check.h"
#include "base/recording/fake_files.h"
#include "base/recording/fake_fonts.h"
#include "base/recording/fake_scenes.h"

namespace qen::analysis {

inline constexpr const char* kDescriptionFile = "gui.txt";
inline constexpr const char* kTextsFile = "texts.txt";
inline constexpr const char* kStyleFile = "style.txt";
inline constexpr const char* kMenuFile = "pages\\menu.txt";
inline constexpr const char* kOptionsFile = "pages\\options.txt";
inline constexpr const char* kBagFile = "pages\\bag.txt";
inline constexpr const char* kScriptFile = "game.lua";
inline constexpr const char* kMenuScene = "scenes\\menu.glb";
inline constexpr const char* kOptionsScene = "scenes\\options.glb";
inline constexpr const char* kBagScene = "scenes\\bag.glb";
inline constexpr const char* kMenuIn = "anims\\menu_in.glb";
inline constexpr const char* kMenuOut = "anims\\menu_out.glb";

struct SoundGui {
  SoundGui();

  // Replaces the first `old` in the file; the text must be there.
  void Replace(const char* file, const std::string& old, const std::string& now);

  [[nodiscard]] Report Run(Settings settings = {});
  void Fill(base::FakeFiles& backend, base::FakeScenes& parser) const;

  std::map<std::string, std::string> files;  // UTF-8; a file that is taken out is missing
  std::map<std::string, base::SceneData> scenes;
  std::map<std::string, base::AnimationData> animations;
  base::FakeFonts fonts;
};

// The node of that name, to be changed.
base::NodeData& NodeOf(base::SceneData& scene, StringView name);

}  // namespace qen::analysis
