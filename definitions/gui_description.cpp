#include "definitions/gui_description.h"

#include <array>

#include "definitions/definition_text.h"
#include "formats/definition_words.h"

namespace qen {
namespace {

namespace word = formats::word;

struct FileKey {
  StringView word;
  bool (IGuiLoader::*load)(const String& file);  // null: the value is passed over
};

constexpr std::array<FileKey, 4> kFileKeys{{
    {word::kLang, nullptr},
    {word::kName, &IGuiLoader::LoadPageFile},
    {word::kBagName, &IGuiLoader::LoadBagFile},
    {word::kTool, &IGuiLoader::LoadStyleFile},
}};
static_assert(formats::AreRowsOf(kFileKeys, formats::kDescription));

}  // namespace

void ReadLanguageFileName(const String& text, String& file) {
  DefinitionPass pass(text);
  for (String token = pass.parser.NextToken(); !token.empty(); token = pass.parser.NextToken()) {
    if (token == word::kLang) file = pass.parser.NextToken();
  }
}

bool LoadNamedFiles(const String& text, IGuiLoader& loader) {
  bool result = true;
  DefinitionPass pass(text);
  for (String token = pass.parser.NextToken(); !token.empty(); token = pass.parser.NextToken()) {
    // The value takes the token's place, so that the keys further down are tried on it.
    for (const FileKey& key : kFileKeys) {
      if (token != key.word) continue;
      token = pass.parser.NextToken();
      if (key.load != nullptr) result = (loader.*key.load)(token);
    }
  }
  return result;
}

}  // namespace qen
