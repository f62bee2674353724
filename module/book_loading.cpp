// Loading of everything that the description file names, and the languages.
#include "definitions/definition_file.h"
#include "definitions/definition_text.h"
#include "definitions/language_table.h"
#include "definitions/page_writer.h"
#include "definitions/stopwatch.h"
#include "engine/output.h"
#include "engine/platform.h"
#include "engine/system.h"
#include "formats/backup.h"
#include "formats/command_words.h"
#include "formats/definition_words.h"
#include "module/book.h"
#include "module/book_busy.h"
#include "pages/page_base.h"

namespace qen {
namespace {

void Log(const Char* line) {
  if (System::output != nullptr) System::output->Print(line);
}

void LogDone(const Char* format, const Stopwatch& stopwatch) {
  if (System::output != nullptr) System::output->Print(format, stopwatch.Seconds());
}

}  // namespace

bool CGUIBook::Load(const Char* descriptionFile, Camera* camera) {
  const Busy busy(*this);
  const std::optional<String> description = LoadLanguage(descriptionFile);

  Log(u"Gui: Parsing gui pages ...\n");
  const Stopwatch stopwatch;
  loadCamera_ = camera;
  const bool result = description.has_value() && LoadNamedFiles(*description, *this);
  loadCamera_ = nullptr;
  LogDone(u"Gui: Parsing gui pages done [%1.1f sec]...\n", stopwatch);
  return result;
}

// The first half of loading. Gives the description's text.
std::optional<String> CGUIBook::LoadLanguage(const Char* descriptionFile) {
  Log(u"Gui: Parsing gui language ...\n");
  const Stopwatch stopwatch;
  ModuleLanguageTable().Clear();
  undoStack_.clear();
  style_.ForgetFile();
  quiet_ = false;
  std::optional<String> description = LoadDefinitionText(descriptionFile);
  if (description) ReadLanguageFileName(*description, languageFile_);
  SetLanguage(String(formats::kFirstLanguage));
  LogDone(u"Gui: Parsing gui language done [%1.1f sec]...\n", stopwatch);
  return description;
}

std::vector<String> CGUIBook::GetLanguages() {
  const Busy busy(*this);
  return ReadLanguageNames(languageFile_.c_str());
}

void CGUIBook::SetLanguage(String language) {
  const Busy busy(*this);
  language_ = std::move(language);
  ModuleLanguageTable().Load(languageFile_.c_str(), language_);
}

TextTable CGUIBook::GetTexts() { return ModuleLanguageTable().Texts(); }

void CGUIBook::SaveLanguage(String sourceFile) {
  const Busy busy(*this);
  const String path = ResolvePath(languageFile_);
  formats::MakeBackup(path);
  platform::CopyFileW(sourceFile.c_str(), path.c_str(), false);
}

bool CGUIBook::IsTextTableEmpty() { return ModuleLanguageTable().IsEmpty(); }

String CGUIBook::GetText(std::int32_t id) { return ModuleLanguageTable().Words(id); }

bool CGUIBook::SetLanguageText(std::int32_t id, const String& words) {
  return ModuleLanguageTable().Replace(id, words);
}

bool CGUIBook::LoadStyle(const Char* file) {
  const Busy busy(*this);
  return style_.Load(file);
}

void CGUIBook::CreateStyleResources() {
  const Busy busy(*this);
  style_.CreateResources();
}

void CGUIBook::SaveStyle() {
  const Busy busy(*this);
  if (!style_.IsNamed()) return;
  const String path = ResolvePath(style_.FileName());
  formats::MakeBackup(path);
  WriteDefinitionFile(path, WriteStyle(style_.Settings()));
}

}  // namespace qen
