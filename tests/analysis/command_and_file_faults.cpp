#include "seeded_faults.h"

namespace qen::analysis {
namespace {

constexpr SeededFault kCommandAndFileFaults[] = {
    {"page_in_wrong_case", Rule::UnknownPage, kMenuFile,
     "setpage:", [](SoundGui& gui) { gui.Replace(kMenuFile, "options.glb", "Options.glb"); }},
    {"page_that_is_near", Rule::UnknownPage, kMenuFile,
     "setpage:", [](SoundGui& gui) { gui.Replace(kMenuFile, "options.glb", "optoins.glb"); }},
    {"page_like_no_other", Rule::UnknownPage, kMenuFile,
     "setpage:", [](SoundGui& gui) { gui.Replace(kMenuFile, "options.glb", "elsewhere.glb"); }},
    {"page_in_a_quote", Rule::UnknownPage, kMenuFile,
     "\"setpage:", [](SoundGui& gui) { gui.Replace(kMenuFile, "setpage:options.glb", "\"setpage:Options.glb\""); }},
    {"widget_in_scene_case", Rule::UnknownWidget, kMenuFile,
     "settext:", [](SoundGui& gui) { gui.Replace(kMenuFile, "~tstory", "~tStory"); }},
    {"widget_without_mark", Rule::UnknownWidget, kOptionsFile,
     "visible/unvisible:", [](SoundGui& gui) { gui.Replace(kOptionsFile, ":~tmusic", ":tmusic"); }},
    {"widget_of_a_radio_group", Rule::UnknownWidget, kOptionsFile,
     "radiogroup:", [](SoundGui& gui) { gui.Replace(kOptionsFile, ":~chard", ":~cheavy"); }},
    {"page_word_without_argument", Rule::MissingArgument, kMenuFile,
     "setpage:", [](SoundGui& gui) { gui.Replace(kMenuFile, "setpage:options.glb", "setpage:"); }},
    {"page_word_without_colon", Rule::MissingArgument, kMenuFile, "setpage\n",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "setpage:options.glb", "setpage"); }},
    {"widget_word_without_argument", Rule::MissingArgument, kOptionsFile,
     "radiogroup:", [](SoundGui& gui) { gui.Replace(kOptionsFile, ":~chard", ":"); }},
    {"argument_without_word", Rule::MissingArgument, kMenuFile, ":quit",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "quit:", ":quit"); }},
    {"blank_behind_colon", Rule::BlankInCommand, kMenuFile,
     "setpage:", [](SoundGui& gui) { gui.Replace(kMenuFile, "setpage:", "setpage: "); }},
    {"blank_before_colon", Rule::BlankInCommand, kOptionsFile, "radiogroup",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "radiogroup:", "radiogroup :"); }},
    {"blank_in_command_of_the_game", Rule::BlankInCommand, kOptionsFile,
     "volume:", [](SoundGui& gui) { gui.Replace(kOptionsFile, "volume:", "volume: "); }},
    {"third_part", Rule::ThirdPart, kMenuFile,
     "setpage:", [](SoundGui& gui) { gui.Replace(kMenuFile, "options.glb", "options.glb:fast"); }},
    {"set_picture", Rule::NothingToSet, kMenuFile,
     "settext:", [](SoundGui& gui) { gui.Replace(kMenuFile, "~tstory", "~pmap"); }},
    {"set_from_entry_without_comment", Rule::NothingToSet, kMenuFile, "settext:",
     [](SoundGui& gui) {
       gui.Replace(kMenuFile, "\t\tcommentid 9\n", "");
       gui.Replace(kMenuFile, "item ~tStory {", "item ~tStory { textid 9");
     }},
    {"set_from_picture", Rule::NothingToSet, kOptionsFile,
     "settext:", [](SoundGui& gui) { gui.Replace(kOptionsFile, "id 7", "id 7 message settext:~tmusic"); }},
    {"set_from_unchecked_button", Rule::NothingToSet, kMenuFile,
     "settext:", [](SoundGui& gui) { gui.Replace(kMenuFile, "quit:", "settext:~tstory\n\tmessage quit:"); }},
    {"radio_without_answer", Rule::OneSidedRadio, kOptionsFile, "radiogroup:~chard",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "message radiogroup:~ceasy", ""); }},
    {"command_with_swapped_letters", Rule::AlmostCommand, kMenuFile,
     "setpgae:", [](SoundGui& gui) { gui.Replace(kMenuFile, "setpage:", "setpgae:"); }},
    {"command_in_wrong_case", Rule::AlmostCommand, kOptionsFile,
     "RadioGroup:", [](SoundGui& gui) { gui.Replace(kOptionsFile, "radiogroup:", "RadioGroup:"); }},
    {"command_of_the_game", Rule::GameCommand, kMenuFile,
     "leave:", [](SoundGui& gui) { gui.Replace(kMenuFile, "quit:", "leave:\n\tmessage leave:now"); }},
    {"command_in_a_remark_of_the_script", Rule::GameCommand, kMenuFile,
     "quit:", [](SoundGui& gui) { gui.Replace(kScriptFile, "gui.on(\"quit\"", "-- the game's gui.on(\"quit\""); }},
    {"command_in_a_long_remark_of_the_script", Rule::GameCommand, kMenuFile, "quit:",
     [](SoundGui& gui) {
       gui.files[kScriptFile] =
           "gui.on([[volume]], hear) --[==[ \"quit\" ]] ]==] gui.show('bag') gui.print('a\\'quit')";
     }},
    {"page_that_nobody_shows", Rule::UnreachedPage, kDescriptionFile, "name |pages\\options.txt",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "options.glb", "bag.glb"); }},
    {"page_that_only_itself_shows", Rule::UnreachedPage, kDescriptionFile, "name |pages\\options.txt",
     [](SoundGui& gui) {
       gui.Replace(kMenuFile, "options.glb", "bag.glb");
       gui.Replace(kOptionsFile, "undopage:", "setpage:options.glb");
     }},
    {"page_without_a_way_out", Rule::NoWayOut, kOptionsFile, "scenes\\options.glb",
     [](SoundGui& gui) {
       gui.Replace(kOptionsFile, "undopage:", "setpage:options.glb");
       gui.Replace(kOptionsFile, "\tmessage volume:music\n", "");
     }},
    {"bag_that_is_not_taken_away", Rule::NoWayOut, kBagFile, "scenes\\bag.glb",
     [](SoundGui& gui) {
       gui.files[kScriptFile] = "gui.on(\"quit\", leave) gui.on('volume', hear)";
       gui.Replace(kMenuFile, "setpage:", "addrenderpage:bag.glb\n\tmessage setpage:");
     }},

    {"missing_page_file", Rule::MissingFile, kDescriptionFile, "pages\\options.txt",
     [](SoundGui& gui) { gui.files.erase(kOptionsFile); }},
    {"missing_scene", Rule::MissingFile, kBagFile, "scenes\\bag.glb",
     [](SoundGui& gui) { gui.files.erase(kBagScene); }},
    {"broken_scene", Rule::UnreadableFile, kOptionsFile, "scenes\\options.glb",
     [](SoundGui& gui) { gui.files[kOptionsScene] = "bad"; }},
    {"missing_animation", Rule::MissingFile, kMenuFile, "anims\\menu_in.glb",
     [](SoundGui& gui) { gui.files.erase(kMenuIn); }},
    {"broken_animation", Rule::UnreadableFile, kMenuFile, "anims\\menu_out.glb",
     [](SoundGui& gui) { gui.files[kMenuOut] = "bad"; }},
    {"channel_in_wrong_case", Rule::UnknownChannel, kMenuFile, "anims\\menu_in.glb",
     [](SoundGui& gui) { gui.animations[kMenuIn].nodes[0].node = u"~ttitle"; }},
    {"missing_slot_picture", Rule::MissingMedia, kBagFile, "textures\\lamp.png",
     [](SoundGui& gui) { gui.files.erase("textures\\lamp.png"); }},
    {"missing_style_picture", Rule::MissingMedia, kStyleFile, "textures\\tip.png",
     [](SoundGui& gui) { gui.files.erase("textures\\tip.png"); }},
    {"missing_sound", Rule::MissingMedia, kMenuFile, "sounds\\clik.wav",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "click.wav", "clik.wav"); }},
};

}  // namespace

std::span<const SeededFault> CommandAndFileFaults() { return kCommandAndFileFaults; }

}  // namespace qen::analysis
