#include "analysis/rules/script_words.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "base/utf.h"
#include "formats/command_words.h"

namespace qen::analysis {
namespace {

// Lua's text, as far as strings and comments go.
class StringScanner {
 public:
  explicit StringScanner(StringView text) : text_(text) {}

  // The next string; false at the end.
  bool Next(String& found) {
    found.clear();
    while (at_ < text_.size()) {
      const Char c = text_[at_];
      if (c == u'"' || c == u'\'') return ReadQuoted(found);
      const bool isComment = text_.substr(at_).starts_with(u"--");
      if (isComment) at_ += 2;
      if (const std::size_t level = LongLevel(); level != 0) {
        const StringView words = ReadLong(level);
        if (isComment) continue;
        found = words;
        return true;
      }
      at_ = isComment ? std::min(text_.find(u'\n', at_), text_.size()) : at_ + 1;
    }
    return false;
  }

 private:
  // A line's end ends it: it is broken there.
  bool ReadQuoted(String& found) {
    const Char quote = text_[at_++];
    while (at_ < text_.size() && text_[at_] != quote && text_[at_] != u'\n') {
      if (text_[at_] == u'\\' && at_ + 1 < text_.size()) ++at_;
      found += text_[at_++];
    }
    ++at_;
    return true;
  }

  // How many characters open a string in long brackets here; 0 for none.
  [[nodiscard]] std::size_t LongLevel() const {
    if (at_ >= text_.size() || text_[at_] != u'[') return 0;
    const std::size_t second = std::min(text_.find_first_not_of(u'=', at_ + 1), text_.size());
    return second < text_.size() && text_[second] == u'[' ? second - at_ + 1 : 0;
  }

  StringView ReadLong(std::size_t level) {
    const String close = u']' + String(level - 2, u'=') + u']';
    const std::size_t begin = at_ + level;
    const std::size_t end = std::min(text_.find(close, begin), text_.size());
    at_ = std::min(end + close.size(), text_.size());
    return text_.substr(begin, end - begin);
  }

  StringView text_;
  std::size_t at_ = 0;
};

// Without folder and ending.
StringView ShortName(StringView page) {
  page = page.substr(page.find_last_of(u"\\/") + 1);
  return page.substr(0, page.rfind(u'.'));
}

}  // namespace

ScriptWords::ScriptWords(base::IFileBackend& files, const String& file) {
  std::vector<std::uint8_t> bytes;
  if (file.empty() || !files.Read(file, bytes)) return;
  const String text = base::ToUtf16({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  StringScanner scanner(text);
  for (String found; scanner.Next(found);) Add(std::move(found));
}

void ScriptWords::Add(String text) {
  const std::size_t colon = text.find_first_of(formats::kCommandSeparators);
  if (colon != String::npos) arguments_.insert(text.substr(colon + 1));
  strings_.insert(std::move(text));
}

bool ScriptWords::NamesPage(StringView name) const {
  return std::ranges::any_of(std::initializer_list<StringView>{name, ShortName(name)}, [this](StringView word) {
    return strings_.contains(String(word)) || arguments_.contains(String(word));
  });
}

}  // namespace qen::analysis
