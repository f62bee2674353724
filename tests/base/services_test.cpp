#include <gtest/gtest.h>

#include <functional>

#include "base/recording/recording_engine.h"
#include "engine/font.h"
#include "engine/ime.h"
#include "engine/material.h"
#include "engine/output.h"
#include "engine/sound.h"
#include "engine/system.h"
#include "engine/texture.h"
#include "engine/vfs.h"

namespace qen::base {
namespace {

using Lines = std::vector<String>;

Font* CreateFont(const Char* face, std::int32_t height = -21, bool italic = false) {
  return FontManager::GetSingleton()->CreateEx(face, height, 0, 700, italic, 1, kDefaultGroup);
}
Texture* LoadTexture(const Char* file, const Char* group = kDefaultGroup) {
  return TextureManager::GetSingleton()->Load(file, group, 0, 129);
}
Material* CreateMaterial(const Char* name) { return MaterialManager::GetSingleton()->Create(name, kDefaultGroup); }

TEST(EngineServices, ExistWhileTheEngineDoesAndTellOnceWhatIsMissing) {
  const auto ask = [] {
    EXPECT_TRUE(System::daemon != nullptr && System::timer != nullptr);
    EXPECT_EQ(CreateFont(u"None", 1), nullptr);
    for (const Char* file : {u"none.png", u"broken", u""}) EXPECT_EQ(LoadTexture(file), nullptr);
    Char* buffer = nullptr;
    std::uint32_t size = 77;
    for (const Char* file : {u"none", static_cast<const Char*>(nullptr)}) {
      EXPECT_FALSE(System::vfs->ReadFile(file, buffer, size));
    }
    EXPECT_TRUE(buffer == nullptr && size == 77);
  };
  Lines missing{u"Can't load font None", u"Can't load texture none.png", u"Can't load texture broken",
                u"Can't load file none"};
  {
    const RecordingEngine engine([](Backends& backends) { backends = {}; });
    EXPECT_TRUE(System::sound == nullptr && System::ime == nullptr);
    ask();
    EXPECT_EQ(engine.errors, missing);
  }
  EXPECT_TRUE(System::daemon == nullptr && System::timer == nullptr && System::vfs == nullptr);
  EXPECT_TRUE(System::sceneMng == nullptr && System::render == nullptr && System::output == nullptr);
  EXPECT_TRUE(FontManager::GetSingleton() == nullptr && TextureManager::GetSingleton() == nullptr);
  RecordingEngine engine;
  engine.fonts.missing.insert(u"None");
  engine.files.AddText(u"broken.png", u"bad");
  for (int i = 0; i < 2; ++i) {
    ask();
    for (const Char* file : {u"none.wav", u"broken.png", static_cast<const Char*>(nullptr)}) {
      EXPECT_EQ(System::sound->CreateSound(file, {}, 2), 0U);
    }
  }
  missing[2] += u": not a picture";
  for (const Char* file : {u"none.wav", u"broken.png: not a sound", u""}) {
    missing.push_back(u"Can't load sound " + String(file));
  }
  EXPECT_EQ(engine.errors, missing);
}

TEST(Log, GivesWholeLines) {
  RecordingEngine engine;
  engine.engine.SetLogSink([&](StringView line, bool error) {
    if (line == u"outer") System::output->Print(u"inner\n");  // a sink may print
    (error ? engine.errors : engine.log).emplace_back(line);
  });
  System::output->Print(u"Loading %d", 1);
  EXPECT_EQ(engine.log, Lines());
  System::output->PrintError(u"failed %s\n", u"x");
  System::output->Print(u" of %d\r\nsecond\n\nrest", 2);
  System::output->Print(u"\nouter\nlast\n");
  EXPECT_EQ(engine.log, (Lines{u"Loading 1 of 2", u"second", u"", u"rest", u"last", u"inner", u"outer"}));
  System::output->PrintError(u"half a line");
  EXPECT_EQ(LoadTexture(u"x"), nullptr);
  EXPECT_EQ(engine.errors, (Lines{u"failed x", u"half a line", u"Can't load texture x"}));
}

TEST(Vfs, TellsEncodingsApart) {
  RecordingEngine engine;
  const struct {
    const char* what;
    std::string bytes;
    String text;
  } kCases[] = {
      {"UTF-16 with a mark", {"\xFF\xFEn\0o\0", 6}, u"\uFEFFno"},
      {"UTF-16 as it is written by the module", {"\xFF\xFEn\0\0\0\0", 7}, {u"\uFEFFn\0", 3}},
      {"UTF-16 without a mark", {"n\0a\0", 4}, u"na"},
      {"UTF-16 with a mark, without Latin letters", "\xFF\xFE\x22\x6F", u"\uFEFF\u6F22"},
      {"UTF-8", "na\xC3\xA9\xF0\x9F\x98\x80", u"na\u00E9\U0001F600"},
      {"UTF-8 with a mark", "\xEF\xBB\xBFname", u"\uFEFFname"},
      {"empty", "", u""},
      {"UTF-8 with other bytes", "{\n\xC3\xA9 M\xE4nner \xE4\xF6", u"{\n\u00E9 M\uFFFDnner \uFFFD\uFFFD"},
      {"one byte that is no text", "\xFF", u"\uFFFD"},
  };
  for (const auto& c : kCases) {
    engine.files.Add(u"Menus/Main.txt", {c.bytes.begin(), c.bytes.end()});
    Char* buffer = nullptr;
    std::uint32_t size = 77;
    ASSERT_TRUE(System::vfs->ReadFile(u"menus\\MAIN.txt", buffer, size)) << c.what;
    EXPECT_EQ(String(buffer, size / 2), c.text) << c.what;
    EXPECT_EQ(buffer[c.text.size()], 0) << c.what;
    delete[] buffer;
  }
  EXPECT_EQ(engine.errors, (Lines{u"Can't read byte 0xE4 of menus\\MAIN.txt at 2:4: not UTF-8",
                                  u"Can't read byte 0xFF of menus\\MAIN.txt at 1:1: not UTF-8"}));
}

// `first` and `same` are two uses of one resource, and the manager has another.
void ExpectCounted(ResourceManager& manager, Resource* first, Resource* same,
                   const std::function<std::size_t()>& count) {
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(same, first);
  EXPECT_EQ(count(), 2U);
  Resource* stranger = CreateMaterial(u"gui");
  for (Resource* resource : {first, static_cast<Resource*>(nullptr), stranger}) manager.Destroy(resource);
  EXPECT_EQ(count(), 2U);
  for (int i = 0; i < 2; ++i) {
    manager.Destroy(first);  // the second time its address is not known any more
    EXPECT_EQ(count(), 1U);
  }
}

TEST(Resources, AreSharedAndCounted) {
  RecordingEngine engine;
  engine.AddPictureFile(u"textures/guitex/Default_Bag.tga");
  Font* font = CreateFont(u"Courier");
  EXPECT_NE(CreateFont(u"Courier", 21), font);
  ExpectCounted(*FontManager::GetSingleton(), font, CreateFont(u"COURIER"), [&] { return engine.fonts.faceCount; });
  EXPECT_NE(CreateFont(u"Courier", -21, true), CreateFont(u"Courier", -21));

  Texture* texture = LoadTexture(u"textures\\guitex\\default_bag");
  EXPECT_NE(LoadTexture(u"textures/guitex/default_bag", u"other"), texture);
  EXPECT_TRUE(engine.render.textures.contains(texture->GetHandle()));
  EXPECT_EQ(texture->GetWidth(), 2);
  ExpectCounted(*TextureManager::GetSingleton(), texture, LoadTexture(u"Textures/guitex/DEFAULT_BAG"),
                [&] { return engine.render.textures.size(); });

  Material* material = CreateMaterial(u"gui");
  EXPECT_EQ(MaterialManager::GetSingleton()->GetByName(u"gui", kDefaultGroup), material);
  EXPECT_NE(CreateMaterial(u"Gui"), material);
}

TEST(Sounds, PlayUntilTheyAreReleased) {
  RecordingEngine engine;
  engine.AddSound(u"click.wav");
  ISound& sounds = *System::sound;
  const SoundHandle a = sounds.CreateSound(u"click.wav", {}, 2);
  const SoundHandle b = sounds.CreateSound(u"CLICK.wav", {}, 2);
  EXPECT_TRUE(a != 0 && b != 0 && a != b);
  EXPECT_EQ(engine.sound.loaded.size(), 1U) << "one sample for the file";
  sounds.Play(0);
  sounds.Play(a);
  for (const SoundHandle released : {a, a, SoundHandle{0}}) sounds.ReleaseSound(released);
  sounds.Play(a);
  sounds.Play(b);
  EXPECT_EQ(engine.sound.played, (std::vector<std::string>{"click.wav", "click.wav"}));
  sounds.ReleaseSound(b);
  EXPECT_TRUE(engine.sound.loaded.empty());
  EXPECT_NE(sounds.CreateSound(u"click.wav", {}, 2), a) << "handles do not come back at once";
  EXPECT_EQ(engine.sound.loaded.size(), 1U);
}

TEST(InputMethod, ShowsTheCompositionAtTheField) {
  RecordingEngine engine;
  engine.ime.composition = u"\u304B\u306A";
  const struct {
    Rect field;
    float left, top;
  } kCases[] = {
      {{}, 16, 556},                     // not known: the lower left of the window
      {{100, 200, 300, 240}, 100, 240},  // under the field
      {{100, 560, 300, 600}, 100, 532},  // over the field at the lower edge
      {{790, 200, 800, 240}, 772, 240},  // at the right edge
  };
  for (const auto& c : kCases) {
    engine.ime.field = c.field;
    engine.Draw([] { System::ime->Draw(); });
    const auto& vertices = engine.render.frame.vertices;
    ASSERT_EQ(vertices.size(), 18U) << "a plate and two characters";
    EXPECT_EQ(vertices.front().position.x, c.left);
    EXPECT_EQ(vertices.front().position.y, c.top);
  }
}

}  // namespace
}  // namespace qen::base
