// Scripts: what widgets are, and changing them as the game does.
#include <array>
#include <stdexcept>
#include <utility>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "host/app/pages.h"
#include "host/app/widget_place.h"
#include "host/script/script_functions.h"
#include "host/script/script_state.h"
#include "host/script/script_world.h"

namespace qen::host {
namespace {

// The text that a widget is or has, of a check button without one that of its present state; null when it has none.
ICGUIText* TextOf(ICGUIObject& widget) {
  if (auto* text = dynamic_cast<ICGUIText*>(&widget)) return text;
  auto* check = dynamic_cast<ICGUICheckButton*>(&widget);
  if (widget.text != nullptr || check == nullptr) return widget.text;
  ICGUIButton* half = widget.info->checked != 0 ? check->GetCheckedButton() : check->GetUncheckedButton();
  return half != nullptr ? half->text : nullptr;
}

ICGUIText& NeedText(ICGUIObject& widget) {
  ICGUIText* text = TextOf(widget);
  if (text == nullptr) throw std::runtime_error(base::ToUtf8(widget.info->name) + " has no text");
  return *text;
}

void PushItems(lua_State* state, IGui& gui, ICGUIList& list) {
  lua_newtable(state);
  for (std::uint32_t i = 0; i < list.GetItemCount(); ++i) {
    const ICGUIItem& item = *list.GetItem(i);
    lua_newtable(state);
    SetField(state, "name", StringView(item.name));
    SetField(state, "text", StringView(item.textId == -1 ? item.displayText : gui.GetText(item.textId)));
    SetField(state, "selected", item.selected != 0);
    SetField(state, "disabled", item.info->disabled != 0);
    lua_rawseti(state, -2, i + 1);
  }
}

void PushTextFields(lua_State* state, IGui& gui, ICGUIText& text) {
  SetField(state, "textid", std::int64_t{text.GetTextId()});
  if (text.GetTextId() != -1) SetField(state, "text", StringView(gui.GetText(text.GetTextId())));
  SetField(state, "edit", StringView(text.GetEditText()));
}

void PushRecordFields(lua_State* state, ICGUIObject& widget) {
  const ItemInfo& info = *widget.info;
  SetField(state, "name", StringView(info.name));
  SetField(state, "type", std::string_view(std::string(1, static_cast<char>(info.type))));
  SetField(state, "page", StringView(ShortName(widget.GetPage()->baseName)));
  SetField(state, "id", std::int64_t{widget.GetId()});
  SetField(state, "visible", info.visible != 0);
  SetField(state, "disabled", info.disabled != 0);
  SetField(state, "checked", info.checked != 0);
  SetField(state, "position", std::int64_t{info.position});
  SetField(state, "min", std::int64_t{info.min});
  SetField(state, "max", std::int64_t{info.max});
  SetField(state, "tooltip", std::int64_t{info.tooltip});
  SetField(state, "state", std::int64_t{widget.state});
}

int Widget(ScriptWorld& world, lua_State* state) {
  ICGUIObject& widget = FindWidget(world.Gui(), WideArgument(state, 1));
  lua_newtable(state);
  PushRecordFields(state, widget);
  if (ICGUIText* text = TextOf(widget)) PushTextFields(state, world.Gui(), *text);
  Stage& stage = world.GetStage();
  if (const auto place = FindPlace(widget, stage.GetCamera(), stage.Window().ClientSize())) {
    SetField(state, "x", std::int64_t{place->x});
    SetField(state, "y", std::int64_t{place->y});
  }
  if (auto* list = dynamic_cast<ICGUIList*>(&widget)) {
    PushItems(state, world.Gui(), *list);
    lua_setfield(state, -2, "items");
  }
  return 1;
}

void SetPicture(ICGUIObject& widget, lua_State* state, int value) {
  auto* picture = dynamic_cast<ICGUIPicture*>(&widget);
  if (picture == nullptr) throw std::runtime_error(base::ToUtf8(widget.info->name) + " is no picture");
  TextureUse texture = lua_isnil(state, value) ? nullptr : LoadTexture(WideArgument(state, value));
  ScriptState::Of(state).World().Pictures().Show(*picture, std::move(texture));
}

// A field that scripts may set; `value` is the place of the new value on the stack.
struct Setter {
  std::string_view field;
  void (*set)(ICGUIObject& widget, lua_State* state, int value);
};

std::uint32_t Flag(lua_State* state, int value) { return static_cast<std::uint32_t>(FlagOrInteger(state, value)); }

constexpr std::array kSetters{
    Setter{"visible", [](ICGUIObject& w, lua_State* s, int v) { w.SetVisible(Flag(s, v)); }},
    Setter{"disabled", [](ICGUIObject& w, lua_State* s, int v) { w.SetDisabled(Flag(s, v)); }},
    Setter{"checked", [](ICGUIObject& w, lua_State* s, int v) { w.info->checked = Flag(s, v); }},
    Setter{"box", [](ICGUIObject& w, lua_State* s, int v) { w.SetShowBox(Flag(s, v)); }},
    Setter{"position", [](ICGUIObject& w, lua_State* s, int v) { w.info->position = IntegerArgument(s, v); }},
    Setter{"min", [](ICGUIObject& w, lua_State* s, int v) { w.info->min = IntegerArgument(s, v); }},
    Setter{"max", [](ICGUIObject& w, lua_State* s, int v) { w.info->max = IntegerArgument(s, v); }},
    Setter{"tooltip", [](ICGUIObject& w, lua_State* s, int v) { w.info->tooltip = IntegerArgument(s, v); }},
    Setter{"id", [](ICGUIObject& w, lua_State* s, int v) { w.GetId() = IntegerArgument(s, v); }},
    Setter{"textid", [](ICGUIObject& w, lua_State* s, int v) { NeedText(w).SetTextId(IntegerArgument(s, v)); }},
    Setter{"text", [](ICGUIObject& w, lua_State* s, int v) { NeedText(w).SetText(WideArgument(s, v).c_str()); }},
    Setter{"number", [](ICGUIObject& w, lua_State* s, int v) { NeedText(w).SetNumber(IntegerArgument(s, v)); }},
    Setter{"edit", [](ICGUIObject& w, lua_State* s, int v) { NeedText(w).GetEditText() = WideArgument(s, v); }},
    Setter{"editable", [](ICGUIObject& w, lua_State* s, int v) { NeedText(w).GetEditable() = Flag(s, v); }},
    Setter{"centered", [](ICGUIObject& w, lua_State* s, int v) { NeedText(w).GetCentered() = Flag(s, v); }},
    Setter{"maxchars", [](ICGUIObject& w, lua_State* s, int v) { NeedText(w).GetMaxChars() = IntegerArgument(s, v); }},
    Setter{"alpha", [](ICGUIObject& w, lua_State* s, int v) { NeedText(w).SetAlpha(Flag(s, v)); }},
    Setter{"texture", SetPicture},
};

int Set(ScriptWorld& world, lua_State* state) {
  ICGUIObject& widget = FindWidget(world.Gui(), WideArgument(state, 1));
  const std::string field = TextArgument(state, 2);
  luaL_checkany(state, 3);
  for (const Setter& setter : kSetters) {
    if (setter.field != field) continue;
    setter.set(widget, state, 3);
    return 0;
  }
  throw std::runtime_error("widgets have no field " + field + " that can be set");
}

}  // namespace

ScriptFunctions WidgetFunctions() {
  static constexpr std::array<ScriptFunction, 2> kFunctions{{{"widget", Widget}, {"set", Set}}};
  return kFunctions;
}

}  // namespace qen::host
