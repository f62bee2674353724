// What every kind of widget shows, reports, sounds like and sends in each of its conditions.
#include "tests/module/every_widget.h"

#include <sstream>

namespace qen::test {
namespace {

class EveryWidget : public GuiTest {
 protected:
  EveryWidget() {
    for (const StringView sound : {u"in.wav", u"tap.wav"}) engine.AddSound(sound);
    AddText(u"gui.txt", u"lang texts.txt tool style.txt");
    AddText(u"style.txt", u"texture panel.png font Serif { height -20 }");
    AddText(u"texts.txt", u"lang english { str1 Label str2 On str3 Off str4 Tip str5 Row }");
    gui->Load(u"gui.txt", &engine.camera);
    String definition = u"onmousewav in.wav onclickwav tap.wav\n";
    for (const StringView widget : kEveryWidget) {
      definition += u"item " + String(widget) + u" { textid 1 tooltip 4 message play:x ";
      if (widget == u"~ccheck") definition += u"b_checked { textid 2 } b_unchecked { textid 3 } ";
      definition += u"}\n";
    }
    OpenScene(SceneOfEveryWidget(), definition);
    dynamic_cast<ICGUIList&>(*Find(u"~llist")).AddItem()->info->tooltip = 5;
    listener.onRecord = [](std::uint32_t, GuiMessage& record) { record.handled = 1; };
  }

  // The only widget in sight after an update: its state, what the page says of it, its commands, sounds, meshes without
  // the widget's name, words with their colour.
  std::string Told(const ICGUIObject& widget, const Vec3& place, std::uint32_t mouse) {
    listener.records.clear();
    gui->SetTooltip(-1);
    engine.sound.played.clear();
    const auto [hovered, clicked] = PickAt(Project(place), mouse).value_or(Picked{});
    Deliver();
    std::ostringstream told;
    told << widget.state << (hovered == &widget ? " hovered" : "") << (clicked == &widget ? " clicked" : "")
         << std::hex;
    for (const auto& [id, record] : listener.records) told << (id == message::kCommand ? " command" : " notification");
    for (const std::string& sound : engine.sound.played) told << " " << sound;
    for (const base::NodeData& node : SceneOfEveryWidget().nodes) {
      const std::size_t end = std::min(node.name.find(u"slidery"), node.name.find_last_of(u"_~"));
      if (node.mesh >= 0 && IsDrawn(node.name)) told << " " << Narrow(end == 0 ? node.name : node.name.substr(0, end));
    }
    engine.calls.clear();
    DrawPages();
    engine.Draw([this] { gui->DrawTooltip(&engine.viewport); });
    for (const base::Call& call : engine.calls) {
      if (!call.name.starts_with("Drawing::DrawText")) continue;
      std::visit([&told](const auto& color) { told << ' ' << color; }, call.arguments[call.arguments.size() - 2]);
      told << ' ' << std::get<std::string>(call.arguments.back());
    }
    told << "\n";
    return told.str();
  }
};

TEST_F(EveryWidget, DoesInEachConditionWhatItsKindDoes) {
  constexpr std::pair<StringView, Vec3> kWidgets[] = {{u"~bbutton", {-60, 50, -1}},
                                                      {u"~ccheck", {-30, 50, -1}},
                                                      {u"~ppicture", {0, 50, -1}},
                                                      {u"~sbar", {20, -50, -1}},
                                                      {u"~llist", {-40, 33.5F, -1}}};
  for (ICGUIObject* widget : gui->GetPageItems(0)) widget->SetVisible(0);
  for (int i = 0; i < 3; ++i) Frame(1.0);
  std::string told;
  for (const auto& [name, place] : kWidgets) {
    ICGUIObject& widget = *Find(String(name));
    widget.SetVisible(1);
    Told(widget, {70, -10, 0}, 0);  // all of it is shown by an update elsewhere
    told += Narrow(name) + "\n";
    for (const auto& [deed, mouse, disabled] :
         {std::tuple{"over", 0U, 0U}, {"held", 1U, 0U}, {"release", 2U, 0U}, {"disabled", 2U, 1U}}) {
      widget.SetDisabled(disabled);
      told += "  " + (deed + (": " + Told(widget, place, mouse)));
    }
    widget.SetDisabled(0);
    widget.SetVisible(0);
    EXPECT_EQ(Told(widget, place, 2), "0\n") << Narrow(name);
  }
  EXPECT_EQ(told, R"(~bbutton
  over: 2 hovered in.wav onmouse ffffff00 Label ff000000 Tip
  held: 1 normal ffffffff Label
  release: 2 hovered clicked command tap.wav onmouse ffffff00 Label ff000000 Tip
  disabled: 1 disabled ffa0a0a0 Label
~ccheck
  over: 2 hovered in.wav onmouse_checked ffffff00 On ffffff00 Label ff000000 Tip
  held: 1 normal_checked ffffffff On ffffffff Label
  release: 2 hovered clicked command tap.wav onmouse_checked ffffff00 On ffffff00 Label ff000000 Tip
  disabled: 1 disabled_unchecked ffa0a0a0 Off ffa0a0a0 Label
~ppicture
  over: 1 ~ppicture
  held: 1 ~ppicture
  release: 1 command ~ppicture
  disabled: 1 ~ppicture
~sbar
  over: 2 hovered normal_barx normal_slider normal_down normal_up ff000000 Tip
  held: 2 hovered clicked notification normal_barx normal_slider normal_down normal_up
  release: 2 hovered command command in.wav tap.wav tap.wav normal_barx normal_slider normal_down normal_up ff000000 Tip
  disabled: 1 normal_barx normal_slider normal_down normal_up
~llist
  over: 1 hovered list normal_bary normal_slider normal_down normal_up ffffff00 NewItem ff000000 Row
  held: 1 hovered list normal_bary normal_slider normal_down normal_up ffffff00 NewItem ff000000 Row
  release: 1 hovered list normal_bary normal_slider normal_down normal_up ffff0000 NewItem ff000000 Row
  disabled: 1 hovered list normal_bary normal_slider normal_down normal_up ffff0000 NewItem ff000000 Row
)");
}

TEST_F(EveryWidget, StandsAnythingWhileReleased) {
  for (ICGUIObject* widget : gui->GetPageItems(0)) {
    widget->Release();
    widget->Release();
    Hover(*widget);
    ClickHere();
    DrawPages();
    for (const std::uint32_t shown : {1U, 0U}) widget->ShowNodes(shown);
  }
}

}  // namespace
}  // namespace qen::test
