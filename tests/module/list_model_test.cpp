// A list beside a model of it that is written down step by step, through whatever user and host may do.
#include <algorithm>
#include <random>

#include "tests/module/list_fixture.h"

namespace qen::test {
namespace {

enum class Cursor : std::uint8_t { Away, Row, BelowRows, Bar, DownButton, UpButton };

struct Entry {
  std::string name;
  bool selected = false;
  bool disabled = false;
  int state = 0;  // 1: lit
};

struct Model {
  std::vector<Entry> entries;
  std::int64_t position = 0;
  std::int64_t min = 0;
  std::int64_t max = 100;
  int maxSelect = 1;
  bool visible = true;
  bool disabled = false;
  std::string dispatched;

  struct Picked {
    bool hovered = false;
    bool clicked = false;
  };

  Picked Update(Cursor cursor, std::int64_t row, std::uint32_t mouse, Char key) {
    if (!visible) return {};
    if (const Picked bar = UpdateBar(cursor, mouse, key); bar.hovered || bar.clicked) return bar;
    Measure();
    const bool hit = cursor == Cursor::Row || cursor == Cursor::BelowRows;
    if (hit && maxSelect <= 1 && (key == 38 || key == 40)) Step(key == 38 ? 1 : -1);
    UpdateRows(cursor == Cursor::Row ? row : -1, mouse == 2);
    return {hit, false};
  }

  void Select(std::int64_t index) {  // none where there is no such entry
    Update(Cursor::BelowRows, 0, 0, 0);
    Measure();
    for (std::int64_t i = 0; i < Count(); ++i) {
      Entry& entry = At(i);
      entry.selected = i == index && !entry.disabled;
      if (entry.selected) position = std::max<std::int64_t>(std::min(i, Count() - kRows), 0);
    }
  }

  [[nodiscard]] std::int64_t Count() const { return static_cast<std::int64_t>(entries.size()); }
  Entry& At(std::int64_t index) { return entries[static_cast<std::size_t>(index)]; }

 private:
  static constexpr std::int64_t kRows = 10;

  Picked UpdateBar(Cursor cursor, std::uint32_t mouse, Char key) {
    const bool onBar = cursor == Cursor::Bar && !disabled;
    const std::int64_t step = std::max<std::int64_t>((max - min + 1) / 10, 1);
    if (onBar && key == 40) position += step;
    if (onBar && key == 38) position -= step;
    position = std::min(std::max(position, min), max);
    if (onBar) return {true, false};
    const bool onButton = (cursor == Cursor::DownButton || cursor == Cursor::UpButton) && !disabled;
    if (!onButton || mouse == 1) return {};
    if (mouse == 0) return {true, false};
    position += cursor == Cursor::UpButton ? 1 : -1;
    if (position < min) position = maxSelect == 0 ? max : min;
    if (position > max) position = maxSelect == 0 ? min : max;
    return {true, true};
  }

  void Measure() {
    min = 0;
    max = std::max<std::int64_t>(Count() - kRows, 0);
  }

  void Mark(std::int64_t index, bool selected) {
    At(index).selected = selected;
    dispatched += At(index).name + (selected ? "+ " : "- ");
  }

  [[nodiscard]] std::int64_t First() const { return std::ranges::find_if(entries, &Entry::selected) - entries.begin(); }

  [[nodiscard]] std::int64_t Last() const {  // -1 for none
    for (std::int64_t i = Count(); i-- > 0;) {
      if (entries[static_cast<std::size_t>(i)].selected) return i;
    }
    return -1;
  }

  void Step(std::int64_t direction) {
    const std::int64_t from = First();
    if (from == Count()) return;
    Mark(from, false);
    const std::int64_t to = (from + direction + Count()) % Count();
    Select(to);
    Mark(to, true);
  }

  void UpdateRows(std::int64_t pointed, bool clicks) {
    const auto chosen = std::ranges::count_if(entries, &Entry::selected);
    const std::int64_t last = Last();
    for (std::int64_t i = position; i < std::min(position + kRows, Count()); ++i) {
      Entry& entry = At(i);
      if (entry.disabled) continue;
      if (i - position == pointed) {
        if (clicks) Click(i, chosen, last);
        entry.state = entry.selected ? 0 : 1;
        continue;
      }
      entry.state = 0;
      if (maxSelect == 0 && i == position && i != last) Move(last, i);
    }
  }

  void Click(std::int64_t index, std::ptrdiff_t chosen, std::int64_t last) {
    Entry& entry = At(index);
    if (maxSelect > 1) entry.selected = !entry.selected && chosen < maxSelect;
    if (maxSelect == 1 && !entry.selected) Move(last, index);
  }

  void Move(std::int64_t from, std::int64_t to) {
    if (from >= 0) Mark(from, false);
    Mark(to, true);
  }
};

class ListModel : public ListTest {
 public:
  std::uint32_t Below(std::uint32_t end) { return std::uniform_int_distribution<std::uint32_t>(0, end - 1)(random); }

  Vec3 PlaceOf(Cursor cursor, std::uint32_t row) {
    const float x = static_cast<float>(Below(60)) - 29.5F;
    switch (cursor) {
      case Cursor::Row:
        return RowPlace(row, x, 0.15F + 0.07F * static_cast<float>(Below(11)));
      case Cursor::BelowRows:
        return {x, -14.8F, -1};
      case Cursor::Bar:
        return {40, static_cast<float>(Below(50)) - 25.0F, -1};
      case Cursor::DownButton:
        return {40, 36, -1};
      case Cursor::UpButton:
        return {40, -36, -1};
      default:
        return Below(2) == 0 ? Vec3{x, 16, -1} : Vec3{-31, 0, -1};
    }
  }

  void Update() {
    const auto cursor = static_cast<Cursor>(Below(6));
    const std::uint32_t row = Below(10);
    const std::uint32_t mouse = cursor == Cursor::Bar ? 0 : Below(3);
    constexpr std::array<Char, 4> kKeys{0, 38, 40, u'x'};
    const Char key = kKeys[Below(4)];
    const std::optional<Picked> got = PickAt(Project(PlaceOf(cursor, row)), mouse, key);
    const Model::Picked wanted = model.Update(cursor, row, mouse, key);
    EXPECT_EQ(got && got->first == list, wanted.hovered);
    EXPECT_EQ(got && got->second == list, wanted.clicked);
  }

  void Add() {
    const std::string name = std::to_string(++named);
    ICGUIItem* item = list->AddItem();
    Say(*item, {u"visible/unvisible:" + String(name.begin(), name.end())});
    model.entries.push_back({name});
  }

  void ChangeEntry() {
    if (model.entries.empty()) return;
    const std::uint32_t index = Below(static_cast<std::uint32_t>(model.entries.size()));
    Entry& entry = model.entries[index];
    bool& flag = Below(2) == 0 ? entry.selected : entry.disabled;
    flag = !flag;
    Item(index).selected = entry.selected ? 1 : 0;
    Item(index).info->disabled = entry.disabled ? 1 : 0;
  }

  void Remove() {
    const std::uint32_t index = Below(static_cast<std::uint32_t>(model.entries.size()) + 1);
    if (Below(2) == 0) {
      list->RemoveItem(list->GetItem(index));
    } else {
      list->RemoveItemAt(index);
    }
    if (index < model.entries.size()) model.entries.erase(model.entries.begin() + index);
    if (Below(20) != 0) return;
    list->Clear();
    model.entries.clear();
    model.position = 0;
  }

  void ChangeList() {
    switch (Below(3)) {
      case 0:
        return list->SetVisible(model.visible = Below(4) != 0);
      case 1:
        return list->SetDisabled(model.disabled = Below(4) == 0);
      default:
        model.position = list->info->position = static_cast<std::int32_t>(Below(40)) - 5;
    }
  }

  void Select() {
    const std::uint32_t index = Below(static_cast<std::uint32_t>(model.entries.size()) + 1);
    list->SelectItem(list->GetItem(index));
    model.Select(index);
  }

  void Compare() {
    Deliver();
    ASSERT_EQ(Dispatched(), model.dispatched);
    model.dispatched.clear();
    ASSERT_EQ(list->info->position, model.position);
    ASSERT_EQ(list->info->min, model.min);
    ASSERT_EQ(list->info->max, model.max);
    ASSERT_EQ(list->GetItemCount(), model.entries.size());
    Indices selected;
    for (std::uint32_t i = 0; i < model.entries.size(); ++i) {
      const Entry& entry = model.entries[i];
      if (entry.selected) selected.push_back(i);
      ASSERT_EQ(Item(i).state, entry.state) << i;
    }
    ASSERT_EQ(Selected(), selected);
  }

  std::mt19937 random{4711};
  Model model;
  int named = 0;
};

TEST_F(ListModel, IsWhatTheListDoes) {
  engine.RecordCalls(false);
  using Deed = void (ListModel::*)();
  constexpr std::array<Deed, 12> kDeeds{&ListModel::Update, &ListModel::Update,      &ListModel::Update,
                                        &ListModel::Update, &ListModel::Update,      &ListModel::Add,
                                        &ListModel::Add,    &ListModel::ChangeEntry, &ListModel::Remove,
                                        &ListModel::Select, &ListModel::ChangeEntry, &ListModel::ChangeList};
  for (int most = 0; most <= 3; ++most) {
    gui->Release();
    Open(u"maxselect " + String(1, static_cast<Char>(u'0' + most)));
    model = {};
    model.maxSelect = most;
    model.Update(Cursor::Away, 0, 0, 0);  // as each new page does
    Compare();
    for (int step = 0; step < 20'000 && !HasFailure(); ++step) {
      SCOPED_TRACE("maxselect " + std::to_string(most) + ", step " + std::to_string(step));
      (this->*kDeeds[Below(kDeeds.size())])();
      Compare();
    }
  }
}

}  // namespace
}  // namespace qen::test
