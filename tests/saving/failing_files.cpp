#include "tests/saving/failing_files.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace qen::test {
namespace {

bool counting = false;
std::size_t count = 0;
std::size_t struckCall = 0;
Fault struckFault = Fault::Fail;
bool refusing = false;

// Whether this call is the one to fail.
bool IsStruck() {
  if (!counting || ++count != struckCall) return false;
  if (struckFault == Fault::Kill) _exit(kKilled);
  errno = EIO;
  return true;
}

bool IsRefused() {
  if (refusing) errno = EACCES;
  return refusing;
}

// The system's own function of that name and kind.
template <class Function>
Function* System(Function*, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

void StrikeFileCall(std::size_t number, Fault fault) {
  count = 0;
  struckCall = number;
  struckFault = fault;
  counting = true;
}

void RefuseNewFiles(bool refuse) { refusing = refuse; }

std::size_t CountedFileCalls() {
  counting = false;
  return count;
}

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
  if (IsStruck() || (std::strchr(mode, 'x') != nullptr && IsRefused())) return nullptr;
  return System(Open, "fopen")(file, mode);
}

// Reading a folder fails, and the file knows it then.
std::size_t Read(void* bytes, std::size_t size, std::size_t number, std::FILE* file) {
  if (IsStruck()) {
    const int folder = ::open("/", O_RDONLY);
    ::dup2(folder, ::fileno(file));
    ::close(folder);
  }
  return System(Read, "fread")(bytes, size, number, file);
}

std::size_t Write(const void* bytes, std::size_t size, std::size_t number, std::FILE* file) {
  return System(Write, "fwrite")(bytes, size, IsStruck() ? number / 2 : number, file);
}

int Flush(std::FILE* file) { return IsStruck() ? EOF : System(Flush, "fflush")(file); }

int Close(std::FILE* file) {
  const bool struck = IsStruck();
  const int result = System(Close, "fclose")(file);
  return struck ? EOF : result;
}

int Sync(int file) { return IsStruck() ? -1 : System(Sync, "fsync")(file); }

int Cut(int file, off_t size) { return IsStruck() ? -1 : System(Cut, "ftruncate")(file, size); }

int Move(const char* from, const char* to) { return IsStruck() ? -1 : System(Move, "rename")(from, to); }

int MakeFolder(const char* folder, mode_t mode) {
  return IsStruck() || IsRefused() ? -1 : System(MakeFolder, "mkdir")(folder, mode);
}

int SetMode(int folder, const char* file, mode_t mode, int flags) {
  return IsStruck() ? -1 : System(SetMode, "fchmodat")(folder, file, mode, flags);
}

}  // namespace qen::test
