// How texts are drawn, where their words come from, how they scroll and how they are edited.
#include <algorithm>
#include <random>
#include <sstream>

#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {
namespace {

class Text : public GuiTest {
 protected:
  enum Shape : std::uint8_t { kBox, kShiftedBox, kOwnMesh, kNothing, kScrolling };

  // `properties` are those of the text's item block.
  void Open(Shape shape, StringView properties = {}, const Vec3& place = {}) {
    base::SceneData scene;
    if (shape == kNothing) base::AddNode(scene, u"~ttext", -1, place);
    if (shape == kOwnMesh) base::AddBox(scene, u"~ttext", -1, place, {8, 4.9F, 1});
    if (shape != kNothing && shape != kOwnMesh) AddTextBox(scene, u"text", place, shape == kScrolling);
    if (shape == kShiftedBox) ShiftMesh(scene, {20, -10, 2});  // its upper left corner is the node's origin
    OpenScene(std::move(scene), u"item ~ttext { " + String(properties) + u" }");
    text = dynamic_cast<ICGUIText*>(Find(u"~ttext", gui->GetPageCount() - 1));
    text->SetText(u"word");
    MoveTo({1, 1});
  }

  // A line for each text that is drawn now: its place, its rectangle, its format and colour, its words.
  std::string DrawnNow() {
    engine.calls.clear();
    DrawPages();
    std::ostringstream drawn;
    for (const base::Call& call : engine.CallsOf("Drawing::DrawText3D")) {
      words = std::get<std::string>(call.arguments[4]);
      drawn << PlaceOf(call) << " | " << std::get<std::string>(call.arguments[1]) << " | " << std::hex
            << std::get<std::int64_t>(call.arguments[2]) << ' ' << std::get<std::int64_t>(call.arguments[3]) << std::dec
            << ' ' << words << '\n';
    }
    return drawn.str();
  }

  // After the next update.
  std::string Drawn() {
    Frame();
    return DrawnNow();
  }

  // The words alone.
  std::string Words() { return Drawn().empty() ? "nothing" : words; }

  void SetLines(std::size_t count) { text->SetText(String(count - 1, u'\n').c_str()); }

  [[nodiscard]] std::ptrdiff_t DrawnMeshes() const {
    return std::ranges::count(engine.render.frame.items, base::DrawKind::Mesh, &base::DrawItem::kind);
  }

  ICGUIText* text = nullptr;
  std::string words;  // that were drawn last
};

TEST_F(Text, IsDrawnWhereItsNodeSays) {
  const struct {
    Shape shape;
    StringView properties;
    const char* drawn;
  } rows[] = {
      {kBox, u"", "-15 14.06 -3 | 0 0 40 20 | 50 ffffffff word\n"},
      {kBox, u"centered 1 disabled 1", "-15 14.06 -3 | 0 0 40 20 | 51 ffa0a0a0 word\n"},
      {kBox, u"visible 0", ""},
      {kBox, u"shadowoff 20 color_shadow 0000ff color_shadowsel 00ff00 color_normal 102030",
       "-13 12.06 -1 | 0 0 40 20 | 50 ffff0000 word\n-15 14.06 -3 | 0 0 40 20 | 50 ff302010 word\n"},
      {kBox, u"shadowoff -10",
       "-16 15.06 -4 | 0 0 40 20 | 50 ff000000 word\n-15 14.06 -3 | 0 0 40 20 | 50 ffffffff word\n"},
      {kShiftedBox, u"", "5 4.06 -3 | 0 0 40 20 | 50 ffffffff word\n"},
      {kNothing, u"", "5 4.06 -3 | 0 0 0 0 | 100 ffffffff word\n"},
      {kOwnMesh, u"centered 1", "5 4.06 -3 | 0 0 16 9 | 101 ffffffff word\n"},
  };
  for (const auto& row : rows) {
    Open(row.shape, row.properties, {5, 7, 3});
    EXPECT_EQ(Drawn(), row.drawn) << Narrow(row.properties);
    EXPECT_EQ(DrawnMeshes(), 0) << "the box itself is not";
  }
  EXPECT_FLOAT_EQ(static_cast<float>(std::get<double>(engine.CallsOf("Drawing::BeginText3D")[0].arguments[0])), 0.14F);
  EXPECT_TRUE(engine.CallsOf("Drawing::GetTextRect").empty()) << "measured only to be scrolled";
  text->SetAlpha(0x80);
  for (const float none : {0.0F, INFINITY, -INFINITY, NAN}) {
    text->GetShadowOffset() = none;
    EXPECT_EQ(Drawn(), "5 4.06 -3 | 0 0 16 9 | 101 80ffffff word\n") << none;
  }
}

TEST_F(Text, ComesFromTheTableOrItsOwn) {
  AddText(u"texts.txt", u"lang english { str4 Four }");
  AddText(u"gui.txt", u"lang texts.txt");
  gui->Load(u"gui.txt", &engine.camera);
  Open(kBox, u"textid 4");
  EXPECT_EQ(Words(), "word");
  EXPECT_EQ(gui->GetText(4), u"word") << "every text of that id changes";
  for (const std::int32_t id : {6, -2, INT32_MIN, INT32_MAX}) {
    text->SetTextId(id);
    text->SetText(u"lost");
    EXPECT_EQ(Words(), "N/A") << id;
  }
  text->SetTextId(-1);
  EXPECT_EQ(Words(), "") << "its own was never set";
  for (const std::int32_t number : {-5, 0, INT32_MIN}) {
    text->SetNumber(number);
    EXPECT_EQ(Words(), std::to_string(number));
  }
  text->SetText("narrow \xE4");
  EXPECT_EQ(Words(), Narrow(u"narrow \u00E4"));
  text->SetText(static_cast<const Char*>(nullptr));
  EXPECT_EQ(Words(), "");
  text->SetNumber(7);
  text->SetText(static_cast<const char*>(nullptr));
  EXPECT_EQ(Words(), "");
}

TEST_F(Text, MakesItsFontAnew) {
  const auto font = [this] {
    std::ostringstream made;
    const auto calls = engine.CallsOf("FontManager::CreateEx");
    for (const auto& argument : calls.back().arguments) {
      std::visit([&made](const auto& value) { made << value << ' '; }, argument);
    }
    return made.str();
  };
  Open(kBox);
  EXPECT_EQ(font(), "Courier -21 0 700 0 1 _DefaultGroup_ ");
  Open(kBox, u"font Serif { height -10 width 3 weight 400 italic 255 }");
  EXPECT_EQ(font(), "Serif -10 3 400 1 1 _DefaultGroup_ ");
  text->GetFontDesc().lfItalic = 254;
  for (const std::int32_t height : {0, 1, INT32_MIN, INT32_MAX}) {
    text->GetFontDesc().lfHeight = height;
    text->RecreateFont();
    EXPECT_EQ(font(), "Serif " + std::to_string(height) + " 3 400 0 1 _DefaultGroup_ ");
    EXPECT_EQ(Words(), "word");
  }
  EXPECT_EQ(engine.fonts.faceCount, 2) << "the old ones are given back";
}

// A line is 2.94 high, the box 20.
TEST_F(Text, ScrollsAsFarAsItIsLong) {
  Open(kScrolling, u"min 5");
  const struct {
    std::size_t lines;
    std::int32_t position;
    std::int32_t max;
    const char* drawn;  // at the position, or the nearest there is
  } rows[] = {
      {20, 0, 14, "-20 7.06 0 | 0 0 40 20 "},    {20, 1, 14, "-20 10 0 | 0 2 40 22 "},
      {20, 99, 14, "-20 48.22 0 | 0 41 40 61 "}, {7, 9, 1, "-20 10 0 | 0 2 40 22 "},
      {6, 9, 0, "-20 7.06 0 | 0 0 40 20 "},      {2, 0, -3, "-20 -1.76 0 | 0 -8 40 12 "},
      {1000, 0, 286, "-20 7.06 0 | 0 0 40 20 "},
  };
  for (const auto& row : rows) {
    SetLines(row.lines);
    Drawn();
    text->info->position = row.position;
    const std::string drawn = Drawn();
    EXPECT_EQ(drawn.substr(0, drawn.rfind('|')), row.drawn) << row.lines << " lines";
    EXPECT_EQ(text->info->max, row.max) << row.lines;
    EXPECT_EQ(text->info->min, 0);
  }
}

TEST_F(Text, IsScrolledByItsSlideBar) {
  Open(kScrolling);
  SetLines(20);
  Drawn();
  Aim({30, 0, -1});
  Type(u"((");  // the wheel, twice
  EXPECT_EQ(text->info->position, 2);
  Aim({30, -36, -1});
  ClickHere();
  EXPECT_EQ(text->info->position, 3);
  DrawPages();
  EXPECT_EQ(DrawnMeshes(), 4) << "the bar, its slider and its buttons are in sight";
  Aim({30, -29, -1});
  Press();
  Frame();
  EXPECT_EQ(text->info->position, 14);
  text->SetVisible(0);
  Drawn();
  EXPECT_EQ(DrawnMeshes(), 0);
}

// What a text is while it is edited, written down key by key.
struct EditedText {
  std::vector<String> characters;  // of one unit or two
  String half;                     // the first unit of a character whose second is to come
  std::int32_t limit = 16;
  bool editing = false;
  bool editable = true;
  bool enabled = true;
  bool visible = true;
  bool hasFont = true;
  bool active = true;  // the page takes part in updates
  bool shown = true;   // as of the last update

  void Update(Char key, bool clicked = false) {
    if (!active) return;
    shown = visible && hasFont;
    if (!visible) editing = false;
    if (!shown) return;
    if (clicked && enabled && editable) editing = true;
    if (editing && key != 0) Take(key);
  }

  [[nodiscard]] String Buffer() const {
    String buffer;
    for (const String& character : characters) buffer += character;
    return buffer + half;
  }

  [[nodiscard]] std::string Words(double time) const {
    if (!shown || !hasFont) return "nothing";
    const bool caret = editing && std::fmod(time, 1.0) < 0.5;
    return Narrow((editable ? Buffer() : u"word") + (caret ? u"|" : u""));
  }

 private:
  void Take(Char key) {
    const bool isFirst = key >= 0xD800 && key < 0xDC00;
    const bool isSecond = key >= 0xDC00 && key < 0xE000;
    const String character = isSecond ? half + key : String(1, key);
    if (!isSecond) half.clear();
    const bool hasRoom = static_cast<std::int64_t>(Buffer().size()) + (isFirst ? 2 : 1) <= limit;
    if (key == u'\r') editing = false;
    if (key == u'\b' && !characters.empty()) characters.pop_back();
    if (key == u'\r' || key == u'\b' || !hasRoom) return;
    if (isFirst) half = character;
    if (isFirst || (isSecond && character.size() < 2)) return;
    half.clear();
    characters.push_back(character);
  }
};

class TextEdit : public Text {
 protected:
  // The text and the model take the same step.
  void Step(std::uint32_t kind, std::uint32_t which) {
    static constexpr std::int32_t kLimits[] = {16, 5, 3, INT32_MAX, 0, -1, INT32_MIN};
    static constexpr StringView kKeys[] = {
        u"a",      u"\u96EA", u"\t ",    u"\b",         u"\b\b",    u"\U0001F600", u"x\U0001F600y",
        u"\xD83D", u"\xDE00", u"\xD83D", u"0123456789", u"1234567", u"\b\b\b",     u"\r",
    };
    bool* const switches[] = {&model.editable, &model.enabled, &model.visible, &model.hasFont, &model.active};
    if (kind < std::size(switches)) *switches[kind] = which % 3 != 0;
    if (kind == 5) model.limit = kLimits[which % std::size(kLimits)];
    if (kind == 6) {
      text->GetEditText() = u"ab";
      model.characters = {u"a", u"b"};
      model.half.clear();
    }
    text->GetEditable() = static_cast<std::uint32_t>(model.editable);
    text->SetDisabled(static_cast<std::uint32_t>(!model.enabled));
    text->SetVisible(static_cast<std::uint32_t>(model.visible));
    text->GetMaxChars() = model.limit;
    text->GetFontDesc().SetFaceName(model.hasFont ? u"Courier" : u"Missing");
    text->RecreateFont();
    gui->GetActivePages().assign(model.active ? 1 : 0, gui->GetPageCount() - 1);
    if (kind == 7 || kind == 8) ClickFromTo(which % 4 != 0, which % 3 != 0);
    if (kind < 9) return;
    const StringView keys = kKeys[which % std::size(kKeys)];
    Type(keys);
    for (const Char key : keys) model.Update(key);
  }

  // What is seen after the next frame.
  void ExpectAsModelled() {
    DrawPages();
    NextFrame();
    EXPECT_EQ(DrawnNow().empty() ? "nothing" : words, model.Words(engine.clock.GetTime()));
    EXPECT_EQ(text->GetEditText(), model.Buffer());
    EXPECT_EQ(text->state == 3, model.editing);
    EXPECT_EQ(!engine.ime.changes.empty() && engine.ime.changes.back(), model.editing && model.hasFont && model.active)
        << "the input method is on while it is edited";
  }

  Shape shape = kBox;
  EditedText model;

 private:
  void NextFrame(bool clicked = false) {
    Frame(1.0 / 16);  // without rounding, so that it is known when the caret shows
    model.Update(0, clicked);
  }

  // Presses the button on the text or beside it, and releases it there.
  void ClickFromTo(bool from, bool to) {
    Aim({from ? 0.0F : 30.0F, 0, -1});
    Press();
    NextFrame();
    Aim({to ? 0.0F : 30.0F, 0, -1});
    ReleaseButton();
    NextFrame(to && shape != kNothing);
  }
};

TEST_F(TextEdit, DoesAsItsModel) {
  engine.fonts.missing.insert(u"Missing");
  for (std::uint32_t seed = 0; seed < 12; ++seed) {
    std::mt19937 random(seed);
    shape = seed % 4 == 0 ? kNothing : seed % 4 == 1 ? kOwnMesh : kBox;
    Open(shape, u"editabled 1");
    model = {};
    for (int step = 0; step < 300 && !HasFailure(); ++step) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
      Step(static_cast<std::uint32_t>(random() % 30), static_cast<std::uint32_t>(random()));
      ExpectAsModelled();
    }
  }
}

}  // namespace
}  // namespace qen::test
