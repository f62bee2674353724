#include "host/app/page_saver.h"

#include <stdexcept>

#include "base/file_paths.h"
#include "base/utf.h"
#include "engine/system.h"
#include "formats/backup.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

std::string Save(IGui& gui, std::uint32_t page, const String& name, const fs::path& file) {
  const fs::path backup = base::ResolvePath(formats::NextBackup(base::ToUtf16(file.string()))).lexically_normal();
  if (!gui.SavePage(name.c_str(), page)) throw std::runtime_error("cannot save " + file.string());
  const std::string saved = "saved " + file.string();
  return fs::exists(backup) ? saved + "; what was there is " + backup.string() : saved;
}

// The GUI saves below the base path only.
class BasePathChange {
 public:
  explicit BasePathChange(const fs::path& folder) { System::SetBasePath(base::ToUtf16(folder.string())); }
  ~BasePathChange() { System::SetBasePath(before_); }
  BasePathChange(const BasePathChange&) = delete;
  BasePathChange& operator=(const BasePathChange&) = delete;

 private:
  String before_ = System::GetBasePath();
};

}  // namespace

std::string SavePageAs(IGui& gui, std::uint32_t page, const fs::path& file) {
  const BasePathChange change(file.parent_path());
  // A second character that is a colon would make it a drive.
  return Save(gui, page, base::ToUtf16("./" + file.filename().string()), file);
}

std::string SavePageInPlace(IGui& gui, std::uint32_t page) {
  const String name = gui.GetPageFile(page);
  return Save(gui, page, name, base::ResolvePath(System::GetBasePath() + name).lexically_normal());
}

}  // namespace qen::host
