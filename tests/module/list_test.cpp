// A list beside a model of it, through whatever user and host may do; what it draws, and what it is without its parts.
#include <algorithm>
#include <sstream>

#include "tests/module/slide_bar_model.h"

namespace qen::test {
namespace {

using Indices = std::vector<std::uint32_t>;

struct ListModel {
  struct Entry {
    std::string name;
    bool selected = false;
    bool disabled = false;
    int state = 0;  // 1: lit
  };

  static constexpr int kAway = -2;  // for a row; -1 is below the rows, but in the list

  int maxSelect = 1;
  SlideBarModel bar;  // "3+ " is dispatched for an entry that is selected now, "3- " for one that is not
  std::vector<Entry> entries;

  // "h" for a list that is hovered, "hc" for one that is clicked as well.
  std::string Update(const Pointer& pointer, int row) {
    if (!bar.visible) return "";
    bar.wrap = maxSelect == 0;
    if (std::string result = bar.Update(pointer); !result.empty()) return result;
    Measure();
    const bool steps = row != kAway && maxSelect <= 1 && (pointer.key == kUpKey || pointer.key == kDownKey);
    const bool stepped = steps && Step(pointer.key == kUpKey ? 1 : -1);
    UpdateRows(row, pointer.mouse == 2);
    return row == kAway || stepped ? "" : "h";
  }

  void Select(std::int64_t index) {  // none where there is no such entry
    Update({}, kAway);  // the ray that a list measures itself with meets its slide bar where the tests have it
    Measure();
    for (std::int64_t i = 0; i < Count(); ++i) {
      Entry& entry = At(i);
      entry.selected = i == index && !entry.disabled;
      if (entry.selected) bar.position = std::max<std::int64_t>(std::min(i, Count() - kRows), 0);
    }
  }

  [[nodiscard]] std::int64_t Count() const { return static_cast<std::int64_t>(entries.size()); }
  Entry& At(std::int64_t index) { return entries[static_cast<std::size_t>(index)]; }

 private:
  static constexpr std::int64_t kRows = 10;

  void Measure() {
    bar.min = 0;
    bar.max = std::max<std::int64_t>(Count() - kRows, 0);
  }

  void Mark(std::int64_t index, bool selected) {
    At(index).selected = selected;
    bar.dispatched += At(index).name + (selected ? "+ " : "- ");
  }

  // Whether there is a selection to move.
  bool Step(std::int64_t direction) {
    const std::int64_t from = std::ranges::find_if(entries, &Entry::selected) - entries.begin();
    if (from == Count()) return false;
    Mark(from, false);
    const std::int64_t to = (from + direction + Count()) % Count();
    Select(to);
    Mark(to, true);
    return true;
  }

  void UpdateRows(int pointed, bool clicks) {
    const auto chosen = std::ranges::count_if(entries, &Entry::selected);
    std::int64_t last = Count() - 1;
    while (last >= 0 && !At(last).selected) --last;
    for (std::int64_t i = bar.position; i < std::min(bar.position + kRows, Count()); ++i) {
      Entry& entry = At(i);
      if (entry.disabled) continue;
      if (i - bar.position != pointed) {
        entry.state = 0;
        if (maxSelect == 0 && i == bar.position && i != last) Move(last, i);
        continue;
      }
      if (clicks && maxSelect > 1) entry.selected = !entry.selected && chosen < maxSelect;
      if (clicks && maxSelect == 1 && !entry.selected) Move(last, i);
      entry.state = entry.selected ? 0 : 1;
    }
  }

  void Move(std::int64_t from, std::int64_t to) {
    if (from >= 0) Mark(from, false);
    Mark(to, true);
  }
};

class List : public BesideModel {
 public:
  static constexpr Vec3 kPlace{-41, 7, 0};

  // `properties` are those of the list's item block.
  void Open(StringView properties = {}) {
    base::SceneData scene;
    const std::int32_t node = base::AddNode(scene, u"~llong", -1, kPlace + Vec3{0, 15, 0});
    base::AddBox(scene, u"list_long", node, {}, {30, 15, 1});
    ShiftMesh(scene, {0, -15, 0});  // it hangs from the node's origin
    AddSlideBar(scene, u"slidery_long", node, {40, -15, 0}, true);
    Open(std::move(scene), properties);
  }

  void Open(base::SceneData scene, StringView properties = {}) {
    OpenScene(std::move(scene), u"item ~llong { " + String(properties) + u" }");
    list = dynamic_cast<ICGUIList*>(Find(u"~llong", gui->GetPageCount() - 1));
    MoveTo({1, 1});
  }

  ICGUIItem& Item(std::uint32_t index) { return *list->GetItem(index); }

  // A point of the k-th shown row, as high as `part` of it.
  static Vec3 RowPlace(int row, float x = 0.0F, float part = 0.5F) {
    constexpr float kLine = 21 * 0.14F;  // of the default font, in world units
    return kPlace + Vec3{x, 15.0F - (static_cast<float>(row) + part) * kLine, -1.0F};
  }

  Indices Selected() {
    Indices indices{77};
    return list->GetSelectedIndices(indices);
  }

  void Update() {
    Pointer pointer = model.bar.Anywhere(dice);
    const bool atBar = dice.Below(5) < 2;
    pointer.beside |= !atBar;
    const int row = atBar ? ListModel::kAway : static_cast<int>(dice.Below(12)) + ListModel::kAway;
    const float x = static_cast<float>(dice.Below(60)) - 29.5F;
    Vec3 at = RowPlace(row, x, 0.15F + 0.07F * static_cast<float>(dice.Below(11)));
    if (row < 0) at = kPlace + Vec3{x, row == ListModel::kAway ? 16.0F : -14.8F, -1};
    if (atBar) at = kPlace + Vec3{40, 0, 0} + model.bar.PlaceOf(pointer);
    EXPECT_EQ(Pick(list, at, pointer), model.Update(pointer, row));
  }

  void Add() {
    const std::string name = std::to_string(++named);
    Say(*list->AddItem(), {u"visible/unvisible:" + base::ToUtf16(name)});
    model.entries.push_back({name});
  }

  void ChangeEntry() {
    if (model.entries.empty()) return;
    const std::uint32_t index = dice.Below(model.entries.size());
    ListModel::Entry& entry = model.entries[index];
    bool& flag = dice.Below(2) == 0 ? entry.selected : entry.disabled;
    flag = !flag;
    Item(index).selected = entry.selected ? 1 : 0;
    Item(index).info->disabled = entry.disabled ? 1 : 0;
  }

  void Remove() {
    const std::uint32_t index = dice.Below(model.entries.size() + 1);
    list->RemoveItem(list->GetItem(index));
    if (index < model.entries.size()) model.entries.erase(model.entries.begin() + index);
    if (dice.Below(20) != 0) return;
    list->Clear();
    model.entries.clear();
    model.bar.position = 0;
  }

  void ChangeList() {
    constexpr std::int32_t kPositions[] = {-1, 0, 5, 7, 20, 35, INT32_MIN, INT32_MAX};
    switch (dice.Below(3)) {
      case 0:
        return list->SetVisible(model.bar.visible = dice.Below(4) != 0);
      case 1:
        return list->SetDisabled(model.bar.disabled = dice.Below(4) == 0);
      default:
        model.bar.position = list->info->position = kPositions[dice.Below(std::size(kPositions))];
        DrawPages();  // before an update has mended it
    }
  }

  void Select() {
    const std::uint32_t index = dice.Below(model.entries.size() + 1);
    list->info->key = kDownKey;  // as the last update may have left them
    list->info->mouseState = 2;
    list->SelectItem(list->GetItem(index));
    model.Select(index);
  }

  void Compare() {
    ASSERT_EQ(Dispatched(), std::exchange(model.bar.dispatched, ""));
    ASSERT_EQ(list->info->position, model.bar.position);
    ASSERT_EQ(list->info->min, model.bar.min);
    ASSERT_EQ(list->info->max, model.bar.max);
    ASSERT_EQ(list->GetItemCount(), model.entries.size());
    Indices selected;
    for (std::uint32_t i = 0; i < model.entries.size(); ++i) {
      const ListModel::Entry& entry = model.entries[i];
      if (entry.selected) selected.push_back(i);
      ASSERT_EQ(Item(i).state, entry.state) << i;
    }
    ASSERT_EQ(Selected(), selected);
  }

  // Entries that are called by their numbers.
  void Fill(std::uint32_t count) {
    for (std::uint32_t i = 0; i < count; ++i) list->AddItem()->displayText = base::ToUtf16(std::to_string(i));
  }

  // Each text that is drawn: its place, box, format, colour and words.
  std::string Drawn() {
    engine.calls.clear();
    DrawPages();
    std::ostringstream drawn;
    for (const base::Call& call : engine.CallsOf("Drawing::DrawText3D")) {
      drawn << PlaceOf(call) << std::hex;
      for (std::size_t i = 1; i < call.arguments.size(); ++i) {
        std::visit([&drawn](const auto& value) { drawn << ' ' << value; }, call.arguments[i]);
      }
      drawn << '\n';
    }
    return drawn.str();
  }

  ICGUIList* list = nullptr;
  ListModel model;
  int named = 0;
};

TEST_F(List, DoesWhatItsModelDoes) {
  engine.RecordCalls(false);
  using Deed = void (List::*)();
  constexpr Deed kDeeds[] = {&List::Update, &List::Update, &List::Update,      &List::Update,
                             &List::Update, &List::Add,    &List::Add,         &List::ChangeEntry,
                             &List::Remove, &List::Select, &List::ChangeEntry, &List::ChangeList};
  for (const int maxSelect : {0, 1, 2, 3}) {
    gui->Release();
    model = {};
    model.maxSelect = maxSelect;
    Open(u"message moved: maxselect " + base::ToUtf16(std::to_string(maxSelect)));
    model.Update({.beside = true}, ListModel::kAway);  // as each new page does
    Compare();
    for (int step = 0; step < 20'000 && !HasFailure(); ++step) {
      SCOPED_TRACE("at most " + std::to_string(maxSelect) + ", step " + std::to_string(step));
      (this->*kDeeds[dice.Below(std::size(kDeeds))])();
      Compare();
    }
  }
}

TEST_F(List, DrawsItsRowsInOrderAndShadowsFirst) {
  Open(
      u"centered 1 shadowoff 20 color_normal 112233 color_select 445566 color_onmouse 778899 "
      u"color_disabled aabbcc color_shadow ddeeff color_shadowsel 102030");
  Fill(3);
  Item(1).selected = 1;
  Item(1).textId = 4711;
  Item(2).selected = 1;
  Item(2).info->disabled = 1;
  EXPECT_NE(list->AddItemCopy(&Item(2)), nullptr);  // takes no more than what is read
  EXPECT_EQ(list->AddItemCopy(nullptr), nullptr);
  Aim(RowPlace(0));
  Frame();
  EXPECT_EQ(Drawn(), R"(-69 17.06 2 60 30 21 ffffeedd 0
-71 19.06 0 60 30 21 ff998877 0
-69 14.12 2 60 27.06 21 ff302010 N/A
-71 16.12 0 60 27.06 21 ff665544 N/A
-69 11.18 2 60 24.12 21 ff302010 2
-71 13.18 0 60 24.12 21 ffccbbaa 2
-69 8.24 2 60 21.18 21 ffffeedd 2
-71 10.24 0 60 21.18 21 ff332211 2
)");
}

TEST_F(List, FitsItsRowsToTheFont) {
  Open();
  Fill(20);
  for (const auto& [height, rows] : {std::pair{21, 10}, {100, 2}, {INT32_MAX, 0}, {7, 0}}) {
    if (height == 7) engine.fonts.missing.insert(u"Courier");
    list->text->GetFontDesc().lfHeight = height;
    list->text->RecreateFont();
    Aim(RowPlace(0));
    ClickHere();
    EXPECT_EQ(list->info->max, 20 - rows) << height;
    engine.calls.clear();
    DrawPages();
    const int calls = height == 7 ? 0 : rows + 3;  // nothing is begun without a font
    EXPECT_EQ(CallNames({"Drawing::"}).size(), static_cast<std::size_t>(calls)) << height;
  }
}

TEST_F(List, KeepsItsEntriesWithoutItsNodesAndWhileReleased) {
  for (const bool box : {false, true}) {
    base::SceneData scene;
    const std::int32_t node = base::AddNode(scene, u"~llong", -1, kPlace);
    if (box) base::AddBox(scene, u"list", node, {}, {30, 15, 1});
    if (!box) AddSlideBar(scene, u"slidery", node, {}, false);
    ICGUIList* other = list;
    Open(std::move(scene));
    Fill(30);
    if (other != nullptr) other->RemoveItem(&Item(0));
    EXPECT_EQ(other == nullptr ? 30 : other->GetItemCount(), 30U) << "entries of others are not removed";
    list->info->position = 3;
    Aim(RowPlace(2));
    ClickHere();
    EXPECT_EQ(Selected(), box ? Indices{5} : Indices{});
    list->SelectItem(&Item(29));
    EXPECT_EQ(list->info->position, box ? 20 : 29);
    DrawPages();
  }
  list->Release();
  Frame();
  list->AddItem();
  list->SelectItem(list->GetItem(0));
  EXPECT_EQ(Selected(), Indices{0});
}

}  // namespace
}  // namespace qen::test
