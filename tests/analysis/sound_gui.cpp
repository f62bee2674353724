#include "sound_gui.h"

#include <algorithm>
#include <stdexcept>

#include "base/recording/scene_builder.h"
#include "base/utf.h"

namespace qen::analysis {
namespace {

using base::AddBox;
using base::AddNode;
using base::SceneData;

constexpr const char* kDescription = R"(lang texts.txt
tool style.txt
name pages\menu.txt
name pages\options.txt
bagname pages\bag.txt
)";

constexpr const char* kTexts = R"(lang english
{
	str1 "Menu"
	str2 "Options"
	str3 "Quit"
	str4 "Back"
	str5 "Music"
	str6 "Easy"
	str7 "Hard"
	str8 "Level 1"
	str9 "The first level"
	str10 "See the options"
	str11 "Sound"
}
lang german
{
	str1 "Menü"
	str2 "Optionen"
	str3 "Ende"
	str4 "Zurück"
	str5 "Musik"
	str6 "Leicht"
	str7 "Schwer"
	str8 "Stufe 1"
	str9 "Die erste Stufe"
	str10 "Zu den Optionen"
	str11 "Ton"
}
)";

constexpr const char* kStyle = "color_normal d8f0ff\nfont \"Serif\" { height -18 }\ntexture textures\\tip.png\n";

constexpr const char* kMenu = R"(name scenes\menu.glb
anim_in anims\menu_in.glb
anim_out anims\menu_out.glb
onclickwav sounds\click.wav

"What the game is called."
item ~tTitle
{
	textid 1
	font "Serif" { height -40 weight 700 }
	centered 1
}

item ~bOptions
{
	tooltip 10
	message setpage:options.glb
	textid 2
	font "Serif" { height -20 }
	color_onmouse 10183a
}

item ~bQuit
{
	message quit:
	textid 3
	font "Serif" { height -20 }
}

item ~lLevels
{
	maxselect 1
	font "Serif" { height -20 }
	listitem
	{
		name one
		textid 8
		commentid 9
		message settext:~tstory
	}
}

item ~tStory { font "Serif" { height -20 } }
)";

constexpr const char* kOptions = R"(name scenes\options.glb
onclickwav sounds\click.wav

item ~bBack
{
	message undopage:
	textid 4
	font "Serif" { height -20 }
}

item ~sMusic
{
	min 0
	max 10
	position 5
	message volume:music
}

item ~tMusic { textid 5 font "Serif" { height -20 } }

item ~cEasy
{
	checked 1
	message radiogroup:~chard
	b_checked { textid 6 font "Serif" { height -20 } }
	b_unchecked { textid 6 font "Serif" { height -20 } }
}

item ~cHard
{
	checked 0
	message radiogroup:~ceasy
	textid 7
	font "Serif" { height -20 }
}

item ~cSound
{
	message visible/unvisible:~tmusic
	textid 11
	font "Serif" { height -20 }
}

item ~pMap { id 7 }
)";

constexpr const char* kBag = R"(name scenes\bag.glb

item ~qSlot1 { id 1 scale 1.5 alpha 255 active 1 texture textures\key.png }
item ~qSlot2 { id 2 texture textures\lamp.png }
)";

constexpr const char* kScript = R"(gui.on("quit", leave)
for _, word in ipairs { "volume", "bag" } do gui.on(word, hear) end
gui.command("addrenderpage:bag.glb")
gui.command("remactivepage:bag.glb")
)";

constexpr Vec3 kFace{10.0F, 3.0F, 0.1F};  // half size of a button

// A node with the states of a button, and a label before its face.
std::int32_t AddButton(SceneData& scene, StringView name, std::int32_t parent, const Vec3& place, bool label = true) {
  const std::int32_t node = AddNode(scene, name, parent, place);
  for (const StringView state : {u"normal", u"onmouse", u"disabled"}) AddBox(scene, state, node, {}, kFace);
  if (!label) return node;
  const std::int32_t text = AddNode(scene, u"text", node, {0.0F, 0.0F, 0.5F});
  AddBox(scene, u"normal", text, {}, {9.0F, 2.5F, 0.0F});
  return node;
}

void AddText(SceneData& scene, StringView name, const Vec3& place, const Vec3& halfSize) {
  AddBox(scene, u"normal", AddNode(scene, name, -1, place), {}, halfSize);
}

SceneData MenuScene() {
  SceneData scene;
  AddBox(scene, u"Wall", -1, {0.0F, 0.0F, -5.0F}, {80.0F, 60.0F, 1.0F});
  AddText(scene, u"~tTitle", {0.0F, 40.0F, 0.0F}, {30.0F, 6.0F, 0.0F});
  AddButton(scene, u"~bOptions", -1, {0.0F, 10.0F, 0.0F});
  AddButton(scene, u"~bQuit", -1, {0.0F, 0.0F, 0.0F});
  const std::int32_t list = AddNode(scene, u"~lLevels", -1, {-40.0F, -30.0F, 0.0F});
  AddBox(scene, u"list", list, {}, {15.0F, 10.0F, 0.0F});
  AddText(scene, u"~tStory", {30.0F, -30.0F, 0.0F}, {25.0F, 10.0F, 0.0F});
  return scene;
}

SceneData OptionsScene() {
  SceneData scene;
  AddButton(scene, u"~bBack", -1, {0.0F, -40.0F, 0.0F});
  const std::int32_t bar = AddNode(scene, u"~sMusic", -1, {0.0F, 30.0F, 0.0F});
  AddBox(scene, u"normal", AddNode(scene, u"barx", bar), {}, {30.0F, 2.0F, 0.1F});
  AddBox(scene, u"normal", AddNode(scene, u"slider", bar), {0.0F, 0.0F, 0.5F}, {2.0F, 2.0F, 0.1F});
  AddText(scene, u"~tMusic", {0.0F, 40.0F, 0.0F}, {20.0F, 3.0F, 0.0F});
  float x = -40.0F;
  for (const StringView name : {u"~cEasy", u"~cHard", u"~cSound"}) {
    const std::int32_t check = AddNode(scene, name, -1, {x, 0.0F, 0.0F});
    const bool own = name == u"~cEasy";
    AddButton(scene, u"checked", check, {}, own);
    AddButton(scene, u"unchecked", check, {}, own);
    if (!own) AddBox(scene, u"normal", AddNode(scene, u"text", check, {0.0F, 0.0F, 0.5F}), {}, {9.0F, 2.5F, 0.0F});
    x += 40.0F;
  }
  AddBox(scene, u"~pMap", -1, {0.0F, -20.0F, 0.0F}, {10.0F, 8.0F, 0.0F});
  return scene;
}

SceneData BagScene() {
  SceneData scene;
  AddBox(scene, u"~qSlot1", -1, {-20.0F, 0.0F, 0.0F}, {4.0F, 4.0F, 0.0F});
  AddBox(scene, u"~qSlot2", -1, {20.0F, 0.0F, 0.0F}, {4.0F, 4.0F, 0.0F});
  return scene;
}

}  // namespace

SoundGui::SoundGui()
    : files{{kDescriptionFile, kDescription},
            {kTextsFile, kTexts},
            {kStyleFile, kStyle},
            {kMenuFile, kMenu},
            {kOptionsFile, kOptions},
            {kBagFile, kBag},
            {kScriptFile, kScript},
            {"textures\\tip.png", "picture"},
            {"textures\\key.png", "picture"},
            {"textures\\lamp.png", "picture"},
            {"sounds\\click.wav", "sound"}},
      scenes{{kMenuScene, MenuScene()}, {kOptionsScene, OptionsScene()}, {kBagScene, BagScene()}},
      animations{{kMenuIn, base::MoveNode(u"~tTitle", {0.0F, 50.0F, 0.0F}, {0.0F, 40.0F, 0.0F}, 1.0F)},
                 {kMenuOut, base::MoveNode(u"~tTitle", {0.0F, 40.0F, 0.0F}, {0.0F, 50.0F, 0.0F}, 1.0F)}} {
  for (const auto& [name, scene] : scenes) files[name] = "scene";
  for (const auto& [name, animation] : animations) files[name] = "animation";
}

void SoundGui::Replace(const char* file, const std::string& old, const std::string& now) {
  std::string& text = files.at(file);
  const std::size_t at = text.find(old);
  if (at == std::string::npos) throw std::runtime_error(std::string(file) + " has no " + old);
  text.replace(at, old.size(), now);
}

void SoundGui::Fill(base::FakeFiles& backend, base::FakeScenes& parser) const {
  for (const auto& [name, text] : files) backend.Add(base::ToUtf16(name), {text.begin(), text.end()});
  for (const auto& [name, scene] : scenes) parser.AddScene(base::ToUtf16(name), scene);
  for (const auto& [name, animation] : animations) parser.AddAnimation(base::ToUtf16(name), animation);
}

Report SoundGui::Run(Settings settings) {
  base::FakeFiles backend;
  base::FakeScenes parser;
  Fill(backend, parser);
  settings.script = base::ToUtf16(kScriptFile);
  return Check(base::ToUtf16(kDescriptionFile), {.files = backend, .scenes = parser, .fonts = &fonts}, settings);
}

base::NodeData& NodeOf(base::SceneData& scene, StringView name) {
  return *std::ranges::find(scene.nodes, name, &base::NodeData::name);
}

}  // namespace qen::analysis
