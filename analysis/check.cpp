#include "analysis/check.h"

#include <algorithm>

#include "analysis/findings.h"
#include "analysis/gui_model.h"
#include "analysis/rules/rule_groups.h"
#include "base/utf.h"
#include "formats/definition_words.h"

namespace qen::analysis {
namespace {

using formats::Statement;
using formats::Value;
namespace word = formats::word;

class Checker {
 public:
  Checker(const Backends& backends, const Settings& settings)
      : backends_(backends), settings_(settings), findings_(settings) {}

  Report Run(const String& description) {
    gui_.description = OpenSource(backends_.files, description, formats::FileKind::Description);
    if (gui_.description == nullptr) {
      findings_.AddFault(Rule::MissingFile, description, "it cannot be read");
      return findings_.Take();
    }
    CheckSource(*gui_.description);
    OpenNamedFiles();
    IndexNames();
    CheckPages();
    CheckMedia(gui_, backends_, findings_);
    CheckCommands(gui_, settings_, backends_, findings_);
    CheckTexts(gui_, settings_, backends_, findings_);
    Report report = findings_.Take();
    for (const Language& language : gui_.languages) report.languages.push_back(language.name);
    return report;
  }

 private:
  void CheckSource(const Source& source) {
    findings_.Announce(source);
    CheckReading(source, findings_);
  }

  // In the order in which the description names them, but for pages all at once.
  void OpenNamedFiles() {
    const Source& description = *gui_.description;
    const auto& statements = description.Reading().statements;
    for (std::size_t i = 0; i < statements.size(); ++i) {
      const Statement& statement = statements[i];
      if (statement.state != formats::ValueState::Read) continue;
      const Value kind = statement.keyword->value;
      if (kind == Value::Page || kind == Value::Bag) {
        OpenPage(i);
      } else {
        gui_.hasLanguageStatement = gui_.hasLanguageStatement || kind == Value::Language;
        auto& place = kind == Value::Style ? gui_.style : gui_.languageFile;
        auto source = Open(statement, kind == Value::Style ? formats::FileKind::Style : formats::FileKind::Language);
        if (source != nullptr) place = std::move(source);
      }
    }
    if (gui_.languageFile != nullptr) {
      CheckSource(*gui_.languageFile);
      ReadLanguages();
    }
    if (gui_.style != nullptr) CheckSource(*gui_.style);
  }

  std::unique_ptr<Source> Open(const Statement& statement, formats::FileKind kind) {
    const String file(gui_.description->ValueOf(statement));
    std::unique_ptr<Source> source = OpenSource(backends_.files, file, kind);
    if (source == nullptr) {
      findings_.AddFault(Rule::MissingFile, *gui_.description, statement.value, base::ToUtf8(file) + " cannot be read");
    }
    return source;
  }

  void OpenPage(std::size_t index) {
    const Statement& statement = gui_.description->Reading().statements[index];
    Page page{.isBag = statement.keyword->value == Value::Bag, .statement = index};
    page.source = Open(statement, page.isBag ? formats::FileKind::Bag : formats::FileKind::Page);
    if (page.source == nullptr) return;
    const auto& statements = page.source->Reading().statements;
    const bool named = !statements.empty() && statements[0].keyword->value == Value::Scene;
    if (named && statements[0].state == formats::ValueState::Read) {
      page.nameToken = statements[0].value;
      page.sceneFile = page.source->ValueAt(page.nameToken);
      page.name = PageNameOf(page.sceneFile);
    }
    gui_.pages.push_back(std::move(page));
  }

  void ReadLanguages() {
    const Source& source = *gui_.languageFile;
    const formats::Reading& reading = source.Reading();
    std::unordered_map<String, std::size_t> known;
    std::unordered_map<std::size_t, std::size_t> ofBlock;
    for (std::size_t block = 0; block < reading.blocks.size(); ++block) {
      if (reading.blocks[block].scope != formats::Scope::Section || reading.blocks[block].name == formats::kNone)
        continue;
      const String name(source.ValueAt(reading.blocks[block].name));
      const auto [place, isNew] = known.try_emplace(name, gui_.languages.size());
      if (isNew) gui_.languages.push_back({name, reading.blocks[block].name, {}});
      ofBlock.emplace(block, place->second);
    }
    for (std::size_t i = 0; i < reading.texts.size(); ++i) {
      const auto language = ofBlock.find(reading.texts[i].block);
      if (language != ofBlock.end() && reading.texts[i].value != formats::kNone)
        gui_.languages[language->second].texts.try_emplace(reading.texts[i].id, i);
    }
  }

  void IndexNames() {
    for (std::size_t i = 0; i < gui_.pages.size(); ++i) {
      if (!gui_.pages[i].name.empty()) gui_.pagesByName.try_emplace(gui_.pages[i].name, i);
    }
  }

  // A scene's meshes are there only while its page is looked at.
  void CheckPages() {
    for (std::size_t i = 0; i < gui_.pages.size(); ++i) {
      if (settings_.onPage) settings_.onPage(i, gui_.pages.size());
      Page& page = gui_.pages[i];
      CheckSource(*page.source);
      const std::optional<base::SceneData> scene = LoadScene(page);
      if (scene) page.scene = OutlineOf(*scene);
      page.hasScene = scene.has_value();
      FindWidgets(page);
      for (std::size_t widget = 0; widget < page.widgets.size(); ++widget) {
        gui_.widgetsByName[page.widgets[widget].name].push_back({i, widget});
      }
      CheckNames(page, findings_);
      CheckAnimations(page, backends_, findings_);
      if (scene) CheckScene(page, *scene, findings_);
    }
    CheckScenes(gui_, findings_);
  }

  std::optional<base::SceneData> LoadScene(const Page& page) {
    if (page.nameToken == formats::kNone) return std::nullopt;
    std::vector<std::uint8_t> bytes;
    if (!backends_.files.Read(page.sceneFile, bytes)) {
      findings_.AddFault(Rule::MissingFile, *page.source, page.nameToken,
                         base::ToUtf8(page.sceneFile) + " cannot be read");
      return std::nullopt;
    }
    String error;
    std::optional<base::SceneData> scene = backends_.scenes.ParseScene(page.sceneFile, bytes, false, error);
    if (!scene) {
      findings_.AddFault(Rule::UnreadableFile, *page.source, page.nameToken,
                         base::ToUtf8(page.sceneFile + u": " + error));
    }
    return scene;
  }

  const Backends& backends_;
  const Settings& settings_;
  Findings findings_;
  Gui gui_;
};

}  // namespace

std::size_t Report::Count(Severity severity) const {
  return static_cast<std::size_t>(std::ranges::count(findings, severity, &Finding::severity));
}

const Finding* Report::FirstFault() const {
  const auto found = std::ranges::find_if(findings, &Finding::keepsFromLoading);
  return found == findings.end() ? nullptr : &*found;
}

Report Check(const String& description, const Backends& backends, const Settings& settings) {
  return Checker(backends, settings).Run(description);
}

}  // namespace qen::analysis
