// The steps. What stands behind a letter chooses what it acts on; see Bytes.
#include "fuzz/steps.h"

#include <cmath>
#include <type_traits>

#include "engine/msg_daemon.h"
#include "engine/system.h"

namespace qen::fuzz {
namespace {

// What people and systems send as keys: arrows, editing keys, letters, what is no letter.
constexpr std::array<Char, 20> kKeys{u'\b', u'\t', u'\r', 0x1B, u' ',  0x25,   0x26,   0x27,   0x28,   0x24,
                                     0x23,  0x2D,  0x2E,  u'a', u'\n', 0x0301, 0xD83D, 0xDE00, 0x0645, 0xFFFF};
constexpr std::array<double, 6> kTimes{1.0 / 60, 0.3, 1.0, 60.0, 0.0, 1e9};
constexpr std::array<base::Point, 4> kWindowSizes{{{800, 600}, {1, 1}, {0, 0}, {3000, 200}}};
constexpr std::array<StringView, 4> kLanguages{u"english", u"german", u"none", u""};
constexpr std::array<StringView, 5> kPageFiles{kPageFile, kOtherPageFile, kBagFile, kSavedFile, u"none.txt"};
constexpr std::array<StringView, 8> kWords{u"setpage",    u"undopage", u"addactivepage",     u"remrenderpage",
                                           u"un/checked", u"settext",  u"visible/unvisible", u"play"};
constexpr std::array<StringView, 7> kArguments{u"page.glb", u"other.glb", u"bag.glb", u"~ccheck",
                                               u"~ttext",   u"~llist",    u""};

// Takes the change that the next byte chooses.
template <class Target>
void Change(Bytes& bytes, Target* target,
            std::initializer_list<void (*)(Bytes& bytes, std::type_identity_t<Target>& target)> changes) {
  if (target != nullptr) bytes.OneOf(changes)(bytes, *target);
}

// The next widget of that kind; null when there is none.
template <class Kind = ICGUIObject>
Kind* Widget(Play& play) {
  std::vector<Kind*> found;
  for (ICGUIObject* widget : play.stage.Widgets()) {
    if (auto* kind = dynamic_cast<Kind*>(widget)) found.push_back(kind);
  }
  return found.empty() ? nullptr : play.bytes.OneOf(found);
}

ICGUIPageObject* Page(Play& play) { return play.gui.GetPage(play.bytes.Index()); }

void Hover(Play& play) {
  if (ICGUIObject* widget = Widget(play)) play.stage.Hover(*widget);
}

void Click(Play& play) {
  if (ICGUIObject* widget = Widget(play)) play.stage.Click(*widget);
}

void Move(Play& play) {
  const std::int32_t x = play.bytes.Next() * 800 / 128;
  play.stage.MoveTo({x, play.bytes.Next() * 600 / 128});
}

void ResizeWindow(Play& play) {
  const base::Point size = play.stage.engine.window.size = play.bytes.OneOf(kWindowSizes);
  play.stage.engine.viewport.Resize(static_cast<std::uint32_t>(size.x), static_cast<std::uint32_t>(size.y));
}

void AddPage(Play& play) {
  const StringView file = play.bytes.OneOf(kPageFiles);
  if (play.gui.GetPageCount() >= 8) return;  // more of them only take time
  const auto add = file == kBagFile ? &IGui::AddBagPage : &IGui::AddPage;
  (play.gui.*add)(file.data(), &play.stage.engine.camera);
  play.gui.SetViewport(&play.stage.engine.viewport);
}

void Save(Play& play) {
  play.gui.SavePage(kSavedFile.data(), play.bytes.Index());
  play.gui.SaveStyle();
  play.gui.SaveLanguage(String(kSavedFile));
  play.stage.MakeSavedReadable();
}

void InviteGuest(Play& play) {
  ICGUIPageObject* page = Page(play);
  if (page == nullptr) return;
  const auto call =
      play.guest.attached ? &ICGUIPageObject::UnregisterRenderObject : &ICGUIPageObject::RegisterRenderObject;
  (page->*call)(&play.guest);
  play.guest.attached = !play.guest.attached;
}

// A record that no widget posted.
void SendRecord(Play& play) {
  GuiMessage record;
  record.command = play.bytes.OneOf(kWords);
  record.argument = play.bytes.OneOf(kArguments);
  record.value = play.bytes.Number();
  record.page = Page(play);
  record.snapshot = 1;
  System::daemon->ProcMsg(message::kCommand, 0, reinterpret_cast<std::uintptr_t>(&record), category::kAll);
}

void ChangeGui(Play& play) {
  Change(play.bytes, &play.gui,
         {
             [](auto& bytes, auto& gui) { gui.AddRenderPage(bytes.Index()); },
             [](auto& bytes, auto& gui) { gui.RemRenderPage(bytes.Index()); },
             [](auto& bytes, auto& gui) { gui.AddActivePage(bytes.Index()); },
             [](auto& bytes, auto& gui) { gui.RemActivePage(bytes.Index()); },
             [](auto& bytes, auto& gui) { gui.GetActivePages().assign(2, bytes.Index()); },
             [](auto& bytes, auto& gui) { gui.GetRenderPages().assign(2, bytes.Index()); },
             [](auto&, auto& gui) { gui.ClearUndo(); },
             [](auto&, auto& gui) { gui.FocusPrev(); },
             [](auto&, auto& gui) { gui.FocusNext(); },
             [](auto& bytes, auto& gui) { gui.SetQuiet(bytes.Next() % 2); },
             [](auto&, auto& gui) { gui.LoadStyle(kStyleFile.data()); },
             [](auto&, auto& gui) { gui.CreateStyleResources(); },
             [](auto& bytes, auto& gui) { gui.GetStyleFont().lfHeight = bytes.Number(); },
             [](auto& bytes, auto& gui) { gui.SetTooltip(bytes.Number()); },
             [](auto& bytes, auto& gui) { gui.SetLanguage(String(bytes.OneOf(kLanguages))); },
             [](auto& bytes, auto& gui) { gui.SetLanguageText(bytes.Number(), String(bytes.Next(), u'w')); },
         });
}

void ChangePage(Play& play) {
  Change(play.bytes, Page(play),
         {
             [](auto& bytes, auto& page) { page.PlayAnim(bytes.Number(), bytes.Next() % 2 == 1); },
             [](auto& bytes, auto& page) {
               if (!page.anims.empty()) bytes.OneOf(page.anims)->SetFrame(static_cast<float>(bytes.Number()));
             },
             [](auto& bytes, auto& page) {
               if (!page.anims.empty()) bytes.OneOf(page.anims)->GetProgress();
             },
             [](auto&, auto& page) { page.StopAnims(); },
             [](auto& bytes, auto& page) { page.PlaySound(&page, bytes.Number()); },
             [](auto&, auto& page) { page.GetSelectedBagItem(); },
         });
}

void ChangeWidget(Play& play) {
  Change(play.bytes, Widget(play),
         {
             [](auto& bytes, auto& widget) { widget.SetVisible(bytes.Flag()); },
             [](auto& bytes, auto& widget) { widget.SetDisabled(bytes.Flag()); },
             [](auto& bytes, auto& widget) { widget.info->checked = bytes.Flag(); },
             [](auto& bytes, auto& widget) { widget.info->position = bytes.Number(); },
             [](auto& bytes, auto& widget) { widget.info->max = bytes.Number(); },
             [](auto& bytes, auto& widget) { widget.info->min = bytes.Number(); },
             [](auto& bytes, auto& widget) { widget.SetShowBox(bytes.Flag()); },
             [](auto& bytes, auto& widget) { widget.info->tooltip = bytes.Number(); },
             [](auto& bytes, auto& widget) { widget.ShowNodes(bytes.Flag()); },
             [](auto& bytes, auto& widget) { widget.GetId() = bytes.Number(); },
             [](auto& bytes, auto& widget) {
               Matrix4x4 matrix = Matrix4x4::Identity;
               widget.GetMatrix(matrix);
               const std::int32_t number = bytes.Number();
               matrix.m[number & 3][0] = number == 7 ? NAN : static_cast<float>(number);
               widget.SetMatrix(matrix);
             },
         });
}

void ChangeList(Play& play) {
  auto* changed = Widget<ICGUIList>(play);
  Change(play.bytes, changed,
         {
             [](auto& bytes, auto& list) { list.AddItem()->displayText = String(bytes.Index() % 64, u'i'); },
             [](auto& bytes, auto& list) { list.AddItem()->textId = bytes.Number(); },
             [](auto& bytes, auto& list) { list.AddItemCopy(list.GetItem(bytes.Index())); },
             [](auto& bytes, auto& list) { list.RemoveItem(list.GetItem(bytes.Index())); },
             [](auto& bytes, auto& list) { list.RemoveItemAt(bytes.Index()); },
             [](auto& bytes, auto& list) { list.SelectItem(list.GetItem(bytes.Index())); },
             [](auto& bytes, auto& list) {
               if (ICGUIItem* item = list.GetItem(bytes.Index())) item->selected = item->selected == 0 ? 1 : 0;
             },
             [](auto&, auto& list) { list.Clear(); },
         });
  std::vector<std::uint32_t> selected;
  if (changed != nullptr) changed->GetSelectedIndices(selected);
}

void ChangeText(Play& play) {
  Change(play.bytes, Widget<ICGUIText>(play),
         {
             [](auto& bytes, auto& text) { text.SetTextId(bytes.Number()); },
             [](auto& bytes, auto& text) { text.SetNumber(bytes.Number()); },
             [](auto& bytes, auto& text) { text.SetText(String(bytes.Flag() & 0x1FF, u'\n').c_str()); },
             [](auto& bytes, auto& text) { text.SetText(std::string(bytes.Flag() & 0x1FF, '\xFF').c_str()); },
             [](auto& bytes, auto& text) { text.GetEditable() = bytes.Flag(); },
             [](auto& bytes, auto& text) { text.GetMaxChars() = bytes.Number(); },
             [](auto& bytes, auto& text) { text.GetShadowOffset() = static_cast<float>(bytes.Number()); },
             [](auto& bytes, auto& text) { text.SetAlpha(bytes.Flag()); },
             [](auto& bytes, auto& text) { text.GetFontDesc().lfHeight = bytes.Number(); },
             [](auto&, auto& text) { text.RecreateFont(); },
             [](auto& bytes, auto& text) { text.GetCentered() = bytes.Flag(); },
         });
}

void ChangeSlot(Play& play) {
  Change(play.bytes, Widget<ICGUIDummy>(play),
         {
             [](auto& bytes, auto& slot) { slot.GetActive() = bytes.Number(); },
             [](auto& bytes, auto& slot) { slot.GetScale() = static_cast<float>(bytes.Number()); },
             [](auto& bytes, auto& slot) { slot.GetAlpha() = bytes.Number(); },
             [](auto& bytes, auto& slot) { slot.SetColor(bytes.Flag(), bytes.Next() == '0'); },
             [](auto&, auto& slot) { slot.LoadTexture(); },
         });
}

constexpr Step kSteps[] = {
    // Input, time and drawing.
    {'m', Move},
    {'h', Hover},
    {'c', Click},
    {'d', [](Play& play) { play.stage.Send(message::kButtonDown, play.bytes.Index()); }},
    {'u', [](Play& play) { play.stage.Send(message::kButtonUp, play.bytes.Index()); }},
    {'w', [](Play& play) { play.stage.Send(message::kWheel, play.bytes.Flag()); }},
    {'k', [](Play& play) { play.stage.Send(message::kKey, play.bytes.OneOf(kKeys)); }},
    {'?', [](Play& play) { play.stage.Send(message::kMouseMove + play.bytes.Next(), play.bytes.Flag()); }},
    {'f', [](Play& play) { play.stage.Frame(play.bytes.OneOf(kTimes)); }},
    {'q', [](Play& play) { play.stage.Deliver(); }},
    {'r', [](Play& play) { play.stage.Draw(); }},
    {'U', [](Play& play) { play.gui.Update(play.bytes.Flag(), play.bytes.Next(), play.bytes.Next()); }},
    {'M', [](Play& play) { play.gui.SetCursor(play.bytes.Number(), play.bytes.Number()); }},
    {'z', ResizeWindow},
    {'v', [](Play& play) { play.gui.SetViewport(play.bytes.Next() == '0' ? nullptr : &play.stage.engine.viewport); }},
    {'y', [](Play& play) { play.stage.engine.ime.composition = String(play.bytes.Next() % 8, u'\u6F22'); }},
    // Loading, files and records.
    {'L', [](Play& play) { play.stage.Load(); }},
    {'R', [](Play& play) { play.gui.Release(); }},
    {'X', [](Play& play) { play.gui.Reset(); }},
    {'a', AddPage},
    {'S', Save},
    {'b', [](Play& play) { play.stage.FillBags(play.bytes.Next() % 8); }},
    {'g', InviteGuest},
    {'!', SendRecord},
    {'i', [](Play& play) { play.TakeStepInside(); }},
    {'H', [](Play& play) { play.handles = !play.handles; }},
    // Changes.
    {'p', [](Play& play) { play.gui.SetPage(play.bytes.Index()); }},
    {'o', ChangeGui},
    {'P', ChangePage},
    {'e', ChangeWidget},
    {'=', ChangeList},
    {'T', ChangeText},
    {'D', ChangeSlot},
};

}  // namespace

std::span<const Step> Steps() { return kSteps; }

}  // namespace qen::fuzz
