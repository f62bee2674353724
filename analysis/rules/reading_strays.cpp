// Words that nobody reads, and braces that are too many.
#include <algorithm>

#include "analysis/rules/command_rest.h"
#include "analysis/rules/reading_pass.h"
#include "analysis/rules/word_homes.h"
#include "analysis/words.h"
#include "formats/definition_syntax.h"
#include "formats/definition_words.h"
#include "formats/widget_kinds.h"

namespace qen::analysis {
namespace {

using formats::kNone;
using formats::Scope;
using formats::Stray;
namespace word = formats::word;

bool IsPlainBrace(const Source& source, std::size_t token, StringView brace) {
  return !source.TokenAt(token).isQuoted && source.ValueAt(token) == brace;
}

// Keywords are of letters and underscores alone.
bool LooksLikeValue(StringView word) {
  return std::ranges::any_of(word,
                             [](Char c) { return c != u'_' && (c < u'a' || c > u'z') && (c < u'A' || c > u'Z'); });
}

class StrayWalk {
 public:
  explicit StrayWalk(ReadingPass& pass) : pass_(pass), source_(pass.source), strays_(source_.Reading().strays) {}

  void Run() {
    for (std::size_t i = 0; i < strays_.size(); ++i) {
      const std::size_t token = strays_[i].word;
      if (IsPlainBrace(source_, token, formats::kOpen) || IsPlainBrace(source_, token, formats::kClose)) {
        OnBrace(strays_[i]);
      } else if (!source_.TokenAt(token).isQuoted) {
        OnWord(i);
      }
    }
  }

 private:
  void OnBrace(const Stray& stray) {
    const bool opens = IsPlainBrace(source_, stray.word, formats::kOpen);
    const bool isKnown = FollowsTold(stray.word) || (opens ? quietBlock_ == stray.block : open_ > 0);
    if (!isKnown) pass_.Tell(Rule::StrayBrace, stray.word, opens ? "this { opens nothing" : "this } closes nothing");
    pass_.told[stray.word] = true;
    if (opens) {
      ++open_;
    } else {
      open_ -= open_ > 0 ? 1 : 0;
      if (quietBlock_ == stray.block) quietBlock_ = kNone;
    }
  }

  void OnWord(std::size_t index) {
    const Stray& stray = strays_[index];
    if (pass_.told[stray.word]) {
      ExpectBlock(index);
    } else if (quietBlock_ == stray.block || IsPartOfTold(stray) || IsRestOfCommand(source_, stray)) {
      pass_.told[stray.word] = true;
    } else {
      Tell(stray);
      ExpectBlock(index);
    }
  }

  [[nodiscard]] Scope ScopeOf(const Stray& stray) const { return source_.Reading().blocks[stray.block].scope; }
  [[nodiscard]] bool IsInLanguages(const Stray& stray) const {
    return ScopeOf(stray) == Scope::Section || ScopeOf(stray) == Scope::Languages;
  }
  [[nodiscard]] bool FollowsTold(std::size_t token) const { return token > 0 && pass_.told[token - 1]; }

  // Values of words that are told of, and the rest of an unquoted sentence.
  [[nodiscard]] bool IsPartOfTold(const Stray& stray) {
    if (!FollowsTold(stray.word)) return false;
    const StringView word = source_.ValueAt(stray.word);
    if (IsInLanguages(stray) || LooksLikeValue(word)) return true;
    if (HomeOf(word) != nullptr) return false;
    return stray.word == valueOfTold_ || NearestIn(ScopeOf(stray), word).empty();
  }

  // A block that may follow belongs to the word, whatever is in it.
  void ExpectBlock(std::size_t index) {
    std::size_t next = index + 1;
    for (std::size_t passed = 0; passed < 2 && next < strays_.size(); ++passed, ++next) {
      if (strays_[next].word != strays_[index].word + 1 + passed) return;
      if (!IsPlainBrace(source_, strays_[next].word, formats::kOpen)) continue;
      quietBlock_ = strays_[next].block;
      return;
    }
  }

  void Tell(const Stray& stray) {
    if (IsInLanguages(stray)) {
      TellInLanguages(stray);
    } else if (HomeOf(source_.ValueAt(stray.word)) != nullptr) {
      TellMisplaced(stray);
      valueOfTold_ = stray.word + 1;
    } else {
      TellUnknown(stray);
    }
  }

  void TellMisplaced(const Stray& stray) {
    const StringView word = source_.ValueAt(stray.word);
    std::string message = Quoted(word) + " does nothing here: it belongs into " + HomeOf(word);
    const formats::Tables header = formats::TablesOf(source_.Reading().blocks[0].scope);
    if (stray.block != 0 && header.Find(word) != nullptr) {
      message = Quoted(word) + " holds for the whole page: it belongs into the header";
    } else if (stray.block == 0 && word == word::kName && source_.Kind() != formats::FileKind::Style) {
      if (!IsPlainBrace(source_, 0, word::kName)) return void(pass_.told[stray.word] = true);
      message = "\"name\" counts as the first word of the file alone";
    }
    pass_.Tell(Rule::MisplacedWord, stray.word, std::move(message));
  }

  void TellUnknown(const Stray& stray) {
    const StringView word = source_.ValueAt(stray.word);
    std::string message = "unknown word " + Quoted(word);
    std::vector<formats::Edit> fix;
    if (word.front() == formats::kWidgetMark) {
      message += ", a widget's block begins with \"item\"";
      const std::size_t begin = source_.RangeAt(stray.word).begin;
      if (IsBlockName(stray.word)) fix.push_back({{begin, begin}, u"item "});
    } else if (const StringView nearest = NearestIn(ScopeOf(stray), word); !nearest.empty()) {
      message += ", did you mean " + Quoted(nearest) + '?';
      const StringView only = OnlyNearest(word, WordsOf(ScopeOf(stray)));
      if (!only.empty()) fix.push_back({source_.RangeAt(stray.word), String(only)});
      valueOfTold_ = stray.word + 1;
    }
    pass_.Tell(Rule::UnknownWord, stray.word, std::move(message), fix);
  }

  [[nodiscard]] bool IsBlockName(std::size_t token) const {
    return token + 1 < source_.Reading().tokens.size() && IsPlainBrace(source_, token + 1, formats::kOpen);
  }

  // `st12` is meant as `str12`; a word behind a text is the rest of one that lacks its quotes.
  void TellInLanguages(const Stray& stray) {
    const StringView word = source_.ValueAt(stray.word);
    const StringView digits = word.substr(word.find_last_not_of(u"0123456789") + 1);
    const StringView nearest = NearestIn(ScopeOf(stray), word.substr(0, word.size() - digits.size()));
    std::string message = "unknown word " + Quoted(word);
    std::vector<formats::Edit> fix;
    if (!nearest.empty() && (nearest == word::kTextPrefix) == !digits.empty()) {
      const String meant = String(nearest) + String(digits);
      message += ", did you mean " + Quoted(meant) + '?';
      if (!digits.empty()) fix.push_back({source_.RangeAt(stray.word), meant});
    } else if (ScopeOf(stray) == Scope::Section) {
      message += ": a text with blanks is put into double quotes";
    }
    pass_.Tell(Rule::UnknownWord, stray.word, std::move(message), fix);
  }

  // Only the first wrong words are compared with all known ones.
  StringView NearestIn(Scope scope, StringView word) {
    constexpr std::size_t kMost = 100;
    return ++looked_ > kMost ? StringView() : Nearest(word, WordsOf(scope));
  }

  ReadingPass& pass_;
  const Source& source_;
  const std::vector<Stray>& strays_;
  std::size_t quietBlock_ = kNone;   // where all words are part of what is told
  std::size_t valueOfTold_ = kNone;  // token, of a word that is told of and has a value
  std::size_t open_ = 0;             // braces that nobody reads and that are still to be closed
  std::size_t looked_ = 0;
};

}  // namespace

void CheckStrays(ReadingPass& pass) { StrayWalk(pass).Run(); }

}  // namespace qen::analysis
