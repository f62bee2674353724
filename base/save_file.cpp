// Saving a whole file so that an interruption leaves the old one or the new one.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "base/file_paths.h"
#include "base/record.h"
#include "engine/platform.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace qen::platform {
namespace {

namespace fs = std::filesystem;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

bool FlushToDisk(std::FILE* file) {
  if (std::fflush(file) != 0) return false;
#if defined(_WIN32)
  return ::_commit(::_fileno(file)) == 0;
#else
  return ::fsync(::fileno(file)) == 0;
#endif
}

bool WriteWhole(const fs::path& path, const void* bytes, std::size_t size) {
#if defined(_WIN32)
  const std::unique_ptr<std::FILE, CloseFile> file(::_wfopen(path.c_str(), L"wb"));
#else
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "wb"));
#endif
  return file != nullptr && std::fwrite(bytes, 1, size, file.get()) == size && FlushToDisk(file.get());
}

}  // namespace

bool SaveWholeFile(const Char* file, const void* bytes, std::size_t size) {
  base::Record("SaveWholeFile", file, size);
  if (file == nullptr || *file == u'\0') return false;
  const fs::path target = base::ResolvePath(file);
  fs::path part = target;
  part += ".part";
  std::error_code error;
  if (WriteWhole(part, bytes, size)) {
    fs::rename(part, target, error);
    if (!error) return true;
  }
  fs::remove(part, error);
  return false;
}

}  // namespace qen::platform
