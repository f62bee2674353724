// The kinds of widgets that definitions can name, by the letter behind the "~" of their nodes' names.
#pragma once

#include <array>

#include "engine/types.h"

namespace qen::formats {

inline constexpr Char kWidgetMark = u'~';

struct WidgetKind {
  Char letter;
  const char* name;
  const char* names;  // several
};

inline constexpr std::array<WidgetKind, 7> kWidgetKinds{{
    {u'b', "button", "buttons"},
    {u'c', "check button", "check buttons"},
    {u'l', "list", "lists"},
    {u'p', "picture", "pictures"},
    {u's', "slide bar", "slide bars"},
    {u't', "text", "texts"},
    {u'q', "bag slot", "bag slots"},
}};

// Sets of kinds.
inline constexpr StringView kAnyWidget = u"bclpstq";
inline constexpr StringView kPageWidgets = u"bclpst";  // not on a bag page
inline constexpr StringView kWithText = u"bclt";       // texts, and those that have a label
inline constexpr Char kSlotLetter = u'q';              // the kind of bag pages

// Whether nodes of that letter are widgets of such a page.
constexpr bool IsWidgetLetter(Char letter, bool isBag) {
  return isBag ? letter == kSlotLetter : kPageWidgets.find(letter) != StringView::npos;
}

}  // namespace qen::formats
