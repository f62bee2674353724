#include "base/utf.h"
#include "seeded_faults.h"

namespace qen::analysis {
namespace {

// In UTF-16, without a byte-order mark.
std::string Utf16(const std::string& utf8, bool bigEndFirst) {
  std::string bytes;
  for (const Char unit : base::ToUtf16(utf8)) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    bytes += bigEndFirst ? high : low;
    bytes += bigEndFirst ? low : high;
  }
  return bytes;
}

constexpr const char* kRemark = "\"What the game is called.\"";

constexpr SeededFault kReadingFaults[] = {
    {"misspelt_word", Rule::UnknownWord, kMenuFile, "centred",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "centered 1", "centred 1"); }},
    {"misspelt_word_of_the_header", Rule::UnknownWord, kMenuFile, "onclikwav",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "onclickwav", "onclikwav"); }},
    {"misspelt_item", Rule::UnknownWord, kMenuFile, "itme",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "item ~tStory", "itme ~tStory"); }},
    {"block_without_item", Rule::UnknownWord, kMenuFile, "~tStory",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "item ~tStory", "~tStory"); }},
    {"misspelt_word_of_a_block", Rule::UnknownWord, kMenuFile, "lisitem",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "maxselect 1", "lisitem { name two }\n\tmaxselect 1"); }},
    {"remark_without_quotes", Rule::UnknownWord, kMenuFile, "What",
     [](SoundGui& gui) { gui.Replace(kMenuFile, kRemark, "What they see first."); }},
    {"text_without_quotes", Rule::UnknownWord, kTextsFile, "Spiel",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\"Ende\"", "Das Spiel beenden"); }},
    {"misspelt_word_of_a_text", Rule::UnknownWord, kTextsFile, "st12",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\tstr1 ", "\tst12 \"More\"\n\tstr1 "); }},
    {"unknown_word_of_the_description", Rule::UnknownWord, kDescriptionFile, "music",
     [](SoundGui& gui) { gui.Replace(kDescriptionFile, "tool", "music sounds\\click.wav\ntool"); }},

    {"word_of_another_kind", Rule::MisplacedWord, kMenuFile, "min 0",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "quit:", "quit:\n\tmin 0"); }},
    {"texture_of_a_page", Rule::MisplacedWord, kMenuFile, "texture",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "quit:", "quit:\n\ttexture textures\\key.png"); }},
    {"page_word_of_a_slot", Rule::MisplacedWord, kBagFile, "visible",
     [](SoundGui& gui) { gui.Replace(kBagFile, "id 2", "id 2 visible 0"); }},
    {"label_of_a_picture", Rule::MisplacedWord, kOptionsFile, "textid 5 }",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "id 7 }", "id 7 textid 5 }"); }},
    {"entry_of_a_button", Rule::MisplacedWord, kMenuFile, "listitem { name x",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "quit:", "quit:\n\tlistitem { name x }"); }},
    {"header_word_of_an_item", Rule::MisplacedWord, kMenuFile, "onmousewav",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "quit:", "quit:\n\tonmousewav sounds\\click.wav"); }},
    {"item_word_of_the_header", Rule::MisplacedWord, kMenuFile, "visible",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "anim_in", "visible 0\nanim_in"); }},
    {"font_word_of_an_item", Rule::MisplacedWord, kMenuFile, "height 5",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "centered 1", "centered 1\n\theight 5"); }},
    {"font_of_an_entry", Rule::MisplacedWord, kMenuFile, "name one |font",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "name one", "name one font \"Serif\" { height -9 }"); }},
    {"second_name", Rule::MisplacedWord, kMenuFile, "\n|name scenes",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "anim_in", "name scenes\\options.glb\nanim_in"); }},
    {"sound_of_a_bag", Rule::MisplacedWord, kBagFile, "onclickwav",
     [](SoundGui& gui) { gui.Replace(kBagFile, "\n", "\nonclickwav sounds\\click.wav\n"); }},

    {"word_for_a_number", Rule::WrongValue, kMenuFile, "maxselect |one",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "maxselect 1", "maxselect one"); }},
    {"number_with_a_unit", Rule::WrongValue, kMenuFile, "-40px",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "-40", "-40px"); }},
    {"letter_for_a_digit", Rule::WrongValue, kMenuFile, "-4O",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "-40", "-4O"); }},
    {"decimal_with_a_comma", Rule::WrongValue, kBagFile, "1,5",
     [](SoundGui& gui) { gui.Replace(kBagFile, "1.5", "1,5"); }},
    {"colour_of_other_formats", Rule::WrongValue, kMenuFile, "#10183a",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "10183a", "#10183a"); }},
    {"colour_of_seven_digits", Rule::WrongValue, kMenuFile, "10183aa",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "10183a", "10183aa"); }},
    {"text_id_with_letters", Rule::WrongValue, kTextsFile, "str1a",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "str1 ", "str1a "); }},
    {"flag_of_two", Rule::OutOfRange, kMenuFile, "centered |2",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "centered 1", "centered 2"); }},
    {"number_above_its_most", Rule::OutOfRange, kBagFile, "256",
     [](SoundGui& gui) { gui.Replace(kBagFile, "255", "256"); }},
    {"number_below_its_least", Rule::OutOfRange, kMenuFile, "maxselect |-1",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "maxselect 1", "maxselect -1"); }},
    {"number_beyond_32_bits", Rule::OutOfRange, kOptionsFile, "2147483648",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "{ id 7", "{ id 2147483648"); }},
    {"decimal_that_is_too_large", Rule::OutOfRange, kBagFile, "1e39",
     [](SoundGui& gui) { gui.Replace(kBagFile, "1.5", "1e39"); }},
    {"text_id_below_none", Rule::OutOfRange, kMenuFile, "tooltip |-2",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "quit:", "quit:\n\ttooltip -2"); }},
    {"max_below_min", Rule::MinAboveMax, kOptionsFile, "max |-1",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "max 10", "max -1"); }},
    {"min_above_the_max_that_is_not_written", Rule::MinAboveMax, kOptionsFile, "min |101",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "min 0\n\tmax 10", "min 101"); }},
    {"position_above_max", Rule::PositionOutside, kOptionsFile, "position |11",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "position 5", "position 11"); }},

    {"number_that_is_missing", Rule::MissingValue, kMenuFile, "maxselect",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "maxselect 1", "maxselect"); }},
    {"value_that_the_brace_ends", Rule::MissingValue, kBagFile, "texture  }",
     [](SoundGui& gui) { gui.Replace(kBagFile, "textures\\lamp.png", ""); }},
    {"value_that_the_file_ends", Rule::MissingValue, kStyleFile, "texture",
     [](SoundGui& gui) { gui.Replace(kStyleFile, "textures\\tip.png", ""); }},
    {"file_that_is_missing_before_an_item", Rule::MissingValue, kBagFile, "anim",
     [](SoundGui& gui) { gui.Replace(kBagFile, "\n", "\nanim\n"); }},
    {"item_without_a_name", Rule::MissingValue, kMenuFile, "item { ",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "item ~tStory", "item { visible 0 }\nitem ~tStory"); }},

    {"item_that_is_not_closed", Rule::UnclosedBlock, kBagFile, "item ~qSlot1",
     [](SoundGui& gui) { gui.Replace(kBagFile, "textures\\key.png }", "textures\\key.png"); }},
    {"font_that_is_not_closed", Rule::UnclosedBlock, kMenuFile, "font",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "weight 700 }", "weight 700"); }},
    {"font_that_is_not_closed_at_the_end", Rule::UnclosedBlock, kMenuFile, "item ~tStory { |font",
     [](SoundGui& gui) {
       gui.Replace(kMenuFile, "~tStory { font \"Serif\" { height -20 } }", "~tStory { font \"Serif\" { height -20");
     }},
    {"font_without_a_block", Rule::UnclosedBlock, kOptionsFile, "font \"Serif\"\n",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "font \"Serif\" { height -20 }", "font \"Serif\""); }},
    {"section_that_is_not_closed", Rule::UnclosedBlock, kTextsFile, "lang english",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "}", ""); }},
    {"brace_that_closes_nothing", Rule::StrayBrace, kOptionsFile, "id 7 } |}",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "id 7 }", "id 7 } }"); }},
    {"brace_that_opens_nothing", Rule::StrayBrace, kOptionsFile, "~pMap { |{",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "~pMap {", "~pMap { {"); }},
    {"pair_of_braces_for_nothing", Rule::StrayBrace, kMenuFile, "quit:\n\t|{",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "quit:\n\ttextid 3", "quit:\n\t{ textid 3 }"); }},
    {"brace_before_a_word", Rule::GluedBrace, kOptionsFile, "{id",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "{ id", "{id"); }},
    {"brace_behind_a_command", Rule::GluedBrace, kMenuFile, "settext:~tstory}",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "settext:~tstory\n\t}", "settext:~tstory}"); }},
    {"brace_behind_a_name", Rule::GluedBrace, kBagFile, "~qSlot2{",
     [](SoundGui& gui) { gui.Replace(kBagFile, "~qSlot2 {", "~qSlot2{"); }},
    {"braces_of_two_blocks", Rule::GluedBrace, kMenuFile, "}}",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "} }", "}}"); }},

    {"remark_that_is_not_closed", Rule::UnclosedQuote, kMenuFile, "\"What",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "called.\"", "called."); }},
    {"text_that_is_not_closed", Rule::UnclosedQuote, kTextsFile, "\"Menu",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\"Menu\"", "\"Menu"); }},
    {"face_that_is_not_closed", Rule::UnclosedQuote, kMenuFile, "\"Serif",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "\"Serif\"", "\"Serif"); }},
    {"value_over_two_lines", Rule::QuoteOverLines, kMenuFile, "\"one",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "name one", "name \"one\ntwo\""); }},
    {"item_without_the_mark", Rule::ItemWithoutMark, kMenuFile, "bPlay",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "item ~tStory", "item bPlay { visible 0 }\nitem ~tStory"); }},
    {"other_word_first", Rule::NoNameFirst, kBagFile, "anim",
     [](SoundGui& gui) { gui.Replace(kBagFile, "name", "anim anims\\menu_in.glb\nname"); }},
    {"misspelt_name_first", Rule::NoNameFirst, kBagFile, "nmae",
     [](SoundGui& gui) { gui.Replace(kBagFile, "name", "nmae"); }},
    {"page_of_blanks", Rule::NoNameFirst, kBagFile, "  \n", [](SoundGui& gui) { gui.files[kBagFile] = "  \n"; }},
    {"sound_named_like_a_word", Rule::ValueAsKeyword, kOptionsFile, "onaniminwav",
     [](SoundGui& gui) {
       gui.files["onaniminwav"] = "sound";
       gui.Replace(kOptionsFile, "onclickwav", "onclickwav onaniminwav");
     }},
    {"entry_named_like_a_word", Rule::ValueAsKeyword, kMenuFile, "name |anim",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "name one", "name anim"); }},
    {"text_like_a_section", Rule::ValueAsKeyword, kTextsFile, "\"lang\"",
     [](SoundGui& gui) { gui.Replace(kTextsFile, "\"Menu\"", "\"lang\""); }},

    {"mark_before_the_description", Rule::ByteOrderMark, kDescriptionFile, "lang",
     [](SoundGui& gui) { gui.files[kDescriptionFile].insert(0, "\xEF\xBB\xBF"); }},
    {"style_with_the_big_end_first", Rule::WrongEncoding, kStyleFile, "color_normal",
     [](SoundGui& gui) { gui.files[kStyleFile] = Utf16(gui.files[kStyleFile], true); }},
    {"remark_in_latin_1", Rule::WrongBytes, kMenuFile, "call|\uFFFD",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "called", "call\xE9"); }},
    {"text_behind_a_zero", Rule::TextBehindEnd, kStyleFile, "more",
     [](SoundGui& gui) {
       gui.files[kStyleFile] = Utf16(gui.files[kStyleFile] + std::string(2, '\0') + "more", false);
     }},
    {"style_of_one_letter", Rule::ShortFile, kStyleFile, "x", [](SoundGui& gui) { gui.files[kStyleFile] = "x"; }},
    {"rule_that_does_not_exist", Rule::UnknownRule, kMenuFile,
     "\"check:", [](SoundGui& gui) { gui.Replace(kMenuFile, kRemark, "\"check: off unknown-wrod\""); }},
};

}  // namespace

std::span<const SeededFault> ReadingFaults() { return kReadingFaults; }

}  // namespace qen::analysis
