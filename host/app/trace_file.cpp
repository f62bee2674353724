#include "host/app/trace_file.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace qen::host {
namespace {

std::string ToJsonLine(const base::Call& call) {
  nlohmann::ordered_json line;
  line["call"] = call.name;
  nlohmann::ordered_json& arguments = line["args"] = nlohmann::ordered_json::array();
  for (const base::CallArgument& argument : call.arguments) {
    std::visit([&arguments](const auto& value) { arguments.push_back(value); }, argument);
  }
  return line.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

}  // namespace

TraceFile::TraceFile(const std::string& file) : name_(file) {
  std::error_code isFailed;  // then the file cannot be opened either
  std::filesystem::create_directories(std::filesystem::path(file).parent_path(), isFailed);
  file_.open(file, std::ios::binary);
  if (!file_) throw std::runtime_error("cannot write " + name_);
  tap_.emplace([this](const base::Call& call) { file_ << ToJsonLine(call); });
}

void TraceFile::Finish() {
  tap_.reset();
  file_.close();
  if (!file_) throw std::runtime_error("cannot write " + name_);
}

}  // namespace qen::host
