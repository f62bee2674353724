#include "tests/saving/failing_files.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

namespace qen::test {
namespace {

bool counting = false;
std::vector<std::string> calls;
std::size_t struckCall = 0;
Fault struckFault = Fault::Fail;
bool refusing = false;

// Whether this call is the one to fail.
bool IsStruck(const char* name) {
  if (counting) calls.emplace_back(name);
  if (!counting || calls.size() != struckCall) return false;
  if (struckFault == Fault::Kill) _exit(kKilled);
  errno = EIO;
  return true;
}

bool IsRefused() {
  if (refusing) errno = EACCES;
  return refusing;
}

// What the system's own function of that name does.
template <class Result, class... Args>
Result Do(const char* name, Result (*)(Args...), Args... args) {
  return reinterpret_cast<Result (*)(Args...)>(dlsym(RTLD_NEXT, name))(args...);
}

}  // namespace

void StrikeFileCall(std::size_t number, Fault fault) {
  calls.clear();
  struckCall = number;
  struckFault = fault;
  counting = true;
}

std::vector<std::string> CountedFileCalls() {
  counting = false;
  return std::exchange(calls, {});
}

void RefuseNewFiles(bool refuse) { refusing = refuse; }

// The dynamic linker gives the program's functions to every library instead of the system's of the same names.
#define REPLACES(name) __asm__(name) __attribute__((visibility("default")))

std::FILE* Open(const char* file, const char* mode) REPLACES("fopen");
std::size_t Read(void* bytes, std::size_t size, std::size_t number, std::FILE* file) REPLACES("fread");
std::size_t Write(const void* bytes, std::size_t size, std::size_t number, std::FILE* file) REPLACES("fwrite");
int Flush(std::FILE* file) REPLACES("fflush");
int Close(std::FILE* file) REPLACES("fclose");
int Sync(int file) REPLACES("fsync");
int Cut(int file, off_t size) REPLACES("ftruncate");
int Move(const char* from, const char* to) REPLACES("rename");
int MakeFolder(const char* folder, mode_t mode) REPLACES("mkdir");
int SetMode(int folder, const char* file, mode_t mode, int flags) REPLACES("fchmodat");

std::FILE* Open(const char* file, const char* mode) {
  if (IsStruck("fopen") || (std::strchr(mode, 'x') != nullptr && IsRefused())) return nullptr;
  return Do("fopen", Open, file, mode);
}

// Reading a folder fails, and the file knows it then.
std::size_t Read(void* bytes, std::size_t size, std::size_t number, std::FILE* file) {
  if (IsStruck("fread")) {
    const int folder = ::open("/", O_RDONLY);
    ::dup2(folder, ::fileno(file));
    ::close(folder);
  }
  return Do("fread", Read, bytes, size, number, file);
}

std::size_t Write(const void* bytes, std::size_t size, std::size_t number, std::FILE* file) {
  return Do("fwrite", Write, bytes, size, IsStruck("fwrite") ? number / 2 : number, file);
}

int Flush(std::FILE* file) { return IsStruck("fflush") ? EOF : Do("fflush", Flush, file); }

int Close(std::FILE* file) {
  const bool struck = IsStruck("fclose");
  const int result = Do("fclose", Close, file);
  return struck ? EOF : result;
}

// Nothing here outlives the system, so that nothing waits for the disk.
int Sync(int /*file*/) { return IsStruck("fsync") ? -1 : 0; }

int Cut(int file, off_t size) { return IsStruck("ftruncate") ? -1 : Do("ftruncate", Cut, file, size); }

int Move(const char* from, const char* to) { return IsStruck("rename") ? -1 : Do("rename", Move, from, to); }

int MakeFolder(const char* folder, mode_t mode) {
  return IsStruck("mkdir") || IsRefused() ? -1 : Do("mkdir", MakeFolder, folder, mode);
}

int SetMode(int folder, const char* file, mode_t mode, int flags) {
  return IsStruck("fchmodat") ? -1 : Do("fchmodat", SetMode, folder, file, mode, flags);
}

}  // namespace qen::test
