// Language files: languages are chosen, their words looked at and changed.
#include "fuzz/stage.h"

namespace qen::fuzz {
namespace {

constexpr std::size_t kLanguages = 3;

struct LanguageStage : Stage {
  LanguageStage() { engine.files.AddText(kDescriptionFile, u"lang texts.txt"); }
};

}  // namespace

void Try(Input input) {
  auto& stage = Kept<LanguageStage>();
  stage.SetFile(kLanguageFile, input);
  stage.gui->Load(kDescriptionFile.data(), nullptr);
  std::vector<String> languages = stage.gui->GetLanguages();
  if (languages.size() > kLanguages) languages.resize(kLanguages);
  for (const String& language : languages) {
    stage.gui->SetLanguage(language);
    const TextTable texts = stage.gui->GetTexts();
    if (texts.empty()) continue;
    const auto id = static_cast<std::int32_t>(texts.begin()->first);
    stage.gui->SetLanguageText(id, stage.gui->GetText(id) + u"+");
  }
  stage.GiveBack();
}

}  // namespace qen::fuzz
