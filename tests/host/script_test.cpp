// Scripts, and folders of them run as tests.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/host/guihost_run.h"
#include "tests/host/zip_file.h"

namespace qen::host {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class ScriptTest : public GuihostTest {
 protected:
  ScriptTest() {
    folder.Write("Pages/First.txt", "name scenes\\first.glb item ~bSquare { message play:now tooltip 1 textid 1 }");
  }

  // Runs a script on the small GUI; its exit status.
  int Play(const std::string& script, const std::string& arguments = "") {
    folder.Write("script.lua", script);
    return Run("Gui.txt --offscreen --size 64x48 --script script.lua " + arguments);
  }

  // What a script fails with.
  std::string FailureOf(const std::string& script) {
    EXPECT_EQ(Play(script) == 0, false) << script;
    EXPECT_THAT(err, AllOf(StartsWith("guihost: "), EndsWith("\n")));
    return err;
  }
};

TEST_F(ScriptTest, SeesAndDrivesTheGui) {
  EXPECT_EQ(Play(R"(
    gui.settle()
    check_equal(gui.pages(), {"first", "second"})
    check_equal(gui.active(), {"first"})
    check_equal(gui.languages(), {"english", "german"})
    check_equal(gui.text(1), "One")
    check_equal(gui.language("german"), "german")
    check_equal(gui.text(1), "Eins")
    local square = gui.widget("~BSQUARE")
    check_equal({square.type, square.page, square.x, square.y, square.visible}, {"b", "first", 32, 24, true})
    local heard
    gui.on("play", function(record) heard = record return true end)
    gui.click("first/~bsquare")
    gui.frame(70)
    check_equal(heard, {text = "play:now", command = "play", argument = "now", value = 0, page = "first",
                        source = "~bsquare", id = 0})
    gui.command("setpage:second.glb")
    gui.settle()
    check_equal(gui.rendered(), {"second"})
    gui.unload()
    check_equal(gui.pages(), {})
    check(gui.load("gui.txt"))
    check_equal(#gui.pages(), 2)
  )"),
            0)
      << err;
}

TEST_F(ScriptTest, FailsWithItsFileAndLine) {
  EXPECT_THAT(FailureOf("\ncheck(false, 'no luck')"), HasSubstr("script.lua:2: no luck: the check failed"));
  EXPECT_THAT(FailureOf("check_equal({1, {a = 2}}, {1, {a = 3}})"), HasSubstr("got {1, {a = 2}}, wanted {1, {a = 3}}"));
  EXPECT_THAT(FailureOf("\n\ngui.setpage('third')"), HasSubstr("script.lua:3: there is no page third"));
  EXPECT_THAT(FailureOf("gui.frame('often')"), HasSubstr("script.lua:1: bad argument #1 to 'frame'"));
  EXPECT_THAT(FailureOf("x = = 1"), HasSubstr("script.lua:1:"));
  EXPECT_THAT(FailureOf("gui.on('play', function()\nerror('ouch') end)\ngui.settle()\ngui.click('~bsquare')"),
              HasSubstr("script.lua:2: ouch"))
      << "a handler, long after it was set";
  EXPECT_THAT(FailureOf("gui.settle(1) gui.setpage('second') gui.settle(1)"), HasSubstr("after 1 frames"))
      << "it was settled at first";
  EXPECT_THAT(FailureOf("gui.bag('first', {})"), HasSubstr("first is no bag"));
  EXPECT_THAT(FailureOf("gui.bag_selected('first')"), HasSubstr("first is no bag"));
  EXPECT_NE(Run("--script nosuch.lua"), 0);
  EXPECT_THAT(err, HasSubstr("nosuch.lua"));
}

TEST_F(ScriptTest, PostsCommandsOfAButton) {
  EXPECT_EQ(Play(R"(
    gui.settle()
    gui.command("un/checked:~bback")
    gui.frame()
    check(gui.widget("~bback").checked, "since the button that lends itself is not")
    gui.command("radiogroup:~bback")
    gui.frame()
    check(not gui.widget("~bback").checked)
    local source
    gui.on("play", function(record) source = record.source return true end)
    gui.command("play")
    gui.frame()
    check_equal(source, "~bsquare")
    check_equal(select("#", gui.tooltip()), 1)
    check_equal(gui.tooltip(), nil, "what is written over the GUI is no tooltip")
  )",
                 "--fps"),
            0)
      << err;
}

TEST_F(ScriptTest, EndsWhatDoesNotEnd) {
  const auto complaint = [this](const std::string& script) {
    EXPECT_NE(Play(script, "--timeout 0.3"), 0) << script;
    return err;
  };
  const auto tells = HasSubstr("script.lua:2: still running after 0.3 seconds");
  EXPECT_THAT(complaint("\nwhile true do end"), tells);
  EXPECT_THAT(complaint("\nwhile true do pcall(function() while true do end end) end"), tells);
  EXPECT_THAT(complaint("\nwhile true do pcall(gui.frame) end"), tells);
  EXPECT_THAT(complaint("function tree() local t = {} for i = 1, 60 do t = {t, t} end return t end\n"
                        "check_equal(tree(), tree())"),
              tells);
  EXPECT_THAT(complaint("local function f() while true do end end\nxpcall(f, f)"), HasSubstr("still running"));
  EXPECT_THAT(complaint("gui.on('play', function()\nwhile true do end end) gui.settle() gui.click('~bsquare')"), tells);

  folder.Write("Checks/a.lua", "while true do end");
  folder.Write("Checks/b.lua", "gui.frame()");
  EXPECT_NE(Run("test Checks Gui.txt --timeout 0.3"), 0);
  EXPECT_THAT(out, AllOf(HasSubstr("a.lua:1: still running"), EndsWith("1 passed, 1 failed\n")));
  EXPECT_THAT(Complaint("test Checks Gui.txt --timeout 0"), HasSubstr("--timeout"));
}

// What a game.lua of the data may not: each way fails at its line, and nothing is written outside.
TEST_F(ScriptTest, KeepsTheGameOfTheDataInside) {
  const TemporaryFolder outside;
  std::filesystem::create_directory_symlink(outside.Path(), folder.Path() / "away");
  std::filesystem::create_directory_symlink(outside.Path(), folder.Path() / "Pages/bak");
  folder.Write("kept/bak/none", "");
  std::filesystem::create_symlink(outside.Path() / "kept", folder.Path() / "kept/bak/page.txt0");
  std::filesystem::create_symlink(outside.Path() / "gone", folder.Path() / "gone.png");
  std::filesystem::create_symlink(outside.Path() / "gone", folder.Path() / "old.difference.png");
  const std::string game = R"(
    local ways = {
      function() os.execute("touch made") end, function() io.open("made", "w") end,
      function() os.remove("Gui.txt") end, function() require("io") end,
      function() package.loadlib("made", "made") end, function() dofile("Gui.txt") end,
      function() debug.getregistry() end, function() string.dump(check) end, function() ("").dump(check) end,
      function() assert(load("\27Lua", "made", "b")) end, function() gui.shot("../made.png") end,
      function() gui.shot("a/../../made.png") end, function() gui.shot(outside .. "/made.png") end,
      function() gui.shot("c:\\made.png") end, function() gui.shot("away/made.png") end,
      function() gui.shot("AWAY/made.png") end, function() gui.shot("gone.png") end,
      function() gui.same_image("made.png", "../made.png") end,
      function() gui.same_image("../made.png", "made.png") end,
      function() gui.shot("golden.png") gui.same_image("old.png", "golden.png") end,
      function() gui.save_page("first", "away\\made.txt") end, function() gui.save_page("first", "..\\made.txt") end,
      function() gui.save_page("first", "pages\\first.txt") end,
      function() gui.save_page("first", "kept/page.txt") end, function() gui.save_style() end,
      function() gui.save_language("Gui.txt") end, function() setmetatable({}, {__gc = print}) end,
      function() ("x"):rep(1 << 40) end, function() (""):rep(1 << 62) end,
      function() ("a"):rep(40):find((".-"):rep(20) .. "b") end, function() ("a"):rep(1 << 20):gsub("a*b", "") end,
      function() ("a"):rep(1 << 18):find(("a"):rep(1 << 17) .. "b", 1, true) end,
      function() ("[]" .. ("a"):rep(3000)):find("%b[]" .. (".-"):rep(8) .. "x") end,
      function() ("a"):rep(1 << 22):gsub("", ("%0"):rep(1 << 18)) end,
      function() ("a"):gsub("a", setmetatable({}, {__index = {}})) end,
      function() load(function() return nil end) end,
      function() local t = {} for i = 1, 300000 do t = {t} end check_equal(t, {t}) end,
      function() table.concat(setmetatable({}, {__index = table.concat}), "", 1, math.maxinteger) end,
      function() table.move({}, 1, math.maxinteger, 2) end,
      function() ("x"):rep(1 << 20):rep(300) end,
    }
    for i, way in ipairs(ways) do
      local done, why = pcall(way)
      check(not done, i .. " is open")
      check(why == "not enough memory" or why:find("game.lua:%d+: "), why)
    end
    gui.shot("shots/start.png")
    check(gui.save_page("first", "saved/first.txt"))
    check(os.time() > 0 and os.clock() and os.date() and load("return true")())
    getmetatable("").__index, gui.pages, string.format = nil, nil, nil
    gui.on("play", function(record) print("game: " .. record.argument) return true end)
  )";
  folder.Write("game.lua", "local outside = '" + outside.Path().string() + "'" + game);
  EXPECT_EQ(Play(R"(
    check_equal(("x%d"):format(#gui.pages()), "x2", "scripts do not share what they change")
    gui.settle()
    gui.click("~bsquare")
    gui.on("play", function(record) print("script: " .. record.argument) return true end)
    gui.click("~bsquare")
    assert(io.open("shots/start.png")):close()
    assert(io.open("saved/first.txt")):close()
  )"),
            0)
      << err;
  EXPECT_THAT(out, AllOf(HasSubstr("game: now\nscript: now\n"), Not(HasSubstr("now\nscript: now\nscript"))));
  EXPECT_TRUE(std::filesystem::is_empty(outside.Path()));
  EXPECT_FALSE(std::filesystem::exists(folder.Path().parent_path() / "made.png"));

  folder.Write("game.lua", "gui.on('play', function()\nwhile true do end end)");
  EXPECT_NE(Play("gui.settle() gui.click('~bsquare')", "--timeout 0.3"), 0);
  EXPECT_THAT(err, HasSubstr("game.lua:2: still running"));
  folder.Write("game.lua", "local s, all = ('x'):rep(1 << 20), {}\nfor i = 1, 3 do all[i] = s:rep(100 + i) end");
  EXPECT_THAT(FailureOf(""), HasSubstr("game.lua:2: not enough memory"));
  folder.Write("game.lua", "io.open('made', 'w'):close()");
  EXPECT_EQ(Play("", "--game game.lua"), 0) << "somebody named it: " << err;

  folder.Write("game.lua", "gui.shot('made.png')");
  PackZip(folder.Path(), folder.Path() / "game.zip");
  folder.Write("game.lua", "error('not of the data')");
  EXPECT_THAT(Complaint("gui.TXT --data game.zip --offscreen --script script.lua"),
              HasSubstr("game.lua:1: gui.shot may not write made.png: the data is in an archive"));
}

// What one call of a library may spend long on.
TEST_F(ScriptTest, EndsTheGameOfTheDataWithinLibraries) {
  const std::array games{std::string("local s, all = ('x'):rep(1 << 24), {}\nlocal a, b = s .. 'a', s .. 'b'\n"
                                     "for i = 1, 10000 do all[i] = i % 2 == 0 and a or b end table.sort(all)"),
                         std::string("local all = {} for i = 1, 30000 do all[i] = '::a' .. i .. '::x=1 ' end\n"
                                     "load(('local function f() ' .. table.concat(all) .. ' end '):rep(20))")};
  for (const std::string& game : games) {
    folder.Write("game.lua", game);
    EXPECT_NE(Play("", "--timeout 0.5"), 0);
    EXPECT_THAT(err, HasSubstr("still running after 0.5 seconds"));
  }
}

class SampleScriptTest : public ScriptTest {
 protected:
  // Runs a script on the sample, over which the folder Over is laid; its exit status.
  int PlaySample(const std::string& script) {
    folder.Write("script.lua", script);
    return Run("gui.txt --data '" + sample.string() + "' --data Over --offscreen --size 64x48 --script script.lua");
  }

  const std::filesystem::path sample = std::filesystem::current_path() / "samples/skylantern";
};

TEST_F(SampleScriptTest, KeepsTheWordsOfTheGui) {
  std::ifstream file(sample / "pages/options.txt");
  std::string page{std::istreambuf_iterator<char>(file), {}};
  const std::string message = "message volume:music";
  ASSERT_NE(page.find(message), std::string::npos);
  folder.Write("Over/pages/options.txt", page.replace(page.find(message), message.size(), "message settext:~tmusic"));
  EXPECT_EQ(PlaySample(R"(
    gui.on("settext", function() error("it is the GUI's") end)
    gui.setpage("options")
    gui.settle()
    gui.hover("~smusic")
    gui.frame()
    gui.wheel(120)
    gui.frame(2)
    gui.click("~smusic")
    gui.frame(2)
  )"),
            0)
      << err;
  EXPECT_THAT(out, HasSubstr("notification: settext:~tmusic"));
}

// A metatable may run anything while an argument is read.
TEST_F(SampleScriptTest, ReadsItsTablesBeforeWhatTheyAreFor) {
  folder.Write("Over/game.txt", "");
  EXPECT_EQ(PlaySample(R"(
    local list = gui.list("~ljourneys")
    local done, why = pcall(list.add, list, setmetatable({}, {__index = function(_, key)
      gui.unload()
      return key == "textid" and 1 or key
    end}))
    check(not done and why:find("no widget ~ljourneys"), why)
    gui.load("gui.txt")
    done, why = pcall(gui.bag, "inventory", setmetatable({}, {__len = function() gui.unload() return 0 end}))
    check(not done and why:find("no page inventory"), why)
    gui.load("gui.txt")
  )"),
            0)
      << err;
}

TEST_F(SampleScriptTest, LoadsPicturesAnew) {
  folder.Write("Over/game.txt", "");
  EXPECT_EQ(PlaySample(R"(
    gui.settle()
    local function show(picture)
      gui.set("~plights", "texture", "lit.png")
      gui.bag("inventory", {{texture = "lit.png"}})
      gui.frame()
      gui.shot(picture)
    end
    gui.shot("Over/lit.png")
    gui.setpage("credits")
    gui.settle()
    show("before.png")
    gui.shot("Over/lit.png")
    gui.reload()
    gui.settle()
    check_equal(gui.bag_selected("inventory"), nil)
    show("after.png")
    check(not gui.same_image("now.png", "before.png", 0.1), "the picture is read again")
  )"),
            0)
      << err;
}

TEST_F(ScriptTest, TellsWhyAWidgetCannotBePointedAt) {
  const std::string start = "gui.settle() ";
  EXPECT_THAT(FailureOf(start + "gui.hover('~bback')"), HasSubstr("its page second is not active"));
  EXPECT_THAT(FailureOf(start + "gui.hover('~bnone')"), HasSubstr("there is no widget ~bnone"));
  EXPECT_THAT(FailureOf(start + "gui.set('~bsquare', 'visible', false) gui.hover('~bsquare')"), HasSubstr("is hidden"));
  EXPECT_THAT(FailureOf(start + "gui.set('~bsquare', 'disabled', true) gui.hover('~bsquare')"),
              HasSubstr("is disabled"));
  EXPECT_THAT(FailureOf(start + "gui.setpage('second') gui.settle() gui.hover('~bback')"), HasSubstr("has no box"));
}

TEST_F(ScriptTest, FlattenedWidgetsAreHitWhereTheyAreSeen) {
  folder.Write("Scenes/First.glb", MakeSquares(R"(
      {"name":"~bFlat","children":[1],"translation":[50,30,0],"scale":[0.3,0.3,0]}, {"name":"normal","mesh":0},
      {"name":"~bGone","children":[3],"translation":[-50,0,0],"scale":[0,0,0]}, {"name":"normal2","mesh":0})"));
  EXPECT_EQ(Play(R"(
    gui.settle()
    gui.move(32, 24)
    gui.frame()
    check_equal(gui.widget("~bflat").state, 1, "in the middle is nothing")
    check_equal(gui.widget("~bgone").state, 1)
    gui.hover("~bflat")
    gui.frame()
    check_equal(gui.widget("~bflat").state, 2)
    local done, why = pcall(gui.hover, "~bgone")
    check(not done and why:find("out of sight"), why)
    local gone = gui.widget("~bgone")
    gui.move(gone.x, gone.y)
    gui.frame()
    check_equal(gui.widget("~bgone").state, 1, "nothing to see")
  )"),
            0)
      << err;
}

TEST_F(ScriptTest, RunsTheSameEveryTime) {
  const std::string script = "gui.settle() gui.click('~bsquare') gui.frame(80)";
  ASSERT_EQ(Play(script, "--trace first.json"), 0) << err;
  ASSERT_EQ(Play(script, "--trace second.json"), 0) << err;
  const std::string first = folder.Read("first.json");
  EXPECT_NE(first.find("IRender::Submit"), std::string::npos);
  EXPECT_TRUE(first == folder.Read("second.json"));
}

TEST_F(ScriptTest, ComparesPictures) {
  ASSERT_EQ(Play("gui.settle() gui.shot('golden.png')"), 0) << err;
  EXPECT_EQ(Play("gui.settle() check(gui.same_image('now.png', 'golden.png'))"), 0) << err;
  const std::string other = "gui.setpage('second') gui.settle() check(gui.same_image('now.png', 'golden.png'))";
  EXPECT_NE(Play(other), 0);
  EXPECT_TRUE(Picture("now.difference.png").has_value());
  EXPECT_EQ(Play(other, "--update"), 0) << err;
  EXPECT_EQ(Play(other), 0) << "the golden picture was renewed: " << err;
  EXPECT_THAT(FailureOf("gui.same_image('now.png', 'none.png')"), HasSubstr("none.png"));
}

TEST_F(ScriptTest, LoadsAnewWhatHasChanged) {
  EXPECT_EQ(Play(R"(
    gui.settle()
    gui.language("german")
    gui.setpage("second")
    gui.settle()
    gui.set("first/~bsquare", "position", 7)
    local function write(name, text)
      local file = assert(io.open(name, "w"))
      file:write(text)
      file:close()
    end
    write("Lang.txt", 'lang english { str1 One } lang german { str1 "Eins neu" }')
    gui.reload()
    check_equal(gui.text(1), "Eins neu", "the words are new")
    check_equal(gui.active(), {"second"}, "the page is the same")
    check_equal(gui.rendered(), {"second"})
    check_equal(gui.widget("first/~bsquare").position, 7, "values are the same")

    for _, fault in ipairs { {"Scenes/Second.glb", "scenes\\second.glb: "}, {"Pages/First.txt", "first.txt: its first word is not \"name\""} } do
      write(fault[1], "junk")
      local done, why = pcall(gui.reload)
      check(not done and why:find(fault[2], 1, true), why)
      check_equal(gui.active(), {"second"}, "the last good GUI stays")
      gui.frame(2)
    end
  )"),
            0)
      << err;
}

TEST_F(ScriptTest, LoadsAnewFromAnArchiveThatWasReplaced) {
  PackZip(folder.Path(), folder.Path() / "game.zip");
  folder.Write("Lang.txt", "lang english { str1 \"Another One\" }");
  PackZip(folder.Path(), folder.Path() / "new.zip");
  EXPECT_EQ(Play(R"(
    check_equal(gui.text(1), "One")
    assert(os.rename("new.zip", "game.zip"))
    gui.reload()
    check_equal(gui.text(1), "Another One")
    os.remove("game.zip")
    local done, why = pcall(gui.reload)
    check(not done and why:find("cannot read game.zip", 1, true), why)
  )",
                 "--data game.zip"),
            0)
      << err;
}

TEST_F(ScriptTest, HearsOfPagesThatTakeInputUnseen) {
  EXPECT_EQ(Play(R"(
    local unseen = "second.glb takes input but is not drawn"
    local function times_told()
      local times = 0
      for _, line in ipairs(gui.log()) do
        if line == unseen then times = times + 1 end
      end
      return times
    end
    gui.setpage("second")
    gui.frame(30)
    gui.command("setpage:first.glb")
    gui.frame(30)
    check_equal(times_told(), 0)
    gui.command("setpage:second.glb")
    gui.command("setpage:first.glb")
    gui.frame(30)
    check_equal(gui.active(), {"second", "first"})
    check_equal(times_told(), 1, "once")
    gui.command("addrenderpage:second.glb")
    gui.frame(30)
    gui.command("remrenderpage:second.glb")
    gui.frame(30)
    check_equal(times_told(), 1, "again, when it begins again")
  )"),
            0)
      << err;
}

TEST_F(ScriptTest, ManyAreTests) {
  folder.Write("Checks/one.lua", "gui.settle() check_equal(gui.active(), {'first'}) gui.setpage('second')");
  folder.Write("Checks/two.lua", "gui.settle() check_equal(gui.active(), {'first'}) -- a fresh GUI");
  EXPECT_EQ(Run("test Checks Gui.txt"), 0) << err;
  EXPECT_THAT(out, EndsWith("2 passed, 0 failed\n"));
  folder.Write("Checks/bad.lua", "check(false)");
  EXPECT_NE(Run("test Checks Gui.txt"), 0);
  EXPECT_THAT(out, AllOf(HasSubstr("FAILED Checks/bad.lua"), HasSubstr("bad.lua:1: the check failed"),
                         EndsWith("2 passed, 1 failed\n")));
  EXPECT_THAT(Complaint("test nosuch Gui.txt"), HasSubstr("nosuch"));
  EXPECT_THAT(Complaint("test Pages Gui.txt"), HasSubstr("no scripts"));
}

}  // namespace
}  // namespace qen::host
