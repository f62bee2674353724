// Data whose language file has one more language: what its first one says, with accents, and longer.
#pragma once

#include <utility>
#include <vector>

#include "base/backends/file_backend.h"

namespace qen::host {

class PseudoLanguageFiles final : public base::IFileBackend {
 public:
  // The language file is the one that the description names at the time. The files must outlive this.
  PseudoLanguageFiles(base::IFileBackend& files, String description)
      : files_(files), description_(std::move(description)) {}

  bool Read(StringView name, std::vector<std::uint8_t>& bytes) override;

 private:
  // The one that counts; empty when the description names none.
  [[nodiscard]] String LanguageFile();

  base::IFileBackend& files_;
  String description_;
};

}  // namespace qen::host
