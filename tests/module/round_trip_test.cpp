// What is saved comes back when it is loaded.
#include <random>

#include "engine/font_desc.h"
#include "tests/module/bag_fixture.h"
#include "tests/module/data_folder.h"
#include "tests/module/every_widget.h"

namespace qen::test {
namespace {

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
  // Saves the page, loads what was saved as another page and saves that: the same text, in which every field stands.
  void Check(std::uint32_t page, bool isBag, const std::string& what) {
    ASSERT_TRUE(gui->SavePage(u"saved.txt", page));
    const std::string bytes = BytesOf(folder / "saved.txt");
    MakeReadable(u"saved.txt");
    const std::uint32_t copy = gui->GetPageCount();
    // Not added from its file, since that updates a page, and an update brings positions into their ranges.
    isBag ? gui->AddBagPage(u"", &engine.camera) : gui->AddPage(u"", &engine.camera);
    ASSERT_NE(gui->GetPage(copy)->LoadPage(u"saved.txt", 0), nullptr) << what;
    ASSERT_TRUE(gui->SavePage(u"again.txt", copy));
    EXPECT_TRUE(BytesOf(folder / "again.txt") == bytes) << what;
  }

  void AddAnimations(const std::vector<StringView>& names) {
    for (const StringView name : names) engine.AddAnimation(name, base::MoveNode(u"x", {}, {1, 0, 0}, 1.0F));
  }
};

TEST_F(RoundTrip, KeepsEveryFieldOfAPage) {
  base::SceneData scene = SceneOfEveryWidget();
  base::AddNode(scene, u"text", AddButton(scene, u"Ménü雪", {}));
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
    gui->SaveStyle();
    const std::string bytes = BytesOf(folder / "style.txt");
    MakeReadable(u"style.txt");
    changer.ChangeFont(gui->GetStyleFont());
    gui->GetStyleTexture().clear();
    gui->GetStyleColor() = 0;
    ASSERT_TRUE(gui->LoadStyle(u"style.txt"));
    gui->SaveStyle();
    EXPECT_TRUE(BytesOf(folder / "style.txt") == bytes);
  }
}

}  // namespace
}  // namespace qen::test
