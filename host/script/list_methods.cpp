// Scripts: lists.
#include <array>
#include <memory>
#include <stdexcept>

#include "base/utf.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "host/app/pages.h"
#include "host/script/script_functions.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

constexpr const char* kNameField = "name";

ICGUIList& ListNamed(ScriptWorld& world, const String& name) {
  auto* list = dynamic_cast<ICGUIList*>(&FindWidget(world.Gui(), name));
  if (list == nullptr) throw std::runtime_error(base::ToUtf8(name) + " is no list");
  return *list;
}

// The list that a method is called on, found by its name each time, since it may be gone.
ICGUIList& ListArgument(ScriptWorld& world, lua_State* state) {
  return ListNamed(world, TextField(state, 1, kNameField));
}

int Open(ScriptWorld& world, lua_State* state) {
  const String name = WideArgument(state, 1);
  ListNamed(world, name);
  lua_newtable(state);
  SetField(state, kNameField, StringView(name));
  AddFunctions(state, ListMethods());
  return 1;
}

struct Entry {
  String name;
  String text;
  String message;
  std::int32_t textId = -1;
};

Entry ReadEntry(lua_State* state, int index) {
  return {TextField(state, index, "name"), TextField(state, index, "text"), TextField(state, index, "message"),
          IntegerField(state, index, "textid", -1)};
}

int Add(ScriptWorld& world, lua_State* state) {
  const Entry entry = ReadEntry(state, 2);  // first, since the list may be gone behind what a metatable does
  ICGUIList& list = ListArgument(world, state);
  ICGUIItem& item = *list.AddItem();
  item.name = entry.name;
  item.displayText = entry.text;
  item.textId = entry.textId;
  if (entry.message.empty()) return 0;
  item.info->messages.push_back(std::make_unique<GuiMessage>());
  item.info->messages.back()->text = entry.message;
  item.info->messages.back()->source = &list;
  return 0;
}

int Clear(ScriptWorld& world, lua_State* state) {
  ListArgument(world, state).Clear();
  return 0;
}

// Entries count from 1, as Lua's lists do.
int Select(ScriptWorld& world, lua_State* state) {
  ICGUIList& list = ListArgument(world, state);
  const std::int32_t position = IntegerArgument(state, 2);
  ICGUIItem* item = position >= 1 ? list.GetItem(static_cast<std::uint32_t>(position) - 1) : nullptr;
  if (item == nullptr) throw std::runtime_error("the list has no entry " + std::to_string(position));
  list.SelectItem(item);
  return 0;
}

int Selected(ScriptWorld& world, lua_State* state) {
  std::vector<std::uint32_t> indices;
  std::vector<std::int64_t> positions;
  for (const std::uint32_t index : ListArgument(world, state).GetSelectedIndices(indices)) {
    positions.push_back(std::int64_t{index} + 1);
  }
  PushList(state, positions);
  return 1;
}
constexpr std::array<ScriptFunction, 4> kMethods{
    {{"add", Add}, {"clear", Clear}, {"select", Select}, {"selected", Selected}}};

}  // namespace

ScriptFunctions ListFunctions() {
  static constexpr std::array<ScriptFunction, 1> kFunctions{{{"list", Open}}};
  return kFunctions;
}
ScriptFunctions ListMethods() { return kMethods; }

}  // namespace qen::host
