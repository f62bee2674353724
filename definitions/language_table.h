// The words of the current language, by text id.
#pragma once

#include <unordered_map>
#include <vector>

#include "engine/gui.h"
#include "widgets/text_source.h"

namespace qen {

class LanguageTable final : public ITextSource {
 public:
  // Replaces the table by the sections of that name in a language file. A file that cannot be read leaves it empty.
  void Load(const Char* file, StringView language);
  void Clear() { texts_.clear(); }

  [[nodiscard]] const String& Words(std::int32_t id) const override;
  bool Replace(std::int32_t id, const String& words);  // false for an id without words
  [[nodiscard]] TextTable Texts() const { return {texts_.begin(), texts_.end()}; }
  [[nodiscard]] bool IsEmpty() const { return texts_.empty(); }

 private:
  std::unordered_map<std::uint32_t, String> texts_;
};

// One for the module, alive as long as it is loaded.
LanguageTable& ModuleLanguageTable();

// The names of a language file's sections, in order, repeated ones included; empty when it cannot be read.
std::vector<String> ReadLanguageNames(const Char* file);

}  // namespace qen
