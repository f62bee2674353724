// The sample's files for the recording engine.
#pragma once

#include <map>

#include "base/backends/scene_backend.h"
#include "base/recording/recording_engine.h"

namespace qen::test {

// Scenes are read once, from their real files, and brought down to what the GUI sees of them: of each mesh the corners
// of its box, of each picture one pixel. So thousands of engines can load them.
class SampleData {
 public:
  static const SampleData& Get();

  void AddTo(base::RecordingEngine& engine) const;

 private:
  SampleData();

  std::map<String, std::vector<std::uint8_t>> files_;  // by their names in the sample
  std::map<String, base::SceneData> scenes_;
  std::map<String, base::AnimationData> animations_;
};

}  // namespace qen::test
