#include <gtest/gtest.h>

#include <algorithm>

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

TEST(EngineServices, ExistWhileTheEngineDoes) {
  EXPECT_EQ(System::daemon, nullptr);
  EXPECT_EQ(FontManager::GetSingleton(), nullptr);
  {
    const RecordingEngine engine([](Backends& backends) { backends = {}; });
    EXPECT_NE(System::daemon, nullptr);
    EXPECT_NE(System::timer, nullptr);
    EXPECT_EQ(System::sound, nullptr);
    EXPECT_EQ(System::ime, nullptr);
    EXPECT_EQ(FontManager::GetSingleton()->CreateEx(u"x", 1, 0, 0, false, 1, kDefaultGroup), nullptr);
    EXPECT_EQ(TextureManager::GetSingleton()->Load(u"x", kDefaultGroup, 0, 0), nullptr);
    Char* buffer = nullptr;
    std::uint32_t size = 0;
    EXPECT_FALSE(System::vfs->ReadFile(u"x", buffer, size));
    EXPECT_EQ(engine.errors.size(), 3U);
  }
  EXPECT_EQ(System::daemon, nullptr);
  EXPECT_EQ(TextureManager::GetSingleton(), nullptr);

  System::SetBasePath(u"data");
  EXPECT_EQ(System::GetBasePath(), u"data/");
  System::SetBasePath(u"C:\\data\\");
  EXPECT_EQ(System::GetBasePath(), u"C:\\data\\");
  System::SetBasePath(u"");
  EXPECT_EQ(System::GetBasePath(), u"./");
}

TEST(Log, GivesWholeLines) {
  RecordingEngine engine;
  System::output->Print(u"Loading %d", 1);
  EXPECT_TRUE(engine.log.empty());
  System::output->PrintError(u"failed %s\n", u"x");
  System::output->Print(u" of %d\r\nsecond\n\nrest", 2);
  EXPECT_EQ(engine.log, (std::vector<String>{u"Loading 1 of 2", u"second", u""}));
  EXPECT_EQ(engine.errors, std::vector<String>{u"failed x"});

  engine.engine.SetLogSink([&](StringView line, bool) {
    if (line == u"outer") System::output->Print(u"inner\n");
    engine.log.emplace_back(line);
  });
  System::output->Print(u"\nouter\nlast\n");
  EXPECT_EQ(engine.log.size(), 7U) << "a sink may print";
  EXPECT_EQ(engine.log[3], u"rest");
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
      {"UTF-8 with the bytes of another encoding", "{\n\xC3\xA9 M\xE4nner \xE4\xF6",
       u"{\n\u00E9 M\uFFFDnner \uFFFD\uFFFD"},
      {"one byte that is no text", "\xFF", u"\uFFFD"},
  };
  for (const auto& c : kCases) {
    engine.files.Add(u"Menus/Main.txt", {c.bytes.begin(), c.bytes.end()});
    Char* buffer = nullptr;
    std::uint32_t size = 77;
    ASSERT_TRUE(System::vfs->ReadFile(u"menus\\MAIN.txt", buffer, size)) << c.what;
    EXPECT_EQ(size, c.text.size() * 2) << c.what;
    EXPECT_EQ(String(buffer, size / 2), c.text) << c.what;
    EXPECT_EQ(buffer[size / 2], 0) << c.what;
    delete[] buffer;
  }
  Char* buffer = nullptr;
  std::uint32_t size = 77;
  EXPECT_FALSE(System::vfs->ReadFile(u"none", buffer, size));
  EXPECT_FALSE(System::vfs->ReadFile(u"none", buffer, size));
  EXPECT_FALSE(System::vfs->ReadFile(nullptr, buffer, size));
  EXPECT_EQ(buffer, nullptr);
  EXPECT_EQ(size, 77U);
  EXPECT_EQ(engine.errors, (std::vector<String>{u"Can't read byte 0xE4 of menus\\MAIN.txt at 2:4: not UTF-8",
                                                u"Can't read byte 0xFF of menus\\MAIN.txt at 1:1: not UTF-8",
                                                u"Can't load file none"}))
      << "once a file";
}

TEST(Resources, FontsAreCounted) {
  RecordingEngine engine;
  FontManager& fonts = *FontManager::GetSingleton();
  const auto create = [&fonts](const Char* face, std::int32_t height, bool italic = false) {
    return fonts.CreateEx(face, height, 0, 700, italic, 1, kDefaultGroup);
  };
  Font* font = create(u"Courier", -21);
  EXPECT_EQ(create(u"COURIER", -21), font);
  EXPECT_NE(create(u"Courier", 21), font);
  EXPECT_NE(create(u"Courier", -21, true), font);
  EXPECT_EQ(engine.fonts.faceCount, 3);
  TextMetric metric;
  font->GetTextMetric(metric);
  EXPECT_EQ(metric.tmHeight, 21);

  fonts.Destroy(nullptr);
  fonts.Destroy(MaterialManager::GetSingleton()->Create(u"gui", kDefaultGroup));
  fonts.Destroy(font);
  EXPECT_EQ(engine.fonts.faceCount, 3);
  fonts.Destroy(font);
  EXPECT_EQ(engine.fonts.faceCount, 2);
  fonts.Destroy(font);  // its address is not known any more
  EXPECT_EQ(engine.fonts.faceCount, 2);

  engine.fonts.missing.insert(u"None");
  EXPECT_EQ(create(u"None", 1), nullptr);
  EXPECT_EQ(create(u"None", 2), nullptr);
  EXPECT_EQ(engine.errors, std::vector<String>{u"Can't load font None"});
}

TEST(Resources, TexturesAndMaterialsAreShared) {
  RecordingEngine engine;
  TextureManager& textures = *TextureManager::GetSingleton();
  engine.AddPictureFile(u"textures/guitex/Default_Bag.tga");
  engine.files.AddText(u"broken.png", u"bad");
  Texture* texture = textures.Load(u"textures\\guitex\\default_bag", kDefaultGroup, 0, 129);
  ASSERT_NE(texture, nullptr);
  EXPECT_EQ(texture->GetWidth(), 2);
  EXPECT_TRUE(engine.render.textures.contains(texture->GetHandle()));
  EXPECT_EQ(textures.Load(u"Textures/guitex/DEFAULT_BAG", kDefaultGroup, 0, 129), texture);
  EXPECT_NE(textures.Load(u"textures/guitex/default_bag", u"other", 0, 129), texture);
  textures.Destroy(texture);
  EXPECT_EQ(engine.render.textures.size(), 2U);
  textures.Destroy(texture);
  EXPECT_EQ(engine.render.textures.size(), 1U);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(textures.Load(u"none.png", kDefaultGroup, 0, 0), nullptr);
    EXPECT_EQ(textures.Load(u"broken", kDefaultGroup, 0, 0), nullptr);
  }
  EXPECT_EQ(engine.errors,
            (std::vector<String>{u"Can't load texture none.png", u"Can't load texture broken: not a picture"}));

  MaterialManager& materials = *MaterialManager::GetSingleton();
  Material* material = materials.Create(u"gui", kDefaultGroup);
  EXPECT_EQ(materials.GetByName(u"gui", kDefaultGroup), material);
  EXPECT_NE(materials.GetByName(u"Gui", kDefaultGroup), material);
  EXPECT_EQ(material->GetName(), u"gui");
}

TEST(Sounds, PlayUntilTheyAreReleased) {
  RecordingEngine engine;
  engine.AddSound(u"click.wav");
  engine.files.AddText(u"noise.wav", u"bad");
  ISound& sounds = *System::sound;
  const SoundHandle a = sounds.CreateSound(u"click.wav", {}, 2);
  const SoundHandle b = sounds.CreateSound(u"CLICK.wav", {}, 2);
  ASSERT_NE(a, 0U);
  EXPECT_NE(a, b);
  EXPECT_EQ(engine.sound.loaded.size(), 1U) << "one sample for the file";
  sounds.Play(0);
  sounds.Play(a);
  sounds.ReleaseSound(a);
  sounds.ReleaseSound(a);
  sounds.ReleaseSound(0);
  sounds.Play(a);
  sounds.Play(b);
  EXPECT_EQ(engine.sound.played, (std::vector<std::string>{"click.wav", "click.wav"}));
  sounds.ReleaseSound(b);
  EXPECT_TRUE(engine.sound.loaded.empty());
  EXPECT_NE(sounds.CreateSound(u"click.wav", {}, 2), a) << "handles do not come back at once";

  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(sounds.CreateSound(u"none.wav", {}, 2), 0U);
    EXPECT_EQ(sounds.CreateSound(u"noise.wav", {}, 2), 0U);
    EXPECT_EQ(sounds.CreateSound(nullptr, {}, 2), 0U);
  }
  EXPECT_EQ(engine.errors.size(), 3U);
}

TEST(InputMethod, IsToldOnlyWhatChanged) {
  RecordingEngine engine;
  const auto frame = [&engine](bool enabled) {
    engine.Draw([enabled] {
      System::ime->Enable(false);
      if (enabled) System::ime->Enable(true);
      System::ime->Draw();
    });
  };
  frame(false);
  frame(true);
  frame(true);
  EXPECT_TRUE(engine.render.frame.items.empty());
  engine.ime.composition = u"\u304B\u306A";
  frame(false);
  EXPECT_EQ(engine.ime.changes, (std::vector<bool>{true, false}));
}

TEST(InputMethod, ShowsTheCompositionAtTheField) {
  RecordingEngine engine;
  engine.ime.composition = u"\u304B\u306A";
  const auto top = [&engine] {
    engine.Draw([] { System::ime->Draw(); });
    const auto& vertices = engine.render.frame.vertices;
    EXPECT_EQ(vertices.size(), 18U) << "a plate and two characters";
    return std::ranges::min(vertices, {}, [](const DrawVertex& vertex) { return vertex.position.y; }).position.y;
  };
  EXPECT_GT(top(), 500.0F) << "at the lower edge of the window while no field is known";
  engine.ime.field = {100, 200, 300, 240};
  EXPECT_EQ(top(), 240.0F) << "under the field";
  engine.ime.field = {100, 560, 300, 600};
  EXPECT_LT(top(), 560.0F) << "over the field at the lower edge";
}

}  // namespace
}  // namespace qen::base
