#include "host/app/page_outline.h"

#include <algorithm>
#include <array>
#include <span>

namespace qen::host {
namespace {

// All of these have a value; it may look like a keyword.
constexpr std::array<StringView, 9> kHeaderWords{u"name",       u"anim_in",     u"anim_out",     u"anim", u"onmousewav",
                                                 u"onclickwav", u"onaniminwav", u"onanimoutwav", u"item"};
constexpr std::array<StringView, 32> kBlockWords{
    u"tooltip",      u"visible",       u"disabled",       u"min",          u"max",
    u"position",     u"checked",       u"message",        u"maxselect",    u"scale",
    u"alpha",        u"active",        u"texture",        u"id",           u"textid",
    u"centered",     u"editabled",     u"maxchars",       u"shadowoff",    u"color_normal",
    u"color_select", u"color_onmouse", u"color_disabled", u"color_shadow", u"color_shadowsel",
    u"font",         u"name",          u"commentid",      u"height",       u"width",
    u"weight",       u"italic"};
constexpr std::array<StringView, 4> kInnerBlocks{u"font", u"listitem", u"b_checked", u"b_unchecked"};

bool IsOneOf(std::span<const StringView> words, StringView word) {
  return std::ranges::find(words, word) != words.end();
}

}  // namespace

PageOutline OutlineOf(const std::vector<String>& tokens) {
  PageOutline outline;
  int depth = 0;  // of blocks
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const String& word = tokens[i];
    const bool isItem = depth == 0 && word == u"item";
    const bool hasValue = depth == 0 ? IsOneOf(kHeaderWords, word) : IsOneOf(kBlockWords, word);
    if (depth > 0 && word == u"}") --depth;
    if (isItem || (depth > 0 && IsOneOf(kInnerBlocks, word))) ++depth;
    if (!hasValue) continue;
    if (++i == tokens.size()) {
      outline.unfinished = word;
    } else if (isItem) {
      outline.items.push_back(tokens[i]);
    }
  }
  return outline;
}

}  // namespace qen::host
