#include "base/recording/scene_builder.h"
#include "seeded_faults.h"

namespace qen::analysis {
namespace {

constexpr Vec3 kAside{70.0F, 50.0F, 0.0F};
constexpr Vec3 kHalfSize{2.0F, 2.0F, 0.0F};

void AddAside(SoundGui& gui, const char* scene, StringView name) {
  base::AddBox(gui.scenes.at(scene), name, -1, kAside, kHalfSize);
}

void Rename(SoundGui& gui, const char* scene, StringView node, StringView now) {
  NodeOf(gui.scenes.at(scene), node).name = now;
}

// The first child of a node.
void RenameFirstChild(SoundGui& gui, const char* scene, StringView node, StringView now) {
  (&NodeOf(gui.scenes.at(scene), node))[1].name = now;
}

constexpr SeededFault kNameFaults[] = {
    {"block_for_nothing", Rule::BlockWithoutNode, kMenuFile, "~bPlay",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "item ~tStory", "item ~bPlay { visible 0 }\nitem ~tStory"); }},
    {"block_with_swapped_letters", Rule::BlockWithoutNode, kMenuFile, "~tStroy",
     [](SoundGui& gui) { gui.Replace(kMenuFile, "~tStory", "~tStroy"); }},
    {"widget_without_a_block", Rule::WidgetWithoutBlock, kMenuFile, "scenes",
     [](SoundGui& gui) { AddAside(gui, kMenuScene, u"~pFlag"); }},
    {"two_blocks", Rule::RepeatedBlock, kOptionsFile, "item |~pmap",
     [](SoundGui& gui) { gui.Replace(kOptionsFile, "{ id 7 }", "{ id 7 }\nitem ~pmap { visible 0 }"); }},
    {"two_nodes", Rule::RepeatedNode, kOptionsFile, "item |~pMap",
     [](SoundGui& gui) { AddAside(gui, kOptionsScene, u"~pmap"); }},
    {"letter_of_no_kind", Rule::UnknownKind, kMenuFile, "scenes",
     [](SoundGui& gui) { AddAside(gui, kMenuScene, u"~xFlag"); }},
    {"slot_of_a_page", Rule::UnknownKind, kMenuFile, "scenes",
     [](SoundGui& gui) { AddAside(gui, kMenuScene, u"~qSlot"); }},
    {"picture_of_a_bag_with_a_block", Rule::UnknownKind, kBagFile, "~pFlag",
     [](SoundGui& gui) {
       AddAside(gui, kBagScene, u"~pFlag");
       gui.Replace(kBagFile, "item ~qSlot1", "item ~pFlag { id 3 }\nitem ~qSlot1");
     }},
    {"mark_alone", Rule::UnknownKind, kMenuFile, "scenes", [](SoundGui& gui) { AddAside(gui, kMenuScene, u"~"); }},
    {"kind_in_upper_case", Rule::LetterCase, kBagFile, "~qSlot2",
     [](SoundGui& gui) { Rename(gui, kBagScene, u"~qSlot2", u"~QSlot2"); }},
    {"camera_in_lower_case", Rule::LetterCase, kMenuFile, "scenes",
     [](SoundGui& gui) { base::AddCamera(gui.scenes.at(kMenuScene), u"camera01", 1.0F, 1.0F, 100.0F); }},
    {"button_without_a_face", Rule::MissingChild, kOptionsFile, "~bBack",
     [](SoundGui& gui) { Rename(gui, kOptionsScene, u"normal", u"face"); }},
    {"check_button_without_a_state", Rule::MissingChild, kOptionsFile, "~cEasy",
     [](SoundGui& gui) { Rename(gui, kOptionsScene, u"unchecked", u"off"); }},
    {"check_button_with_an_empty_state", Rule::MissingChild, kOptionsFile, "~cEasy",
     [](SoundGui& gui) { RenameFirstChild(gui, kOptionsScene, u"checked", u"face"); }},
    {"list_without_rows", Rule::MissingChild, kMenuFile, "~lLevels",
     [](SoundGui& gui) { Rename(gui, kMenuScene, u"list", u"rows"); }},
    {"slide_bar_without_a_bar", Rule::MissingChild, kOptionsFile, "~sMusic",
     [](SoundGui& gui) { Rename(gui, kOptionsScene, u"barx", u"bar"); }},
    {"slide_bar_with_an_empty_bar", Rule::MissingChild, kOptionsFile, "~sMusic",
     [](SoundGui& gui) { RenameFirstChild(gui, kOptionsScene, u"barx", u"face"); }},
    {"name_with_a_blank", Rule::BlankInName, kOptionsFile, "\"~pMap one\"",
     [](SoundGui& gui) {
       Rename(gui, kOptionsScene, u"~pMap", u"~pMap one");
       gui.Replace(kOptionsFile, "~pMap", "\"~pMap one\"");
     }},
};

}  // namespace

std::span<const SeededFault> NameFaults() { return kNameFaults; }

}  // namespace qen::analysis
