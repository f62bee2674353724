// Writes the calls into the engine to a file.
#pragma once

#include <fstream>
#include <optional>
#include <string>

#include "base/call_record.h"

namespace qen::host {

// Records while it lives. A call is one JSON object on a line: {"call":"ISceneMng::CreateScene","args":["menu",true]}.
class TraceFile {
 public:
  // Makes the folders that the file is in. Throws std::runtime_error, naming the file, when it cannot be written.
  explicit TraceFile(const std::string& file);
  ~TraceFile() = default;
  TraceFile(const TraceFile&) = delete;
  TraceFile& operator=(const TraceFile&) = delete;

  // Ends the record. Throws std::runtime_error, naming the file, when not all of it could be written.
  void Finish();

 private:
  std::string name_;
  std::ofstream file_;
  std::optional<base::CallTap> tap_;
};

}  // namespace qen::host
