#include "analysis/rules.h"

#include <algorithm>

namespace qen::analysis {
namespace {

using enum Severity;

constexpr std::array<RuleInfo, kRuleCount> kRules{{
    {Rule::UnknownWord, "unknown-word", Error, "a word that no reader knows where it stands",
     "item ~bPlay { toltip 12 }", "Write the keyword that is meant. A remark goes into double quotes."},
    {Rule::MisplacedWord, "misplaced-word", Warning, "a keyword that does nothing where it stands",
     "item ~bPlay { min 0 }", "Take it out, or put it where it belongs."},
    {Rule::WrongValue, "wrong-value", Error, "a value that is not what its keyword asks for",
     "item ~bPlay { textid ten }", "Write a whole number, a decimal with a point, or a colour as bbggrr."},
    {Rule::OutOfRange, "out-of-range", Warning, "a number that makes no sense there, or does not fit 32 bits",
     "item ~qSlot1 { alpha 300 }", "Write a number of the range that the message names."},
    {Rule::MinAboveMax, "min-above-max", Warning, "a slide bar whose min is above its max",
     "item ~sMusic { min 10 max 5 }", "Exchange them."},
    {Rule::PositionOutside, "position-outside", Warning, "a slide bar's position that is not between min and max",
     "item ~sMusic { min 0 max 10 position 50 }", "Choose one of the range."},
    {Rule::MissingValue, "missing-value", Error, "a keyword without a value", "item ~bPlay { textid }",
     "Write the value behind it."},
    {Rule::UnclosedBlock, "unclosed-block", Error, "a block that is not closed: the next one's words become its own",
     "item ~bPlay { textid 2\nitem ~bQuit { textid 3 }", "Close it with a } of its own."},
    {Rule::StrayBrace, "stray-brace", Warning, "a brace that belongs to no block", "item ~bPlay { textid 2 } }",
     "Take it out, or look whether one is missing or too many before it."},
    {Rule::GluedBrace, "glued-brace", Error, "a brace that is part of a word, since nothing is between them",
     "item ~bPlay {textid 2}", "Put a blank before and behind braces."},
    {Rule::UnclosedQuote, "unclosed-quote", Error, "a double quote without a second one: it swallows what follows",
     "item ~bPlay { font \"DejaVu Sans { height -38 } }", "Write the second quote."},
    {Rule::QuoteOverLines, "quote-over-lines", Warning, "a quoted value that goes over a line's end",
     "message \"setpage:\noptions.glb\"", "Write it on one line. In texts, \\n stands for a line's end."},
    {Rule::ItemWithoutMark, "item-without-mark", Error, "an item block whose name does not begin with ~",
     "item bPlay { textid 2 }", "Write the name as the scene's node has it."},
    {Rule::NoNameFirst, "no-name-first", Error, "a page or bag file whose first word is not name: it stays empty",
     "anim_in anims\\menu_in.glb\nname scenes\\menu.glb", "Begin the file with name and the scene."},
    {Rule::ValueAsKeyword, "value-as-keyword", Warning, "a value that its reader takes as a keyword, too",
     "anim_in anim_out", "Give the file another name."},
    {Rule::ByteOrderMark, "byte-order-mark", Error, "a byte-order mark where none is skipped: it spoils the first word",
     "lang texts.txt   (behind EF BB BF)", "Save the file without one."},
    {Rule::WrongEncoding, "wrong-encoding", Error, "a file in UTF-16 with the big end first, which no reader takes",
     "name scenes\\menu.glb   (in UTF-16BE)", "Save the file as UTF-8."},
    {Rule::WrongBytes, "wrong-bytes", Error, "bytes that are no UTF-8", "str1 \"Men\\xFC\"   (in Latin-1)",
     "Save the file as UTF-8."},
    {Rule::TextBehindEnd, "text-behind-end", Warning, "text behind U+0000, where files end",
     "item ~bPlay { }\\0 anim x", "Take out the zero, or the text behind it."},
    {Rule::ShortFile, "short-file", Error, "a page, bag or style of less than two characters, which is refused", "x",
     "Write what it is to say, or take it out of the description."},
    {Rule::UnknownRule, "unknown-rule", Warning, "a comment that silences a rule which does not exist",
     "\"check: off unknown-wrod\"", "Write the rule as the findings name it."},

    {Rule::BlockWithoutNode, "block-without-node", Error, "an item block whose widget the scene does not have",
     "item ~bPaly { textid 2 }   (the node is ~bPlay)", "Write the name of the node, or take the block out."},
    {Rule::WidgetWithoutBlock, "widget-without-block", Note, "a widget of the scene without an item block",
     "(a node ~bPlay, and no block for it)", "Write a block, if it is to say or do something."},
    {Rule::RepeatedBlock, "repeated-block", Warning, "a second block for a widget, which changes what the first set",
     "item ~bPlay { textid 2 }\nitem ~bPlay { textid 3 }", "Make one of them."},
    {Rule::RepeatedNode, "repeated-node", Warning, "two widgets of one name: both move the first one's node",
     "item ~bPlay { }   (with two nodes ~bPlay)", "Give each node a name of its own."},
    {Rule::UnknownKind, "unknown-kind", Warning, "a node that begins with ~ but makes no widget of this page",
     "(a node ~xPlay; or ~qSlot on a page that is no bag)", "Write the letter of a kind behind ~."},
    {Rule::LetterCase, "letter-case", Warning, "a name whose letters are right but for their case, where case matters",
     "(a node ~BPlay, or camera01)", "Write it in the case that the message names."},
    {Rule::MissingChild, "missing-child", Error, "a widget without a child node that its kind needs",
     "(a node ~bPlay without a child normal)", "Add the child, or correct its name."},
    {Rule::BlankInName, "blank-in-name", Warning,
     "a widget's name with a blank: it must be quoted, and is not saved so", "item \"~bPlay game\" { textid 2 }",
     "Name the node without blanks."},

    {Rule::ScaledText, "scaled-text", Warning, "a text's box that is scaled or turned: its words are, too",
     "item ~tTitle { textid 1 }   (its node is scaled by 2)", "Apply scale and rotation in the 3D tool."},
    {Rule::Covered, "covered", Warning, "a label or widget behind a solid face",
     "item ~bPlay { textid 2 }   (its text is behind its normal)", "Move it towards the viewer."},
    {Rule::StateBoxes, "state-boxes", Warning, "states of a button whose boxes differ: it is hit where normal is",
     "item ~bPlay { }   (onmouse is twice as wide as normal)", "Give all states the same size and place."},
    {Rule::ListOffNode, "list-off-node", Warning,
     "a list whose mesh is not centred on its node: clicks beside it count",
     "item ~lSaves { }   (the mesh list lies right of its node)",
     "Set the mesh's origin to its middle in the 3D tool."},
    {Rule::CameraOfOthers, "camera-of-others", Warning, "a Camera01 that changes how other pages are seen",
     "name scenes\\menu.glb   (with a camera; the other pages have none)",
     "Give all pages the same Camera01, or none."},
    {Rule::SamePageName, "same-page-name", Error, "two pages of one name: only the last one has its scene",
     "name scenes\\a\\menu.glb   (and scenes\\b\\menu.glb in another page)", "Give the scenes different names."},
    {Rule::UnknownChannel, "unknown-channel", Warning, "an animation that moves a node which the scene does not have",
     "anim_in anims\\menu_in.glb   (it moves Door, the node is door)", "Export both from the same file."},
    {Rule::ExitWithoutEntrance, "exit-without-entrance", Warning,
     "a page that leaves with an animation but enters without one", "anim_out anims\\menu_out.glb   (and no anim_in)",
     "Give it an entrance, or let it leave at once."},
    {Rule::NotDrawn, "not-drawn", Note, "something in a scene that is passed over when it is drawn",
     "name scenes\\menu.glb   (with an armature, or with nine lights)",
     "Apply armatures, shape keys and modifiers in the 3D tool; bake what else is to be seen into textures."},

    {Rule::UnknownPage, "unknown-page", Error, "a command for a page that does not exist",
     "message setpage:Options.glb", "Write the page's name: the scene behind the last backslash, in its letter case."},
    {Rule::UnknownWidget, "unknown-widget", Error, "a command for a widget that does not exist",
     "message settext:~thnit", "Write the widget's name, in lower case."},
    {Rule::MissingArgument, "missing-argument", Error, "a command without what it is for",
     "message setpage:", "Write the page or widget behind the colon."},
    {Rule::BlankInCommand, "blank-in-command", Error, "a blank in a command: it ends there",
     "message setpage: options.glb", "Take the blank out."},
    {Rule::ThirdPart, "third-part", Warning, "a command with a second colon: what is behind it is left out",
     "message setpage:options.glb:fast", "Take the rest out, or use another sign than a colon."},
    {Rule::NothingToSet, "nothing-to-set", Error, "settext for what has no text, or from what has none to give",
     "message settext:~pmap", "Name a text, or a widget with a label."},
    {Rule::OneSidedRadio, "one-sided-radio", Warning, "a radio group whose members do not all name each other",
     "item ~cEasy { message radiogroup:~chard }   (and nothing at ~cHard)",
     "Write the command at the other one as well."},
    {Rule::AlmostCommand, "almost-command", Warning, "a command that is nearly one of the GUI's own",
     "message setpgae:options.glb", "Write the word as the GUI knows it."},
    {Rule::GameCommand, "game-command", Note, "a command that is left to the game",
     "message quit:", "Nothing, if the game knows it. What guihost's game script names is not told."},
    {Rule::UnreachedPage, "unreached-page", Note, "a page that is not the first one and that no command shows",
     "name pages\\secret.txt   (in the description)", "Show it with a command, or from the game."},
    {Rule::NoWayOut, "no-way-out", Note, "a page that no command of its own leaves", "item ~bBack { }",
     "Give it a way back, or leave it from the game."},

    {Rule::MissingFile, "missing-file", Error, "a definition, scene or animation that cannot be read",
     "name scenes\\mneu.glb", "Write the file as it is called, from the root of the data."},
    {Rule::UnreadableFile, "unreadable-file", Error, "a scene or animation that is broken",
     "name scenes\\menu.txt   (no glTF)", "Export it again."},
    {Rule::MissingMedia, "missing-media", Error, "a sound or picture that cannot be read",
     "onclickwav sounds\\clik.wav", "Write the file as it is called, from the root of the data."},
    {Rule::MissingFace, "missing-face", Warning, "a font that is not installed here",
     "font \"DejaVu Sanss\" { height -38 }", "Install it, ship it with the game, or take another."},

    {Rule::MissingText, "missing-text", Error, "a text id without words in a language", "item ~bPlay { textid 99 }",
     "Write the text into the language's section, or another id."},
    {Rule::UntranslatedText, "untranslated-text", Warning, "a text that one language has and another does not",
     "str99 \"Play\"   (in one section only)", "Translate it, or take it out."},
    {Rule::RepeatedText, "repeated-text", Warning, "an id twice in a section: the first one counts",
     "str1 \"Play\"\nstr1 \"Quit\"", "Give the second another id, or take it out."},
    {Rule::UnusedText, "unused-text", Note, "a text that no definition names", "str99 \"Play\"",
     "Take it out, unless the game uses it."},
    {Rule::TextTooLong, "text-too-long", Warning, "words that do not fit the box that they are written into",
     "item ~bPlay { textid 2 }   (\"Spielstand laden\" in a narrow button)",
     "Make the box larger, or the words fewer."},
    {Rule::MissingLetters, "missing-letters", Warning, "letters that no font here has", "str1 \"\\uE000\"",
     "Write other letters, or install a font that has them."},
}};

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kRules.size(); ++i) {
    if (static_cast<std::size_t>(kRules[i].rule) != i) return false;
  }
  return true;
}
static_assert(IsInOrder());

}  // namespace

const std::array<RuleInfo, kRuleCount>& Rules() { return kRules; }

const RuleInfo& InfoOf(Rule rule) { return kRules[static_cast<std::size_t>(rule)]; }

const RuleInfo* FindRule(std::string_view id) {
  const auto* found = std::ranges::find_if(kRules, [id](const RuleInfo& rule) { return id == rule.id; });
  return found == kRules.end() ? nullptr : &*found;
}

}  // namespace qen::analysis
