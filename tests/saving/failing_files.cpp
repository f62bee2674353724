#include "tests/saving/failing_files.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace qen::test {
namespace {

bool counting = false;
std::size_t count = 0;
std::size_t struckCall = 0;
Fault struckFault = Fault::Fail;

// Whether this call is the one to fail.
bool IsStruck() {
  if (!counting || ++count != struckCall) return false;
  if (struckFault == Fault::Kill) _exit(kKilled);
  errno = EIO;
  return true;
}

template <class Function>
Function* System(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

void StrikeFileCall(std::size_t number, Fault fault) {
  count = 0;
  struckCall = number;
  struckFault = fault;
  counting = true;
}

std::size_t CountedFileCalls() {
  counting = false;
  return count;
}

}  // namespace qen::test

using qen::test::IsStruck;
using qen::test::System;

// The dynamic linker gives the program's functions to every library instead of the system's.
#define REPLACED extern "C" __attribute__((visibility("default")))

REPLACED std::FILE* fopen(const char* file, const char* mode) {
  return IsStruck() ? nullptr : System<std::FILE*(const char*, const char*)>("fopen")(file, mode);
}

REPLACED std::size_t fwrite(const void* bytes, std::size_t size, std::size_t number, std::FILE* file) {
  const std::size_t written = IsStruck() ? number / 2 : number;
  return System<std::size_t(const void*, std::size_t, std::size_t, std::FILE*)>("fwrite")(bytes, size, written, file);
}

// Reading a folder fails, and the file knows it then.
REPLACED std::size_t fread(void* bytes, std::size_t size, std::size_t number, std::FILE* file) {
  if (IsStruck()) {
    const int folder = ::open("/", O_RDONLY);
    ::dup2(folder, ::fileno(file));
    ::close(folder);
  }
  return System<std::size_t(void*, std::size_t, std::size_t, std::FILE*)>("fread")(bytes, size, number, file);
}

REPLACED int fflush(std::FILE* file) { return IsStruck() ? EOF : System<int(std::FILE*)>("fflush")(file); }

REPLACED int fclose(std::FILE* file) {
  const bool struck = IsStruck();
  const int result = System<int(std::FILE*)>("fclose")(file);
  return struck ? EOF : result;
}

REPLACED int fsync(int file) { return IsStruck() ? -1 : System<int(int)>("fsync")(file); }

REPLACED int rename(const char* from, const char* to) noexcept {
  return IsStruck() ? -1 : System<int(const char*, const char*)>("rename")(from, to);
}

REPLACED int mkdir(const char* folder, mode_t mode) noexcept {
  return IsStruck() ? -1 : System<int(const char*, mode_t)>("mkdir")(folder, mode);
}

REPLACED int fchmodat(int folder, const char* file, mode_t mode, int flags) noexcept {
  return IsStruck() ? -1 : System<int(int, const char*, mode_t, int)>("fchmodat")(folder, file, mode, flags);
}
