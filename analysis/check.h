// Looks over a GUI: its description and all that it names.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "analysis/finding.h"
#include "base/backends/file_backend.h"
#include "base/backends/font_backend.h"
#include "base/backends/scene_backend.h"

namespace qen::analysis {

inline constexpr StringView kPseudoLanguage = u"pseudo";  // every text with accents, and longer

struct Backends {
  base::IFileBackend& files;
  base::ISceneBackend& scenes;
  base::IFontBackend* fonts = nullptr;  // null: nothing is measured
};

struct Settings {
  std::vector<String> languages = {};        // whose words are looked at; empty for all of the file
  std::map<Rule, Severity> severities = {};  // other ones than the rules have
  String script = {};                        // file of the game's script = {}; a command whose word it names is handled
  std::function<void(std::size_t page, std::size_t pages)> onPage = {};  // hears how far it is; null for nobody
};

struct Report {
  std::vector<Finding> findings = {};  // in order of files as the GUI names them, and of their places
  std::size_t silenced = 0;            // left out, as comments ask for
  std::size_t files = 0;               // looked at
  std::vector<String> languages = {};  // that the language file has

  [[nodiscard]] std::size_t Count(Severity severity) const;

  // The first of what keeps the GUI from being loaded; null when nothing does.
  [[nodiscard]] const Finding* FirstFault() const;
};

// Throws nothing; what cannot be read is a finding.
Report Check(const String& description, const Backends& backends, const Settings& settings = {});

// What the fixes of findings make of a file.
struct FixedFile {
  std::vector<std::uint8_t> bytes;
  std::vector<const Finding*> mended;
};

// Of fixes that would change the same words, the first is carried out. Nothing when none is of that file, or it cannot
// be read. Findings must outlive the result.
std::optional<FixedFile> ApplyFixes(const std::string& file, const std::vector<Finding>& findings,
                                    base::IFileBackend& files);

}  // namespace qen::analysis
