#include "fuzz/stage.h"

#include <cstdlib>

#include "tests/module/every_widget.h"

namespace qen::fuzz {
namespace {

struct File {
  StringView name;
  StringView text;
};

constexpr File kFiles[] = {
    {kDescriptionFile, u"lang texts.txt tool style.txt name page.txt name other.txt bagname bag.txt"},
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

// What lasts as long as the process.
struct Process {
  Process() {
    // What is saved is flushed to the disk, which is slow unless it is none.
    constexpr const char* kMemory = "/dev/shm";
    if (std::filesystem::is_directory(kMemory)) setenv("TMPDIR", kMemory, 0);
  }

  test::Module library;  // loaded before libFuzzer looks for what it can watch
};
const Process process;

}  // namespace

Stage::Stage() {
  engine.RecordCalls(false);
  AddFiles();
}

Stage::~Stage() {
  gui->Release();
  gui->Reset();
}

void Stage::AddFiles() {
  test::AddPageOfEveryWidget(engine, u"page", {});
  AddButtonPage(u"other", {u"back"});
  test::AddBag(engine, u"bag", 3, {});
  engine.AddAnimation(u"in.glb", base::MoveNode(u"~bbutton", {}, {1, 2, 3}, 0.5F));
  engine.AddAnimation(u"out.glb", base::MoveNode(u"~ttext", {1, 2, 3}, {}, 0.5F));
  engine.AddPictureFile(u"picture.png");
  engine.AddPictureFile(u"textures\\guitex\\default_bag.png");
  engine.AddSound(u"sound.wav");
  for (const File& file : kFiles) engine.files.AddText(file.name, file.text);
}

void Stage::Load() {
  gui->Load(kDescriptionFile.data(), &engine.camera);
  gui->SetViewport(&engine.viewport);
  // The state of the mouse button is the library's: a button that an earlier input held is let go.
  Send(message::kButtonUp, 1);
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
  const std::string bytes = test::BytesOf(data_.Path() / base::ToUtf8(kSavedFile));
  engine.files.Add(kSavedFile, {bytes.begin(), bytes.end()});
}

}  // namespace qen::fuzz
