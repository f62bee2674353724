// The DLL as a host may find and treat it.
#include <algorithm>
#include <array>
#include <span>

#include "engine/font_desc.h"
#include "engine/msg_daemon.h"
#include "engine/platform.h"
#include "engine/system.h"
#include "tests/module/data_folder.h"

namespace qen::test {
namespace {

namespace fs = std::filesystem;

// What a host with wide strings hands over and gets back is the same in memory.
static_assert(sizeof(Char) == sizeof(wchar_t) && alignof(Char) == alignof(wchar_t));
static_assert(sizeof(String) == sizeof(std::wstring) && sizeof(LOGFONTW) == 92);

struct Use {
  DWORD handles = 0;
  std::size_t bytes = 0;
};

// Of this process: open handles, and bytes on its heaps.
Use InUse() {
  Use use;
  GetProcessHandleCount(GetCurrentProcess(), &use.handles);
  std::array<HANDLE, 32> heaps{};
  const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  for (const HANDLE heap : std::span(heaps).first(std::min<std::size_t>(count, heaps.size()))) {
    HeapLock(heap);
    for (PROCESS_HEAP_ENTRY entry{}; HeapWalk(heap, &entry) != 0;) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) use.bytes += entry.cbData;
    }
    HeapUnlock(heap);
  }
  return use;
}

// A life of the module: a page is shown, clicked and saved.
void LoadAndUse(const fs::path& file, base::RecordingEngine& engine) {
  const HMODULE library = LoadLibraryW(file.c_str());
  ASSERT_NE(library, nullptr) << GetLastError();
  const auto function = [library](const char* name) { return reinterpret_cast<void*>(GetProcAddress(library, name)); };
  IGui* gui = reinterpret_cast<ActivateDllFunction>(function(kActivateDll))();
  ASSERT_TRUE(gui->AddPage(u"menu.txt", &engine.camera));
  gui->SetViewport(&engine.viewport);
  gui->SetPage(0);
  for (const std::uint32_t id : {message::kDeliverQueue, message::kMouseMove, message::kFrame, message::kButtonDown,
                                 message::kFrame, message::kButtonUp, message::kFrame, message::kDeliverQueue}) {
    System::daemon->ProcMsg(id, 1, 0, category::kGui);
  }
  EXPECT_TRUE(gui->SavePage(u"menu.txt", 0));
  reinterpret_cast<DeactivateDllFunction>(function(kDeactivateDll))();
  EXPECT_NE(FreeLibrary(library), 0);
  EXPECT_EQ(GetModuleHandleW(file.filename().c_str()), nullptr) << "it is gone";
}

TEST(TheDll, IsLoadedFromAnyFolderAndLeavesNoHandlesAndLittleMemory) {
  const DataFolder data;
  const fs::path file = data.Path() / u8"Spiele \u96EA\u0416\u00FC" / "gui.dll";
  fs::create_directories(file.parent_path());
  fs::copy_file(GUI_MODULE_FILE, file);
  base::RecordingEngine engine;
  base::SceneData scene;
  AddButton(scene, u"ok", {});
  engine.AddScene(u"menu.glb", scene);
  engine.files.AddText(u"menu.txt", u"name menu.glb item ~bok { message play:level1 }");
  engine.RecordCalls(false);
  Use before;
  for (int round = 0; round < 105; ++round) {
    if (round == 5) before = InUse();
    fs::remove_all(data.Path() / "bak");
    engine.log.clear();
    engine.errors.clear();
    engine.files.reads.clear();
    ASSERT_NO_FATAL_FAILURE(LoadAndUse(file, engine));
  }
  const Use after = InUse();
  EXPECT_EQ(after.handles, before.handles);
  EXPECT_GT(before.bytes, 100000U) << "the heap was counted";
  // What the C++ library of a DLL would leave behind is 75,000 bytes a time; what its thread library does is 760.
  EXPECT_LT(after.bytes, before.bytes + 100'000);
}

}  // namespace
}  // namespace qen::test
