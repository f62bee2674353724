#include "host/app/definition_tokens.h"

#include <cstdint>
#include <sstream>

#include "base/vfs.h"
#include "engine/parser.h"

namespace qen::host {

std::optional<std::vector<String>> ReadTokens(base::IFileBackend& files, const String& file) {
  std::vector<std::uint8_t> bytes;
  if (!files.Read(file, bytes)) return std::nullopt;
  const String text = base::DecodeText(bytes);
  std::basic_istringstream<Char> stream(text.substr(0, text.find(u'\0')));
  Parser parser(stream, u" \t\n\r;\uFEFF");
  std::vector<String> tokens;
  for (String token = parser.nextlow(false); !token.empty(); token = parser.nextlow(false)) {
    tokens.push_back(std::move(token));
  }
  return tokens;
}

}  // namespace qen::host
