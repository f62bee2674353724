// The file service: whole text files as UTF-16.
#pragma once

#include <cstdint>
#include <span>

#include "base/backends/file_backend.h"
#include "base/log.h"
#include "engine/vfs.h"

namespace qen::base {

// UTF-16LE where the file begins with FF FE or has a zero byte, else UTF-8, with U+FFFD for what is none. Byte order
// marks become U+FEFF; a last odd byte of UTF-16 is ignored.
QEN_API String DecodeText(std::span<const std::uint8_t> bytes);

class FileService final : public IVFS {
 public:
  FileService(IFileBackend* files, LogService& log) : files_(files), log_(log) {}

  bool ReadFile(const Char* name, Char*& buffer, std::uint32_t& size) override;

 private:
  IFileBackend* files_;  // null: there are no files
  LogService& log_;
};

}  // namespace qen::base
