#include "fuzz/stage.h"

#include <cstdlib>

#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "tests/module/data_folder.h"
#include "tests/module/every_widget.h"
#include "widgets/caret.h"

namespace qen::fuzz {
namespace {

constexpr std::pair<StringView, StringView> kFiles[] = {
    {kLanguageFile,
     u"lang english { str1 One str2 \"Two words\" str3 \"Three\\nlines\\nof text\" }\n"
     u"lang german { str1 Eins str2 \"Zwei W\u00f6rter\" }"},
    {kPageFile,
     u"name page.glb anim_in in.glb anim_out out.glb anim in.glb\n"
     u"onmousewav sound.wav onclickwav sound.wav onaniminwav sound.wav onanimoutwav sound.wav\n"
     u"item ~bbutton { tooltip 1 textid 2 message setpage:other.glb message play: }\n"
     u"item ~ccheck { message radiogroup:~ccheck message enable/disable:~bbutton message settext:~ttext\n"
     u"  b_checked { textid 1 } b_unchecked { textid 2 } }\n"
     u"item ~ppicture { message addactivepage:page.glb message un/checked:~ccheck message undopage: }\n"
     u"item ~sbar { message volume:all }\n"
     u"item ~llist { listitem { name a textid 1 commentid 2 message settext:~ttext } listitem { name b tooltip 1 } }\n"
     u"item ~ttext { textid 1 editabled 1 maxchars 20 shadowoff 10 font Courier { height -12 } }\n"
     u"item ~tscroll { textid 3 centered 1 }\n"},
    {kOtherPageFile, u"name other.glb item ~bback { message setpage:page.glb }"},
    {kBagFile, u"name bag.glb item ~qslot0 { active 1 tooltip 1 } item ~qslot1 { active 1 } item ~qslot2 { scale 2 }"},
    {kStyleFile, u"texture picture.png color_normal ff8000 font Courier { height -18 }"},
};

// Where the GUI saves. What is saved is flushed to the disk, which is slow unless it is none.
const test::DataFolder& SavedFiles() {
  constexpr const char* kMemory = "/dev/shm";
  if (std::filesystem::is_directory(kMemory)) setenv("TMPDIR", kMemory, 0);
  static const test::DataFolder folder;
  return folder;
}

}  // namespace

Stage::Stage() {
  SavedFiles();
  engine.RecordCalls(false);
}

void Stage::AddFiles(StringView description) {
  test::AddPageOfEveryWidget(engine, u"page", {});
  AddButtonPage(u"other", {u"back"});
  test::AddBag(engine, u"bag", 3, {});
  engine.AddAnimation(u"in.glb", base::MoveNode(u"~bbutton", {}, {1, 2, 3}, 0.5F));
  engine.AddAnimation(u"out.glb", base::MoveNode(u"~ttext", {1, 2, 3}, {}, 0.5F));
  engine.AddPictureFile(u"picture.png");
  engine.AddPictureFile(u"textures\\guitex\\default_bag.png");
  engine.AddSound(u"sound.wav");
  for (const auto& [name, text] : kFiles) engine.files.AddText(name, text);
  engine.files.AddText(kDescriptionFile, description);
}

void Stage::GiveBack() {
  gui->Reset();
  System::daemon->RemoveHandler(&listener, category::kAll);
  module.Export<DeactivateDllFunction>(kDeactivateDll)();
  gui = System::gui = module.Export<ActivateDllFunction>(kActivateDll)();
  System::daemon->AddHandler(&listener, category::kAll);
  entries_.clear();
  ForgetRecords();
  if (!saved_) return;
  for (const auto& entry : std::filesystem::directory_iterator(SavedFiles().Path())) remove_all(entry.path());
  saved_ = false;
}

void Stage::ForgetRecords() {
  engine.files.reads = {};
  engine.sound.played = {};
  engine.ime.changes = {};
  engine.log = {};
  listener.records.clear();
  engine.errors = {};
}

void Stage::Load() {
  gui->Load(kDescriptionFile.data(), &engine.camera);
  gui->SetViewport(&engine.viewport);
  // These are the library's: the mouse button, which an earlier input may hold, and the blinking of the caret.
  ReleaseButton();
  caretPhase = 0.0;
  Frame();
  gui->SetPage(0);
  Deliver();
  Frame();
}

void Stage::Draw() {
  engine.Draw([this] {
    Send(message::kRender, 0, gui->GetViewport());
    gui->DrawTooltip(gui->GetViewport());
  });
}

void Stage::Click(ICGUIObject& widget) {
  Hover(widget);
  ClickHere();
}

void Stage::FillBags(std::size_t entries) {
  std::vector<IBagEntry*> shown;
  for (std::size_t i = 0; i < entries; ++i) {
    entries_.push_back(std::make_unique<test::Entry>(static_cast<std::uint32_t>(i) * 0x102030U));
    shown.push_back(entries_.back().get());
  }
  for (std::uint32_t page = 0; page < gui->GetPageCount(); ++page) gui->GetPage(page)->SetBagItems(shown);
}

std::vector<ICGUIObject*> Stage::Widgets() const {
  std::vector<ICGUIObject*> widgets;
  for (std::uint32_t page = 0; page < gui->GetPageCount(); ++page) {
    const std::vector<ICGUIObject*> items = gui->GetPageItems(page);
    widgets.insert(widgets.end(), items.begin(), items.end());
  }
  return widgets;
}

void Stage::MakeSavedReadable() {
  saved_ = true;
  const std::string bytes = SavedFiles().Read(base::ToUtf8(kSavedFile));
  engine.files.Add(kSavedFile, {bytes.begin(), bytes.end()});
}

}  // namespace qen::fuzz
