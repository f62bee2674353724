// Definition files: one of a small GUI's files is the input, and the GUI is used, saved and read back.
#include <algorithm>
#include <array>

#include "fuzz/stage.h"

#ifndef FUZZ_FILE
#error "the build names the file that the input stands for"
#endif

namespace qen::fuzz {
namespace {

// What is used of the GUI when the input stands for that file.
struct Use {
  StringView file;
  std::uint32_t firstPage;
  std::uint32_t pages;  // at most, however many the input names
  bool saves;
};

constexpr std::array<Use, 5> kUses{{
    {kDescriptionFile, 0, 8, false},
    {kLanguageFile, 0, 1, false},
    {kPageFile, 0, 1, true},
    {kBagFile, 2, 1, true},
    {kStyleFile, 0, 1, true},
}};

constexpr std::size_t kWidgets = 12;  // that are clicked, of one page
constexpr std::size_t kLanguages = 4;

void UseWidgets(Stage& stage, std::uint32_t page) {
  stage.gui->GetActivePages() = {page};
  stage.gui->GetRenderPages() = {page};
  for (std::size_t i = 0; i < kWidgets; ++i) {
    // Asked anew: a click may change what is there.
    const std::vector<ICGUIObject*> widgets = stage.gui->GetPageItems(page);
    if (i >= widgets.size()) break;
    stage.Click(*widgets[i]);
    stage.Send(message::kKey, u'x');
    stage.Send(message::kWheel, 120);
  }
  stage.Frame(1.5);  // long enough for a tooltip
  stage.Frame();
  stage.Draw();
}

void UseLanguages(Stage& stage) {
  std::vector<String> languages = stage.gui->GetLanguages();
  if (languages.size() > kLanguages) languages.resize(kLanguages);
  for (const String& language : languages) {
    stage.gui->SetLanguage(language);
    for (const auto& [id, words] : stage.gui->GetTexts()) {
      stage.gui->SetLanguageText(static_cast<std::int32_t>(id), words + u"+");
      if (id > 16) break;
    }
    stage.Frame();
    stage.Draw();
  }
}

void SaveAndReadBack(Stage& stage, std::uint32_t page) {
  if (!stage.gui->SavePage(kSavedFile.data(), page)) return;
  stage.MakeSavedReadable();
  stage.gui->AddPage(kSavedFile.data(), &stage.engine.camera);
  stage.gui->SetViewport(&stage.engine.viewport);
  UseWidgets(stage, stage.gui->GetPageCount() - 1);
}

}  // namespace

void Try(Input input) {
  static const Use& use = *std::ranges::find(kUses, StringView(FUZZ_FILE), &Use::file);
  Stage stage;
  stage.engine.files.Add(use.file, {input.begin(), input.end()});
  stage.Load();
  stage.Draw();
  stage.FillBags(5);
  const std::uint32_t end = std::min(stage.gui->GetPageCount(), use.firstPage + use.pages);
  for (std::uint32_t page = use.firstPage; page < end; ++page) {
    UseWidgets(stage, page);
    if (use.saves) SaveAndReadBack(stage, page);
  }
  UseLanguages(stage);
  if (use.saves) stage.gui->SaveStyle();
}

}  // namespace qen::fuzz
