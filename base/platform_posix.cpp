#include <algorithm>
#include <chrono>
#include <cmath>
#include <string>
#include <system_error>
#include <vector>

#include "base/backends/window_backend.h"
#include "base/context.h"
#include "base/file_paths.h"
#include "base/record.h"
#include "base/whole_file.h"
#include "engine/platform.h"

namespace qen::platform {
namespace {

namespace fs = std::filesystem;
using base::Record;

base::IWindowBackend* Window() {
  const base::Context* context = base::CurrentContext();
  return context == nullptr ? nullptr : context->backends.window;
}

StringView NameOf(const Char* file) { return file == nullptr ? StringView() : StringView(file); }

bool CopyWhole(const fs::path& from, const fs::path& to) {
  constexpr std::size_t kBlock = 65536;
  std::error_code error;
  if (!fs::is_regular_file(from, error)) return false;
  const base::OpenedFile source = base::OpenFile(from, "rb");
  if (source == nullptr) return false;
  base::WholeFile copy(to, from);
  std::vector<char> block(kBlock);
  while (const std::size_t size = std::fread(block.data(), 1, block.size(), source.get())) {
    if (!copy.Write(block.data(), size)) return false;
  }
  return std::ferror(source.get()) == 0 && copy.PutInPlace();
}

// A drive can be there, as a folder of that name, but is not made.
bool IsDrive(StringView folder) {
  while (folder.ends_with(u'\\') || folder.ends_with(u'/')) folder.remove_suffix(1);
  return folder.size() == 2 && folder[1] == u':';
}

}  // namespace

bool GetCursorPos(POINT* point) {
  Record("GetCursorPos");
  base::IWindowBackend* window = Window();
  if (window == nullptr || point == nullptr) return false;
  const base::Point cursor = window->Cursor();
  *point = {cursor.x, cursor.y};
  return true;
}

bool SetCursorPos(int x, int y) {
  Record("SetCursorPos", x, y);
  base::IWindowBackend* window = Window();
  if (window == nullptr) return false;
  window->SetCursor({x, y});
  return true;
}

bool ScreenToClient(WindowHandle, POINT* point) {
  Record("ScreenToClient");
  base::IWindowBackend* window = Window();
  if (window == nullptr || point == nullptr) return false;
  const base::Point origin = window->ClientOrigin();
  *point = {point->x - origin.x, point->y - origin.y};
  return true;
}

bool ClientToScreen(WindowHandle, POINT* point) {
  Record("ClientToScreen");
  base::IWindowBackend* window = Window();
  if (window == nullptr || point == nullptr) return false;
  const base::Point origin = window->ClientOrigin();
  *point = {point->x + origin.x, point->y + origin.y};
  return true;
}

bool GetClientRect(WindowHandle, RECT* rect) {
  Record("GetClientRect");
  base::IWindowBackend* window = Window();
  if (window == nullptr || rect == nullptr) return false;
  const base::Point size = window->ClientSize();
  *rect = {0, 0, size.x, size.y};
  return true;
}

std::uint32_t timeGetTime() {
  Record("timeGetTime");
  const base::Context* context = base::CurrentContext();
  const double seconds = context == nullptr ? base::RealClock().GetTime() : context->clock.GetTime();
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(seconds * 1000.0));
}

bool CopyFileW(const Char* from, const Char* to, bool failIfExists) {
  Record("CopyFileW", from, to, failIfExists);
  const fs::path source = base::ResolvePath(NameOf(from));
  const fs::path target = base::ResolvePath(NameOf(to));
  std::error_code error;
  if (failIfExists && fs::exists(target, error)) return false;
  return CopyWhole(source, target);
}

int _wmkdir(const Char* folder) {
  Record("_wmkdir", folder);
  if (IsDrive(NameOf(folder))) return -1;
  std::error_code error;
  return fs::create_directory(base::ResolvePath(NameOf(folder)), error) ? 0 : -1;
}

std::FILE* _wfopen(const Char* file, const Char* mode) {
  Record("_wfopen", file, mode);
  std::string narrow;
  for (const Char c : NameOf(mode)) narrow.push_back(c < 0x80 ? static_cast<char>(c) : '?');
  const fs::path path = base::ResolvePath(NameOf(file));
  // A folder can be opened for reading here, but is no file.
  std::error_code error;
  if (fs::is_directory(path, error)) return nullptr;
  return std::fopen(path.c_str(), narrow.c_str());
}

}  // namespace qen::platform
