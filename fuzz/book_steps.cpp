// Calls of the host that concern pages, languages, the style and files.
#include "engine/gui_widgets.h"
#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "fuzz/steps.h"

namespace qen::fuzz {
namespace {

constexpr std::array<StringView, 4> kLanguages{u"english", u"german", u"none", u""};

constexpr std::array<StringView, 5> kPageFiles{kPageFile, kOtherPageFile, kBagFile, kSavedFile, u"none.txt"};

constexpr std::array<StringView, 17> kWords{
    u"setpage",        u"undopage",          u"addrenderpage",
    u"remrenderpage",  u"addactivepage",     u"remactivepage",
    u"un/checked",     u"radiogroup",        u"visible/unvisible",
    u"enable/disable", u"settext",           u"removeallfromrender",
    u"play",           u"unvisible/visible", u"",
    u"SETPAGE",        u"setpage:",
};

constexpr std::array<StringView, 8> kArguments{u"page.glb", u"other.glb", u"bag.glb", u"~bbutton",
                                               u"~ccheck",  u"~ttext",    u"~llist",  u""};

void SetPage(Play& play) { play.gui.SetPage(play.PageIndex()); }

void ChangePageLists(Play& play) {
  const std::uint32_t page = play.PageIndex();
  switch (play.bytes.Next() % 5) {
    case 0:
      play.gui.AddRenderPage(page);
      break;
    case 1:
      play.gui.RemRenderPage(page);
      break;
    case 2:
      play.gui.AddActivePage(page);
      break;
    case 3:
      play.gui.RemActivePage(page);
      break;
    default:
      play.gui.ClearUndo();
  }
}

void SetPageListsByHand(Play& play) {
  const std::uint32_t page = play.PageIndex();
  play.gui.GetActivePages() = {page, page};
  play.gui.GetRenderPages() = {page};
}

void Load(Play& play) { play.stage.Load(); }

void Release(Play& play) { play.gui.Release(); }

void Reset(Play& play) { play.gui.Reset(); }

void AddPage(Play& play) {
  const StringView file = play.bytes.OneOf(kPageFiles);
  if (play.gui.GetPageCount() >= 8) return;  // more of them only take time
  if (file == kBagFile) {
    play.gui.AddBagPage(file.data(), &play.stage.engine.camera);
  } else {
    play.gui.AddPage(file.data(), &play.stage.engine.camera);
  }
  play.gui.SetViewport(&play.stage.engine.viewport);
}

void BeQuiet(Play& play) { play.gui.SetQuiet(play.bytes.Next() % 2); }

void Focus(Play& play) {
  if (play.bytes.Next() == '0') {
    play.gui.FocusPrev();
  } else {
    play.gui.FocusNext();
  }
}

void SetLanguage(Play& play) { play.gui.SetLanguage(String(play.bytes.OneOf(kLanguages))); }

void SetWords(Play& play) {
  const std::int32_t id = play.bytes.Number();
  play.gui.SetLanguageText(id, String(play.bytes.Next(), u'w'));
}

void Style(Play& play) {
  switch (play.bytes.Next() % 4) {
    case 0:
      play.gui.LoadStyle(kStyleFile.data());
      break;
    case 1:
      play.gui.CreateStyleResources();
      break;
    case 2:
      play.gui.GetStyleFont().lfHeight = play.bytes.Number();
      break;
    default:
      play.gui.SetTooltip(play.bytes.Number());
  }
}

void Save(Play& play) {
  play.gui.SavePage(kSavedFile.data(), play.PageIndex());
  play.gui.SaveStyle();
  play.gui.SaveLanguage(String(kSavedFile));
  play.stage.MakeSavedReadable();
}

void PlayAnimation(Play& play) {
  if (ICGUIPageObject* page = play.Page()) page->PlayAnim(play.bytes.Number(), play.bytes.Next() % 2 == 1);
}

void StopAnimations(Play& play) {
  if (ICGUIPageObject* page = play.Page()) page->StopAnims();
}

void SetFrameOfAnimation(Play& play) {
  const std::vector<ICGUIAnim*>* anims = play.gui.GetPageAnims(play.PageIndex());
  if (anims == nullptr || anims->empty()) return;
  ICGUIAnim* anim = play.bytes.OneOf(*anims);
  anim->SetFrame(static_cast<float>(play.bytes.Number()));
  anim->GetProgress();
}

void PlaySound(Play& play) {
  if (ICGUIPageObject* page = play.Page()) page->PlaySound(page, play.bytes.Number());
}

void FillBags(Play& play) { play.stage.FillBags(play.bytes.Next() % 8); }

void AskForBagEntry(Play& play) {
  if (ICGUIPageObject* page = play.Page()) page->GetSelectedBagItem();
}

void InviteGuest(Play& play) {
  ICGUIPageObject* page = play.Page();
  if (page == nullptr) return;
  if (!play.guest.attached)
    page->RegisterRenderObject(&play.guest);
  else
    page->UnregisterRenderObject(&play.guest);
  play.guest.attached = !play.guest.attached;
}

// A record that no widget posted.
void SendRecord(Play& play) {
  GuiMessage record;
  record.command = play.bytes.OneOf(kWords);
  record.argument = play.bytes.OneOf(kArguments);
  record.value = play.bytes.Number();
  record.page = play.Page();
  record.snapshot = 1;
  System::daemon->ProcMsg(message::kCommand, 0, reinterpret_cast<std::uintptr_t>(&record), category::kAll);
}

void Later(Play& play) { play.TakeStepInside(); }

void MarkRecords(Play& play) { play.handles = !play.handles; }

constexpr std::array<Step, 23> kSteps{{
    {'p', SetPage},
    {'o', ChangePageLists},
    {'P', SetPageListsByHand},
    {'L', Load},
    {'R', Release},
    {'X', Reset},
    {'a', AddPage},
    {'Q', BeQuiet},
    {'n', Focus},
    {'l', SetLanguage},
    {'t', SetWords},
    {'Y', Style},
    {'S', Save},
    {'A', PlayAnimation},
    {'s', StopAnimations},
    {'F', SetFrameOfAnimation},
    {'W', PlaySound},
    {'b', FillBags},
    {'B', AskForBagEntry},
    {'g', InviteGuest},
    {'!', SendRecord},
    {'i', Later},
    {'H', MarkRecords},
}};

}  // namespace

std::span<const Step> BookSteps() { return kSteps; }

}  // namespace qen::fuzz
