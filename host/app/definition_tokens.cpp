#include "host/app/definition_tokens.h"

#include <cstdint>
#include <sstream>

#include "base/vfs.h"
#include "engine/parser.h"
#include "formats/definition_syntax.h"

namespace qen::host {

std::optional<std::vector<String>> ReadTokens(base::IFileBackend& files, const String& file) {
  std::vector<std::uint8_t> bytes;
  if (!files.Read(file, bytes)) return std::nullopt;
  const String text = base::DecodeText(bytes);
  std::basic_istringstream<Char> stream(text.substr(0, text.find(u'\0')));
  const String separators = formats::kSeparators + String(1, formats::kByteOrderMark);
  Parser parser(stream, separators.c_str());
  std::vector<String> tokens;
  for (String token = parser.nextlow(false); !token.empty(); token = parser.nextlow(false)) {
    tokens.push_back(std::move(token));
  }
  return tokens;
}

}  // namespace qen::host
