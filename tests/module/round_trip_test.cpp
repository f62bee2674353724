// What is saved comes back when it is loaded.
#include <gmock/gmock.h>

#include <random>
#include <set>

#include "engine/font_desc.h"
#include "tests/module/bag_fixture.h"
#include "tests/module/data_folder.h"
#include "tests/module/widget_nodes.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

// Everything of a page that its definition keeps, one line each.
class Snapshot {
 public:
  explicit Snapshot(const ICGUIPageObject& page) {
    Add(u"scene", page.name);
    for (const std::int32_t index : {page.animIn, page.animOut}) {
      Add(u"transition", index < 0 ? String() : page.anims.at(static_cast<std::size_t>(index))->name);
    }
    for (const ICGUIAnim* anim : page.anims) anims_.insert(Narrow(anim->name));
    for (ICGUIObject* widget : page.items) AddWidget(*widget);
  }

  [[nodiscard]] std::vector<std::string> Lines() const {
    std::vector<std::string> lines = lines_;
    lines.insert(lines.end(), anims_.begin(), anims_.end());
    return lines;
  }

 private:
  void Add(StringView field, const String& value) { lines_.push_back(Narrow(field) + "=" + Narrow(value)); }
  template <class Number>
  void AddNumber(StringView field, Number value) {
    lines_.push_back(Narrow(field) + "=" + std::to_string(value));
  }

  void AddWidget(ICGUIObject& widget) {
    Add(u"widget", widget.info->name);
    AddNumber(u"id", widget.GetId());
    AddInfo(*widget.info);
    if (auto* quad = dynamic_cast<ICGUIDummy*>(&widget)) return AddQuad(*quad);
    if (auto* list = dynamic_cast<ICGUIList*>(&widget)) AddEntries(*list);
    AddText(widget.text != nullptr ? widget.text : dynamic_cast<ICGUIText*>(&widget));
    if (auto* check = dynamic_cast<ICGUICheckButton*>(&widget)) {
      for (const ICGUIButton* side : {check->GetCheckedButton(), check->GetUncheckedButton()}) {
        if (side != nullptr) AddText(side->text);
      }
    }
  }

  void AddInfo(const ItemInfo& info) {
    const bool isQuad = info.type == widget_type::kQuad;
    AddNumber(u"tooltip", info.tooltip);
    if (isQuad) return;
    for (const std::uint32_t flag : {info.visible, info.disabled, info.checked}) AddNumber(u"flag", flag);
    for (const std::int32_t number : {info.min, info.max, info.position}) AddNumber(u"range", number);
    for (const auto& record : info.messages) Add(u"message", record->text);
  }

  void AddQuad(ICGUIDummy& quad) {
    AddNumber(u"scale", std::lround(quad.GetScale() * 1e4F));
    AddNumber(u"alpha", quad.GetAlpha());
    AddNumber(u"active", quad.GetActive());
    Add(u"texture", quad.GetBagRecord().texture);
  }

  void AddEntries(ICGUIList& list) {
    for (std::uint32_t i = 0; i < list.GetItemCount(); ++i) {
      const ICGUIItem& entry = *list.GetItem(i);
      Add(u"entry", entry.name);
      AddNumber(u"text", entry.textId);
      AddNumber(u"comment", entry.commentId);
      AddNumber(u"tooltip", entry.info->tooltip);
      for (const auto& record : entry.info->messages) {
        Add(u"message", record->text);
        EXPECT_EQ(record->source, &list);
      }
    }
  }

  void AddText(ICGUIText* text) {
    if (text == nullptr) return;
    AddNumber(u"text", text->GetTextId());
    AddNumber(u"centered", text->GetCentered());
    AddNumber(u"editable", text->GetEditable());
    AddNumber(u"letters", text->GetMaxChars());
    AddNumber(u"shadow", text->GetShadowOffset());
    for (const std::uint32_t color : text->GetColors()) AddNumber(u"color", color);
    const LOGFONTW& font = text->GetFontDesc();
    Add(u"face", font.lfFaceName);
    for (const std::int32_t number : {font.lfHeight, font.lfWidth, font.lfWeight}) AddNumber(u"font", number);
    AddNumber(u"italic", font.lfItalic);
  }

  std::vector<std::string> lines_;
  std::set<std::string> anims_;  // whose order may change
};

// Gives every field that is saved another value.
class Changer {
 public:
  explicit Changer(std::uint32_t seed) : random_(seed) {}

  void Change(ICGUIPageObject& page) {
    for (ICGUIObject* widget : page.items) ChangeWidget(*widget);
  }

  void ChangeFont(LOGFONTW& font) {
    font.SetFaceName(Word() + u" " + Word());
    font.lfHeight = Number() % 60;
    font.lfWidth = Number() % 60;
    font.lfWeight = Number() % 1000;
    font.lfItalic = static_cast<std::uint8_t>(Next());
  }

  // Any number, the largest and smallest more often than others.
  std::int32_t Number() {
    constexpr std::int32_t kRare[] = {0, -1, 1, std::numeric_limits<std::int32_t>::max(),
                                      std::numeric_limits<std::int32_t>::min()};
    return Next() % 4 == 0 ? kRare[Next() % std::size(kRare)] : static_cast<std::int32_t>(Next());
  }

  std::uint32_t Flag() { return static_cast<std::uint32_t>(Number()); }

  String Word() {
    constexpr StringView kLetters = u"aZ09:._-\\/~{}äЖ雪#'";
    String word = u"w";
    for (std::uint32_t i = Next() % 8; i > 0; --i) word += kLetters[Next() % kLetters.size()];
    return word;
  }

 private:
  void ChangeWidget(ICGUIObject& widget) {
    ItemInfo& info = *widget.info;
    widget.GetId() = Number();
    info.tooltip = Number();
    widget.SetVisible(Flag());
    widget.SetDisabled(Flag());
    info.checked = Flag();
    info.min = Number();
    info.max = Number();
    info.position = Number();
    ChangeMessages(info, &widget);
    if (auto* quad = dynamic_cast<ICGUIDummy*>(&widget)) ChangeQuad(*quad);
    if (auto* list = dynamic_cast<ICGUIList*>(&widget)) ChangeEntries(*list);
    ChangeText(widget.text != nullptr ? widget.text : dynamic_cast<ICGUIText*>(&widget));
    if (auto* check = dynamic_cast<ICGUICheckButton*>(&widget)) {
      ChangeText(check->GetCheckedButton()->text);
      ChangeText(check->GetUncheckedButton()->text);
    }
  }

  void ChangeMessages(ItemInfo& info, ICGUIObject* source) {
    info.messages.clear();
    for (std::uint32_t i = Next() % 4; i > 0; --i) {
      info.messages.push_back(std::make_unique<GuiMessage>());
      info.messages.back()->text = Word();
      info.messages.back()->source = source;
    }
  }

  void ChangeQuad(ICGUIDummy& quad) {
    quad.GetScale() = static_cast<float>(Number() % 100000) / 10000.0F;
    quad.GetAlpha() = Number();
    quad.GetActive() = Number();
    quad.GetBagRecord().texture = Word();
  }

  void ChangeEntries(ICGUIList& list) {
    list.Clear();
    for (std::uint32_t i = Next() % 5; i > 0; --i) {
      ICGUIItem& entry = *list.AddItem();
      entry.name = Word() + u" ; " + Word();
      entry.textId = Number();
      entry.commentId = Number();
      entry.info->tooltip = Number();
      ChangeMessages(*entry.info, &list);
    }
  }

  void ChangeText(ICGUIText* text) {
    if (text == nullptr) return;
    text->GetTextId() = Number();
    text->GetCentered() = Flag();
    text->GetEditable() = Flag();
    text->GetMaxChars() = Number();
    text->GetShadowOffset() = static_cast<float>(Number() % 1000);
    for (std::uint32_t& color : text->GetColors()) color = Flag();
    ChangeFont(text->GetFontDesc());
  }

  std::uint32_t Next() { return static_cast<std::uint32_t>(random_()); }

  std::mt19937 random_;
};

class RoundTrip : public SavingTest {
 protected:
  // Saves the page, loads what was saved as another page and compares the two, also by saving again.
  void Check(std::uint32_t page, bool isBag, const std::string& what) {
    const std::vector<std::string> saved = Snapshot(*gui->GetPage(page)).Lines();
    ASSERT_TRUE(gui->SavePage(u"saved.txt", page));
    const std::string bytes = BytesOf(folder / "saved.txt");
    MakeReadable(u"saved.txt");
    const std::uint32_t copy = gui->GetPageCount();
    // Not added from its file, since that updates a page, and an update brings positions into their ranges.
    isBag ? gui->AddBagPage(u"", &engine.camera) : gui->AddPage(u"", &engine.camera);
    ASSERT_NE(gui->GetPage(copy)->LoadPage(u"saved.txt", 0), nullptr) << what;
    EXPECT_THAT(Snapshot(*gui->GetPage(copy)).Lines(), ::testing::ContainerEq(saved)) << what;
    ASSERT_TRUE(gui->SavePage(u"again.txt", copy));
    EXPECT_TRUE(BytesOf(folder / "again.txt") == bytes) << what;
  }

  void AddAnimations(const std::vector<StringView>& names) {
    for (const StringView name : names) engine.AddAnimation(name, base::MoveNode(u"x", {}, {1, 0, 0}, 1.0F));
  }
};

TEST_F(RoundTrip, KeepsEveryFieldOfAPage) {
  base::SceneData scene;
  for (const Char* name : {u"~tTitle", u"~bOk", u"~cMusic", u"~lGames", u"~sVolume", u"~pMap", u"~bMénü雪"}) {
    AddWidget(scene, name);
  }
  engine.AddScene(u"scenes\\menu.glb", std::move(scene));
  AddAnimations({u"a.glb", u"b.glb", u"c.glb"});
  AddText(u"menu.txt", u"name scenes\\menu.glb anim c.glb anim_out b.glb anim_in a.glb onclickwav c.wav");
  for (std::uint32_t seed = 0; seed < 50; ++seed) {
    ICGUIPageObject* page = OpenPage(u"menu.txt");
    Changer(seed).Change(*page);
    Check(0, false, "seed " + std::to_string(seed));
    gui->Release();
  }
}

TEST_F(RoundTrip, KeepsEveryFieldOfABag) {
  AddAnimations({u"a.glb", u"b.glb"});
  AddBag(engine, u"bag", 5, u"anim b.glb anim_out a.glb");
  for (std::uint32_t seed = 0; seed < 50; ++seed) {
    gui->AddBagPage(u"bag.txt", &engine.camera);
    Changer(seed).Change(*gui->GetPage(0));
    Check(0, true, "seed " + std::to_string(seed));
    gui->Release();
  }
}

TEST_F(RoundTrip, KeepsTheStyle) {
  AddText(u"style.txt", u"font Serif { }");
  Changer changer(1);
  for (int i = 0; i < 20; ++i) {
    gui->LoadStyle(u"style.txt");
    changer.ChangeFont(gui->GetStyleFont());
    gui->GetStyleTexture() = changer.Word();
    gui->GetStyleColor() = changer.Flag();
    const LOGFONTW font = gui->GetStyleFont();
    const String texture = gui->GetStyleTexture();
    const std::uint32_t color = gui->GetStyleColor();
    gui->SaveStyle();
    MakeReadable(u"style.txt");
    gui->GetStyleTexture().clear();
    gui->GetStyleColor() = 0;
    ASSERT_TRUE(gui->LoadStyle(u"style.txt"));
    EXPECT_EQ(gui->GetStyleTexture(), texture);
    EXPECT_EQ(gui->GetStyleColor(), color);
    const LOGFONTW& read = gui->GetStyleFont();
    EXPECT_EQ(String(read.lfFaceName), String(font.lfFaceName));
    EXPECT_EQ(read.lfHeight, font.lfHeight);
    EXPECT_EQ(read.lfWidth, font.lfWidth);
    EXPECT_EQ(read.lfWeight, font.lfWeight);
    EXPECT_EQ(read.lfItalic, font.lfItalic);
  }
}

TEST_F(RoundTrip, LosesWhatTheFormatsCannotHold) {
  base::SceneData scene;
  AddWidget(scene, u"~bOk");
  AddWidget(scene, u"~lGames");
  engine.AddScene(u"s.glb", std::move(scene));
  AddText(u"s.txt", u"name s.glb item ~bok { message x }");
  OpenPage(u"s.txt");
  ICGUIObject* ok = Find(u"~bok");
  ok->info->messages[0]->text = u"say:two words";
  ok->text->GetShadowOffset() = -2.75F;
  auto* list = dynamic_cast<ICGUIList*>(Find(u"~lgames"));
  list->AddItem()->displayText = u"Shown";
  ASSERT_TRUE(gui->SavePage(u"saved.txt", 0));
  MakeReadable(u"saved.txt");
  OpenPage(u"saved.txt");
  ok = Find(u"~bok", 1);
  EXPECT_EQ(ok->info->messages.at(0)->text, u"say:two");
  EXPECT_EQ(ok->text->GetShadowOffset(), -2.0F);
  list = dynamic_cast<ICGUIList*>(Find(u"~lgames", 1));
  EXPECT_EQ(list->GetItem(0)->displayText, u"NewItem");
}

// The names behind a keyword of a definition.
std::vector<String> ValuesOf(const std::string& text, const std::string& keyword) {
  std::vector<String> values;
  std::istringstream in(text);
  for (std::string token; in >> token;) {
    if (token == keyword && in >> token) values.push_back(base::ToUtf16(token));
  }
  return values;
}

TEST_F(RoundTrip, KeepsThePagesOfTheSample) {
  std::size_t pages = 0;
  for (const auto& entry : fs::directory_iterator("samples/skylantern/pages")) {
    const std::string bytes = BytesOf(entry.path());
    const String file = base::ToUtf16(entry.path().filename().string());
    engine.files.Add(file, {bytes.begin(), bytes.end()});
    base::SceneData scene;
    bool isBag = false;
    for (const String& widget : ValuesOf(bytes, "item")) {
      AddWidget(scene, widget);
      isBag = isBag || widget.starts_with(u"~q");
    }
    for (const String& name : ValuesOf(bytes, "name")) engine.AddScene(name, scene);
    for (const char* keyword : {"anim_in", "anim_out", "anim"}) {
      for (const String& anim : ValuesOf(bytes, keyword)) AddAnimations({anim});
    }
    isBag ? gui->AddBagPage(file.c_str(), &engine.camera) : gui->AddPage(file.c_str(), &engine.camera);
    ASSERT_FALSE(gui->GetPage(0)->items.empty()) << entry.path();
    Check(0, isBag, entry.path().string());
    gui->Release();
    ++pages;
  }
  EXPECT_GT(pages, 0U);
}

}  // namespace
}  // namespace qen::test
