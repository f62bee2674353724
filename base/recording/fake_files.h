// Files in memory.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "base/backends/file_backend.h"

namespace qen::base {

class QEN_API FakeFiles final : public IFileBackend {
 public:
  bool Read(StringView name, std::vector<std::uint8_t>& bytes) override;

  void Add(StringView name, std::vector<std::uint8_t> bytes);
  void AddText(StringView name, StringView text);  // as UTF-8, without a mark

  std::vector<String> reads;  // every name asked for, as it was written

 private:
  std::unordered_map<String, std::vector<std::uint8_t>> files_;
};

}  // namespace qen::base
