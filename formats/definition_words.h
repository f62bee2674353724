// The keywords of all definition files, a table a format. Readers try those of a table in its order.
#pragma once

#include <array>
#include <span>

#include "formats/keyword.h"
#include "formats/widget_kinds.h"

namespace qen::formats {

namespace word {

inline constexpr StringView kLang = u"lang";
inline constexpr StringView kName = u"name";
inline constexpr StringView kBagName = u"bagname";
inline constexpr StringView kTool = u"tool";

inline constexpr StringView kAnimIn = u"anim_in";
inline constexpr StringView kAnimOut = u"anim_out";
inline constexpr StringView kAnim = u"anim";
inline constexpr StringView kOnMouseWav = u"onmousewav";
inline constexpr StringView kOnClickWav = u"onclickwav";
inline constexpr StringView kOnAnimInWav = u"onaniminwav";
inline constexpr StringView kOnAnimOutWav = u"onanimoutwav";

inline constexpr StringView kItem = u"item";
inline constexpr StringView kTooltip = u"tooltip";
inline constexpr StringView kVisible = u"visible";
inline constexpr StringView kDisabled = u"disabled";
inline constexpr StringView kMin = u"min";
inline constexpr StringView kMax = u"max";
inline constexpr StringView kPosition = u"position";
inline constexpr StringView kChecked = u"checked";
inline constexpr StringView kMessage = u"message";
inline constexpr StringView kMaxSelect = u"maxselect";
inline constexpr StringView kScale = u"scale";
inline constexpr StringView kAlpha = u"alpha";
inline constexpr StringView kActive = u"active";
inline constexpr StringView kTexture = u"texture";
inline constexpr StringView kId = u"id";
inline constexpr StringView kListItem = u"listitem";
inline constexpr StringView kBChecked = u"b_checked";
inline constexpr StringView kBUnchecked = u"b_unchecked";

inline constexpr StringView kTextId = u"textid";
inline constexpr StringView kCommentId = u"commentid";
inline constexpr StringView kCentered = u"centered";
inline constexpr StringView kEditabled = u"editabled";
inline constexpr StringView kMaxChars = u"maxchars";
inline constexpr StringView kShadowOff = u"shadowoff";
inline constexpr StringView kColorNormal = u"color_normal";
inline constexpr StringView kColorSelect = u"color_select";
inline constexpr StringView kColorOnMouse = u"color_onmouse";
inline constexpr StringView kColorDisabled = u"color_disabled";
inline constexpr StringView kColorShadow = u"color_shadow";
inline constexpr StringView kColorShadowSel = u"color_shadowsel";
inline constexpr StringView kFont = u"font";

inline constexpr StringView kHeight = u"height";
inline constexpr StringView kWidth = u"width";
inline constexpr StringView kWeight = u"weight";
inline constexpr StringView kItalic = u"italic";

inline constexpr StringView kTextPrefix = u"str";  // of an entry in a language's section; the text id follows at once

}  // namespace word

inline constexpr StringView kFirstLanguage = u"english";  // the one that is loaded with a description

// The GUI description.
inline constexpr std::array<Keyword, 4> kDescription{{
    {word::kLang, Value::Language, u"", u"", "the language file; the last one counts"},
    {word::kName, Value::Page, u"", u"", "a page; each adds one, in this order"},
    {word::kBagName, Value::Bag, u"", u"", "a bag page; each adds one"},
    {word::kTool, Value::Style, u"", u"", "the style file; the last one counts"},
}};

// A language file: sections, each with its entries up to the closing brace.
inline constexpr std::array<Keyword, 1> kLanguage{{
    {word::kLang, Value::Block, u"", u"", "a language: its name, and its texts"},
}};

// A page file, and a bag file as far as its animations, in front of the item blocks.
inline constexpr std::array<Keyword, 8> kPageHeader{{
    {word::kName, Value::Scene, u"", u"",
     "the page's scene. Must be the first word of the file, or the page has no scene and no widgets."},
    {word::kAnimIn, Value::Animation, u"", u"", "played when the page is activated; the last one that loads counts"},
    {word::kAnimOut, Value::Animation, u"", u"", "played when the page is deactivated; the last one that loads counts"},
    {word::kAnim, Value::Animation, u"", u"", "a further animation, for the game to play"},
    {word::kOnMouseWav, Value::Sound, u"", u"", "when the cursor comes to a widget"},
    {word::kOnClickWav, Value::Sound, u"", u"", "when a widget is clicked"},
    {word::kOnAnimInWav, Value::Sound, u"", u"", "when the page is activated"},
    {word::kOnAnimOutWav, Value::Sound, u"", u"", "when the page is deactivated"},
}};
// Behind the scene: a value is tried as one of the keywords further down, too.
inline constexpr std::span<const Keyword> kPageKeys = std::span<const Keyword>(kPageHeader).subspan(1);
inline constexpr std::span<const Keyword> kBagKeys = kPageKeys.first(3);

// An item block, behind the widget's name. The keywords of texts may stand there too; no word is in both tables.
inline constexpr std::array<Keyword, 17> kItem{{
    {word::kTooltip, Value::TextId, u"bclst", u"-1", "text id of the tooltip"},
    {word::kVisible, Value::Flag, kPageWidgets, u"1", "0 hides it"},
    {word::kDisabled, Value::Flag, kPageWidgets, u"0",
     "1: shows its disabled state, takes no clicks; of a list: its slide bar alone"},
    {word::kMin, Value::Number, u"s", u"0", "least position; lists and scrolling texts set their own"},
    {word::kMax, Value::Number, u"s", u"100", "greatest position; lists and scrolling texts set their own"},
    {word::kPosition, Value::Number, u"slt", u"0", "position of the slide bar; top row or line"},
    {word::kChecked, Value::Flag, u"c", u"1", "whether it is checked"},
    {word::kMessage, Value::Command, kAnyWidget, u"",
     "a command, word and argument; several lines, several commands, in this order"},
    {word::kMaxSelect,
     Value::Number,
     u"l",
     u"1",
     "how many entries may be selected; 0: the top row is (a spinner)",
     {0}},
    {word::kScale, Value::Decimal, u"q", u"1", "size of the slot; an active one pulses between 1 and this"},
    {word::kAlpha, Value::Number, u"q", u"255", "0 clear to 255 solid", {0, 255}},
    {word::kActive, Value::Flag, u"q", u"0", "1: the selected entry is shown here, and the slot pulses"},
    {word::kTexture, Value::Picture, u"q", u"textures\\guitex\\default_bag", "the slot's own picture"},
    {word::kId, Value::Number, kAnyWidget, u"its number on the page, from 0; of slots: through all bags",
     "a number for the game; in a bag the order of the slots"},
    {word::kListItem, Value::Block, u"l", u"", "adds an entry"},
    {word::kBChecked, Value::Block, u"c", u"", "keywords of texts for the label of its `checked`"},
    {word::kBUnchecked, Value::Block, u"c", u"", "keywords of texts for the label of its `unchecked`"},
}};

// A text, or the label of another widget.
inline constexpr std::array<Keyword, 12> kText{{
    {word::kTextId, Value::TextId, kWithText, u"-1", "id of the words; -1: the words that the game sets"},
    {word::kCentered, Value::Flag, kWithText, u"0", "1: centred between the sides of its box"},
    {word::kEditabled, Value::Flag, kWithText, u"0", "1: a click lets the user write"},
    {word::kMaxChars, Value::Number, kWithText, u"16", "how much may be written, in 16-bit units", {0}},
    {word::kShadowOff, Value::Decimal, kWithText, u"0",
     "how far the shadow lies to the right and below, in tenths of a unit; the fraction is cut off; 0: no shadow"},
    {word::kColorNormal, Value::Color, kWithText, u"ffffff", "colour"},
    {word::kColorSelect, Value::Color, kWithText, u"ff", "selected rows of a list"},
    {word::kColorOnMouse, Value::Color, kWithText, u"ffff", "under the cursor"},
    {word::kColorDisabled, Value::Color, kWithText, u"a0a0a0", "disabled"},
    {word::kColorShadow, Value::Color, kWithText, u"0", "shadow"},
    {word::kColorShadowSel, Value::Color, kWithText, u"0", "shadow under the cursor, and of selected rows"},
    {word::kFont, Value::Face, kWithText, u"Courier", "the font"},
}};

// The block behind a face name. What is not named keeps its value.
inline constexpr std::array<Keyword, 4> kFont{{
    {word::kHeight, Value::Number, u"", u"-21",
     "negative: pixels of the em square, as sizes of fonts are mostly told; positive: of a whole line. A pixel is 0.14 "
     "units of the scene."},
    {word::kWidth, Value::Number, u"", u"0", "average width of a character; 0: as the face has it", {0}},
    {word::kWeight, Value::Number, u"", u"700", "400 normal, 700 bold", {0, 1000}},
    {word::kItalic, Value::Number, u"", u"0", "255 (or -1) is italic, everything else upright", {-1, 255}},
}};

// The block of a list's entry.
inline constexpr std::array<Keyword, 5> kEntry{{
    {word::kName, Value::Text, u"", u"NewItem", "the entry's name, for the game"},
    {word::kTextId, Value::TextId, u"", u"-1", "id of its words; -1: the words that the game sets, `NewItem` at first"},
    {word::kCommentId, Value::TextId, u"", u"-1", "text that the command `settext` shows for it"},
    {word::kTooltip, Value::TextId, u"", u"-1", "text id of its tooltip"},
    {word::kMessage, Value::Command, u"", u"", "a command, sent when the entry gains or loses the selection"},
}};

inline constexpr std::array<Keyword, 3> kStyle{{
    {word::kColorNormal, Value::Color, u"", u"", "colour of its words"},
    {word::kFont, Value::Face, u"", u"Courier, height -18, weight 700", "font of its words"},
    {word::kTexture, Value::Picture, u"", u"", "picture behind the tooltip"},
}};

}  // namespace qen::formats
