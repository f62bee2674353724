// Replacing a file on the disk so that an interruption leaves the old one or the new one, never a piece. Only where the
// folder may not be written, and the file may, can it not be so.
#pragma once

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

namespace qen::base {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenedFile = std::unique_ptr<std::FILE, CloseFile>;

OpenedFile OpenFile(const std::filesystem::path& path, const char* mode);  // null on failure

// Written beside the target under a name of its own; taken away again unless it was put in place. Where the folder
// takes no new file, it is kept in memory, and written into the file that is there.
class WholeFile {
 public:
  // Nothing can be written when the target is read-only or no file. What is there keeps its permissions; a new file
  // gets those of the file `like`, when one is given.
  explicit WholeFile(const std::filesystem::path& target, std::filesystem::path like = {});
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  bool Write(const void* bytes, std::size_t size);

  // Flushes to the disk and moves over what was there, as the last step. False when anything failed so far; what was
  // there is there still.
  bool PutInPlace();

 private:
  int OpenPart();

  std::filesystem::path target_;
  std::filesystem::path like_;  // whose owner and permissions it gets; empty for the system's defaults
  std::filesystem::path part_;  // empty while there is none
  OpenedFile file_;
  bool inPlace_ = false;
  std::vector<char> content_;  // for writing in place
};

}  // namespace qen::base
