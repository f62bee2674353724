// Scripts, and folders of them run as tests.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "tests/host/guihost_run.h"
#include "tests/host/zip_file.h"

namespace qen::host {
namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class ScriptTest : public GuihostTest {
 protected:
  ScriptTest() {
    folder.Write("Pages/First.txt", "name scenes\\first.glb item ~bSquare { message play:now tooltip 1 textid 1 }");
    fs::create_directory(folder.Path() / "Over");
  }

  // Runs a script; what it fails with.
  std::string FailureOf(const std::string& script, const std::string& arguments = "Gui.txt") {
    folder.Write("script.lua", script);
    if (Run(arguments + " --offscreen --size 64x48 --script script.lua") == 0) return "";
    EXPECT_THAT(err, AllOf(HasSubstr("guihost: "), EndsWith("\n")));
    return err;
  }
  void Passes(const std::string& arguments, const std::string& script) { EXPECT_EQ(FailureOf(script, arguments), ""); }

  // The sample, over which the folder Over is laid.
  const std::string onSample =
      "gui.txt --data '" + (fs::current_path() / "samples/skylantern").string() + "' --data Over";
};

TEST_F(ScriptTest, SeesAndDrivesTheGui) {
  Passes("Gui.txt --fps", R"(
    gui.settle()
    check_equal(gui.title(), "first - Gui.txt")
    check_equal({gui.pages(), gui.active(), gui.languages()}, {{"first", "second"}, {"first"}, {"english", "german"}})
    check_equal({gui.text(1), gui.language("german"), gui.text(1)}, {"One", "german", "Eins"})
    local square = gui.widget("~BSQUARE")
    check_equal({square.type, square.page, square.x, square.y, square.visible}, {"b", "first", 32, 24, true})
    local heard
    gui.on("play", function(record) heard = record return true end)
    check_equal(gui.tooltip(), nil, "what is written over the GUI is no tooltip")
    gui.click("first/~bsquare") gui.frame(70)
    check_equal(heard, {text = "play:now", command = "play", argument = "now", value = 0, page = "first",
                        source = "~bsquare", id = 0})
    gui.on("setpage", error)
    gui.command("setpage:second.glb") gui.settle()
    check_equal({gui.rendered(), gui.title()}, {{"second"}, "second - Gui.txt"}, "the GUI keeps its words")
    gui.command("nosuch:x") gui.frame(3)
    gui.unload()
    check_equal(gui.pages(), {})
    check(gui.load("gui.txt"))
    check_equal(#gui.pages(), 2)
  )");
  EXPECT_THAT(out, HasSubstr("command: nosuch:x\n"));
  EXPECT_EQ(out.find("nosuch"), out.rfind("nosuch")) << "once";
}

// A row a script and what it fails with.
TEST_F(ScriptTest, FailsWithItsFileAndLine) {
  const char* rows[][2] = {
      {"\ncheck(false, 'no luck')", "guihost: script.lua:2: no luck: the check failed\n"},
      {"check_equal({1, {a = 2}}, {1, {a = 3}})", "script.lua:1: got {1, {a = 2}}, wanted {1, {a = 3}}\n"},
      {"\n\ngui.setpage('third')", "script.lua:3: there is no page third"},
      {"gui.frame('often')", "script.lua:1: bad argument #1 to 'frame'"},
      {"x = = 1", "script.lua:1:"},
      {"gui.on('play', function()\nerror('ouch') end)\ngui.settle()\ngui.click('~bsquare')", "script.lua:2: ouch"},
      {"gui.settle(1) gui.setpage('second') gui.settle(1)", "after 1 frames"},  // it was settled at first
      {"gui.bag('first', {})", "first is no bag"},
      {"gui.settle() gui.hover('~bback')", "its page second is not active"},
      {"gui.settle() gui.set('~bsquare', 'visible', false) gui.hover('~bsquare')", "is hidden"},
      {"gui.setpage('second') gui.settle() gui.hover('~bback')", "has no box"},
      {"gui.same_image('now.png', 'none.png')", "none.png"}};
  for (const auto& [script, failure] : rows) EXPECT_THAT(FailureOf(script), HasSubstr(failure)) << script;
}

TEST_F(ScriptTest, EndsWhatDoesNotEnd) {
  const auto tells = HasSubstr("script.lua:2: still running after 0.3 seconds\n");
  for (const char* script :
       {"\nwhile true do end", "\nwhile true do pcall(function() while true do end end) end",
        "\nwhile true do pcall(gui.frame) end", "local function f()\nwhile true do end end xpcall(f, f)",
        "function tree() local t = {} for i = 1, 60 do t = {t, t} end return t end\ncheck_equal(tree(), tree())",
        "gui.on('play', function()\nwhile true do end end) gui.settle() gui.click('~bsquare')"}) {
    EXPECT_THAT(FailureOf(script, "Gui.txt --timeout 0.3"), tells) << script;
  }
}

// What a game.lua of the data may not: each way fails at its line, and nothing is written outside.
TEST_F(ScriptTest, KeepsTheGameOfTheDataInside) {
  const TemporaryFolder outside;
  fs::create_directory_symlink(outside.Path(), folder.Path() / "away");
  fs::create_directory_symlink(outside.Path(), folder.Path() / "Pages/bak");
  folder.Write("kept/bak/none", "");
  fs::create_symlink(outside.Path() / "kept", folder.Path() / "kept/bak/page.txt0");
  fs::create_symlink(outside.Path() / "gone", folder.Path() / "gone.png");
  fs::create_symlink(outside.Path() / "gone", folder.Path() / "old.difference.png");
  const std::string game = R"(
    local ways = {
      'os.execute("touch made")', 'io.open("made", "w")', 'os.remove("Gui.txt")', 'require("io")',
      'package.loadlib("made", "made")', 'dofile("Gui.txt")', 'debug.getregistry()', 'string.dump(check)',
      '("").dump(check)', [[assert(load("\27Lua", "made", "b"))]], 'gui.shot("../made.png")',
      'gui.shot("a/../../made.png")', 'gui.shot(outside .. "/made.png")', [[gui.shot("c:\\made.png")]],
      'gui.shot("away/made.png")', 'gui.shot("AWAY/made.png")', 'gui.shot("gone.png")',
      'gui.same_image("made.png", "../made.png")', 'gui.same_image("../made.png", "made.png")',
      'gui.shot("golden.png") gui.same_image("old.png", "golden.png")', [[gui.save_page("first", "away\\made.txt")]],
      [[gui.save_page("first", "..\\made.txt")]], [[gui.save_page("first", "pages\\first.txt")]],
      'gui.save_page("first", "kept/page.txt")', 'gui.save_style()', 'gui.save_language("Gui.txt")',
      'setmetatable({}, {__gc = print})', '("x"):rep(1 << 40)', '(""):rep(1 << 62)',
      '("a"):rep(40):find((".-"):rep(20) .. "b")', '("a"):rep(1 << 20):gsub("a*b", "")',
      '("a"):rep(1 << 18):find(("a"):rep(1 << 17) .. "b", 1, true)',
      '("[]" .. ("a"):rep(3000)):find("%b[]" .. (".-"):rep(8) .. "x")',
      '("a"):rep(1 << 22):gsub("", ("%0"):rep(1 << 18))', '("a"):gsub("a", setmetatable({}, {__index = {}}))',
      'load(function() return nil end)', 'local t = {} for i = 1, 300000 do t = {t} end check_equal(t, {t})',
      'table.concat(setmetatable({}, {__index = table.concat}), "", 1, math.maxinteger)',
      'table.move({}, 1, math.maxinteger, 2)', '("x"):rep(1 << 20):rep(300)',
    }
    for _, way in ipairs(ways) do
      local done, why = pcall(load(way, "@game.lua"))
      check(not done, way .. " is open")
      check(why == "not enough memory" or why:find("game.lua:1: "), why)
    end
    gui.shot("shots/start.png")
    check(gui.save_page("first", "saved/first.txt"))
    check(os.time() > 0 and os.clock() and os.date() and load("return true")())
    getmetatable("").__index, gui.pages, string.format = nil, nil, nil
    gui.on("play", function(record) print("game: " .. record.argument) return true end)
  )";
  folder.Write("game.lua", "outside = '" + outside.Path().string() + "'" + game);
  Passes("Gui.txt", R"(
    check_equal(("x%d"):format(#gui.pages()), "x2", "scripts do not share what they change")
    gui.settle()
    gui.click("~bsquare")
    gui.on("play", function(record) print("script: " .. record.argument) return true end)
    gui.click("~bsquare")
    assert(io.open("shots/start.png")):close()
    assert(io.open("saved/first.txt")):close()
  )");
  EXPECT_THAT(out, AllOf(HasSubstr("game: now\nscript: now\n"), Not(HasSubstr("now\nscript: now\nscript"))));
  EXPECT_TRUE(fs::is_empty(outside.Path()));
  EXPECT_FALSE(fs::exists(folder.Path().parent_path() / "made.png"));

  folder.Write("game.lua", "gui.on('play', function()\nwhile true do end end)");
  EXPECT_THAT(FailureOf("gui.settle() gui.click('~bsquare')", "Gui.txt --timeout 0.3"),
              HasSubstr("game.lua:2: still running"));
  folder.Write("game.lua", "local s, all = ('x'):rep(1 << 20), {}\nfor i = 1, 2 do all[i] = s:rep(140 + i) end");
  EXPECT_THAT(FailureOf(""), HasSubstr("game.lua:2: not enough memory"));
  folder.Write("game.lua", "io.open('made', 'w'):close()");
  EXPECT_EQ(FailureOf("", "Gui.txt --game game.lua"), "") << "somebody named it";

  folder.Write("game.lua", "gui.shot('made.png')");
  PackZip(folder.Path(), folder.Path() / "game.zip");
  folder.Write("game.lua", "error('not of the data')");
  EXPECT_THAT(FailureOf("", "gui.TXT --data game.zip"),
              HasSubstr("game.lua:1: gui.shot may not write made.png: the data is in an archive"));
}

// What one call of a library may spend long on.
TEST_F(ScriptTest, EndsTheGameOfTheDataWithinLibraries) {
  for (const char* game : {"local s, all = ('x'):rep(1 << 24), {}\nlocal a, b = s .. 'a', s .. 'b'\n"
                           "for i = 1, 10000 do all[i] = i % 2 == 0 and a or b end table.sort(all)",
                           "local all = {} for i = 1, 30000 do all[i] = '::a' .. i .. '::x=1 ' end\n"
                           "load(('local function f() ' .. table.concat(all) .. ' end '):rep(20))"}) {
    folder.Write("game.lua", game);
    EXPECT_THAT(FailureOf("", "Gui.txt --timeout 0.5"), HasSubstr("still running after 0.5 seconds"));
  }
}

// A metatable may run anything while an argument is read.
TEST_F(ScriptTest, ReadsItsTablesBeforeWhatTheyAreFor) {
  Passes(onSample, R"(
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
  )");
}

TEST_F(ScriptTest, RunsTheSameEveryTimeAndTracesItsCallsAsJson) {
  for (const std::string trace : {"new/first.json", "new/second.json"}) {
    ASSERT_EQ(FailureOf("gui.settle() gui.click('~bsquare') gui.frame(80)", "Gui.txt --trace " + trace), "");
  }
  const std::string trace = folder.Read("new/first.json");
  EXPECT_TRUE(trace == folder.Read("new/second.json"));
  for (const char* call : {"IVFS::ReadFile", "SimpleScene::Load", "ISceneMng::CreateInstance", "Camera::SetProjection",
                           "IRender::Submit"}) {
    EXPECT_THAT(trace, HasSubstr(call));
  }
  std::istringstream calls(trace);
  for (std::string call; std::getline(calls, call);) EXPECT_TRUE(nlohmann::json::accept(call)) << call;
}

TEST_F(ScriptTest, ComparesPictures) {
  const std::string first = "gui.settle() check(gui.same_image('now.png', 'golden.png'))";
  const std::string second = "gui.setpage('second') " + first;
  ASSERT_EQ(FailureOf("gui.settle() gui.shot('golden.png')"), "");
  EXPECT_EQ(FailureOf(first), "");
  EXPECT_THAT(FailureOf(second), HasSubstr("the check failed"));
  EXPECT_TRUE(Picture("now.difference.png"));
  EXPECT_EQ(FailureOf(second, "Gui.txt --update"), "");
  EXPECT_EQ(FailureOf(second), "") << "the golden picture was renewed";
}

TEST_F(ScriptTest, LoadsAnewWhatHasChanged) {
  Passes("Gui.txt", R"(
    gui.settle()
    gui.language("german")
    gui.setpage("second") gui.settle()
    gui.set("first/~bsquare", "position", 7)
    local scene = assert(io.open("Scenes/Second.glb")):read("a")
    local function write(name, text) assert(io.open(name, "w")):write(text):close() end
    write("Lang.txt", 'lang english { str1 One } lang german { str1 "Eins neu" }')
    gui.reload()
    check_equal(gui.text(1), "Eins neu", "the words are new")
    check_equal(gui.pages(), {"first", "second"}, "the old pages are gone")
    check_equal({gui.active(), gui.rendered()}, {{"second"}, {"second"}}, "the page is the same")
    check_equal(gui.widget("first/~bsquare").position, 7, "values are the same")
    local function refuses(file, fault)
      write(file, "junk")
      local done, why = pcall(gui.reload)
      check(not done and why:find(fault, 1, true), why)
      check_equal(gui.active(), {"second"}, "the last good GUI stays")
      gui.frame(2)
    end
    refuses("Scenes/Second.glb", "scenes\\second.glb: ")
    write("Scenes/Second.glb", scene)
    refuses("Pages/First.txt", "not loaded: pages\\first.txt:1:1: error: the first word must be name")
  )");
}

TEST_F(ScriptTest, LoadsAnewFromAnArchiveThatWasReplaced) {
  PackZip(folder.Path(), folder.Path() / "game.zip");
  folder.Write("Lang.txt", "lang english { str1 \"Another One\" }");
  PackZip(folder.Path(), folder.Path() / "new.zip");
  Passes("Gui.txt --data game.zip", R"(
    check_equal(gui.text(1), "One")
    assert(os.rename("new.zip", "game.zip"))
    gui.reload()
    check_equal(gui.text(1), "Another One")
    os.remove("game.zip")
    local done, why = pcall(gui.reload)
    check(not done and why:find("cannot read game.zip", 1, true), why)
  )");
}

TEST_F(ScriptTest, HearsOfPagesThatTakeInputUnseen) {
  Passes("Gui.txt", R"(
    local function times_told()
      return (select(2, table.concat(gui.log(), "\n"):gsub("second.glb takes input but is not drawn", "")))
    end
    gui.command("setpage:second.glb") gui.command("setpage:first.glb") gui.frame(30)
    check_equal(times_told(), 1, "once")
    gui.command("addrenderpage:second.glb") gui.frame(30)
    gui.command("remrenderpage:second.glb") gui.frame(30)
    check_equal(times_told(), 1, "again, when it begins again")
  )");
}

TEST_F(ScriptTest, ManyAreTests) {
  folder.Write("Checks/one.lua", "gui.settle() check_equal(gui.active(), {'first'}) gui.setpage('second')");
  folder.Write("Checks/two.lua", "gui.settle() check_equal(gui.active(), {'first'}) -- a fresh GUI");
  EXPECT_EQ(Run("test Checks Gui.txt"), 0) << err;
  EXPECT_THAT(out, EndsWith("2 passed, 0 failed\n"));
  folder.Write("Checks/bad.lua", "check(false)");
  folder.Write("Checks/endless.lua", "while true do end");
  EXPECT_NE(Run("test Checks Gui.txt --timeout 2"), 0);
  EXPECT_THAT(out, AllOf(HasSubstr("FAILED Checks/bad.lua"), HasSubstr("bad.lua:1: the check failed"),
                         HasSubstr("endless.lua:1: still running"), EndsWith("2 passed, 2 failed\n")));
}

}  // namespace
}  // namespace qen::host
