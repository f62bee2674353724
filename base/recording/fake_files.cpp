#include "base/recording/fake_files.h"

#include <utility>

#include "base/resource_store.h"
#include "base/utf.h"

namespace qen::base {

bool FakeFiles::Read(StringView name, std::vector<std::uint8_t>& bytes) {
  reads.emplace_back(name);
  const auto file = files_.find(FileKey(name));
  if (file == files_.end()) return false;
  bytes = file->second;
  return true;
}

void FakeFiles::Add(StringView name, std::vector<std::uint8_t> bytes) { files_[FileKey(name)] = std::move(bytes); }

void FakeFiles::AddText(StringView name, StringView text) {
  const std::string utf8 = ToUtf8(text);
  Add(name, {utf8.begin(), utf8.end()});
}

}  // namespace qen::base
