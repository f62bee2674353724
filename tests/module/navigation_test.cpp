// The page lists, their commands and the queue beside a model of them, through whatever game and user may do.
#include <algorithm>
#include <map>
#include <random>

#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

using Pages = std::vector<std::uint32_t>;

constexpr std::uint32_t kPages = 5;  // "a.glb" to "d.glb", and one that does not load

String NameOf(std::uint32_t page) { return page < 4 ? String{static_cast<Char>(u'a' + page)} + u".glb" : String(); }

struct Model {
  static constexpr int kFrames = 4;  // that half a second takes, of a fifth of a second each
  explicit Model(std::function<void(GuiMessage&)> game) : offer(std::move(game)) {}

  void Post(const GuiMessage& record) {
    if (record.command == u"setpage") {
      RemoveActive(record, true);
      for (const StringView word : {u"removeallfromrender", u"addrenderpage", u"addactivepage"}) {
        Append(record, word, record.argument);
      }
    } else if (record.command != u"undopage") {
      queue.push_back(std::make_shared<GuiMessage>(record));
      queue.back()->snapshot = 1;
    } else if (!undo.empty()) {
      const auto [wereActive, wereRendered] = undo.back();
      undo.pop_back();
      RemoveActive(record, false);
      Append(record, u"removeallfromrender", record.argument);
      for (const std::uint32_t page : wereRendered) Append(record, u"addrenderpage", NameOf(page));
      for (const std::uint32_t page : wereActive) Append(record, u"addactivepage", NameOf(page));
    }
  }

  void Deliver() {
    reset = false;
    for (const std::shared_ptr<GuiMessage>& record : std::vector(queue)) {
      if (reset) return;
      if (moving[record->page].second == 0) CarryOut(*record);
      offer(*record);
    }
    std::erase_if(queue, [](const auto& record) { return record->handled != 0; });
  }

  void Reset() {
    reset = true;
    queue.clear();
    active.clear();
    rendered.clear();
  }

  std::vector<ICGUIPageObject*> pages;
  Pages active;
  Pages rendered;
  std::vector<std::pair<Pages, Pages>> undo;
  std::vector<std::shared_ptr<GuiMessage>> queue;
  std::map<const ICGUIPageObject*, std::pair<ICGUIAnim*, int>> moving;  // and for how many frames more
  bool quiet = false;
  bool reset = false;
  std::function<void(GuiMessage&)> offer;

 private:
  void Append(const GuiMessage& origin, StringView word, const String& argument, bool snapshot = false) {
    queue.push_back(std::make_shared<GuiMessage>(origin));
    queue.back()->command = word;
    queue.back()->argument = argument;
    queue.back()->snapshot = snapshot ? 1 : 0;
    queue.back()->origin = 1;
  }

  void RemoveActive(const GuiMessage& origin, bool snapshot) {
    for (std::size_t i = active.size(); i-- > 0;) {
      Append(origin, u"remactivepage", NameOf(active[i]), snapshot && i + 1 == active.size());
    }
  }

  void CarryOut(GuiMessage& record) {
    const StringView word = record.command;
    const bool adds = word.starts_with(u"add");
    const bool activates = word.ends_with(u"activepage");
    if (word == u"removeallfromrender") rendered.clear();
    record.handled = word == u"removeallfromrender" || activates || word.ends_with(u"renderpage") ? 1 : 0;
    if (record.handled == 0 || word == u"removeallfromrender") return;
    if (record.snapshot != 0) undo.emplace_back(active, rendered);
    std::uint32_t page = 0;
    while (page < 4 && NameOf(page) != record.argument) ++page;
    if (page == 4) return;
    if (activates && !quiet) Move(page, adds);
    Pages& list = activates ? active : rendered;
    const auto found = std::ranges::find(list, page);
    if (!adds && found == list.end()) return;
    adds ? list.insert(list.end(), page) : list.erase(found);
  }

  void Move(std::uint32_t index, bool in) {
    const ICGUIPageObject& page = *pages[index];
    const std::int32_t animation = in ? page.animIn : page.animOut;
    if (animation < 0 || moving[&page].second > 0) return;
    moving[&page] = {page.anims[static_cast<std::size_t>(animation)], kFrames};
  }
};

class Navigation : public GuiTest {
 protected:
  Navigation() {
    engine.AddAnimation(u"move.glb", base::MoveNode(u"normal_go", {}, {0, 2, 0}, 0.5F));
    // Each "~bgo" is at a place of its own.
    AddButtonPage(u"a", {u"go"}, u"anim_out move.glb anim_in move.glb");
    AddButtonPage(u"b", {u"x", u"go"}, u"anim_out move.glb");
    AddButtonPage(u"c", {u"x", u"y", u"go"}, u"anim_in move.glb");
    AddButtonPage(u"d", {u"x", u"y", u"z", u"go"});
    for (const String file : {u"a.txt", u"b.txt", u"c.txt", u"d.txt", u"none.txt"})
      model.pages.push_back(OpenPage(file));
    listener.onRecord = [this](std::uint32_t, GuiMessage& record) { Offer(record, false); };
  }

  // The game: keeps what it is told, and reacts to some of it.
  void Offer(GuiMessage& record, bool byModel) {
    std::string told = Narrow(record.text) + "=" + Narrow(record.command) + ":" + Narrow(record.argument);
    if (record.source != nullptr) told += " from " + Narrow(record.source->GetPage()->baseName);
    if (record.page != nullptr) told += " on " + Narrow(record.page->baseName);
    if (record.snapshot != 0) told += " snapshot";
    if (record.origin != 0) told += " own";
    (byModel ? wanted : offered).push_back(told + (record.handled != 0 ? " handled" : ""));
    if (record.command == u"play") record.handled = gameTakes ? 1 : 0;
    if (record.command == u"more") byModel ? model.Post(OwnRecord(u"addrenderpage", 1)) : void(gui->AddRenderPage(1));
    if (record.command == u"reset") byModel ? model.Reset() : gui->Reset();
    if (record.command == u"frame" && !byModel) {
      Send(message::kFrame);
      Deliver();  // inside a delivery: does nothing
    }
    if (record.command == u"more" || record.command == u"frame" || record.command == u"reset") record.handled = 1;
  }

  GuiMessage OwnRecord(StringView word, std::uint32_t page) {
    GuiMessage record;
    record.command = word;
    record.argument = NameOf(page);
    record.page = gui->GetPage(page);
    record.origin = 1;
    return record;
  }

  void ClickOn(std::uint32_t page, const String& word, const String& argument) {
    ICGUIObject& button = *model.pages[page]->items.back();
    button.info->messages.clear();
    Say(button, {word + u":" + argument});
    GuiMessage record = *button.info->messages[0];
    Aim({30.0F * static_cast<float>(page), 0, 0});
    Press();
    ReleaseButton();
    Send(message::kFrame);
    record.command = word;
    record.argument = argument;
    record.page = model.pages[page];
    for (std::ptrdiff_t left = std::ranges::count(model.active, page); left > 0; --left) model.Post(record);
  }

  void ExpectSame() {
    for (std::uint32_t page = 0; page < kPages; ++page) {
      const auto [animation, frames] = model.moving[model.pages[page]];
      ASSERT_EQ(model.pages[page]->GetPlayingAnim(), frames > 0 ? animation : nullptr) << page;
    }
    ASSERT_EQ(gui->GetActivePages(), model.active);
    ASSERT_EQ(gui->GetRenderPages(), model.rendered);
    ASSERT_EQ(std::exchange(offered, {}), std::exchange(wanted, {}));
  }

  Model model{[this](GuiMessage& record) { Offer(record, true); }};
  std::vector<std::string> offered;
  std::vector<std::string> wanted;
  bool gameTakes = false;
};

TEST_F(Navigation, IsWhatTheModelSays) {
  std::mt19937 random(1);
  const auto below = [&random](std::size_t count) { return static_cast<std::uint32_t>(random() % count); };
  const std::pair<StringView, void (*)(IGui&, std::uint32_t)> calls[] = {
      {u"setpage", [](IGui& book, std::uint32_t page) { book.SetPage(page); }},
      {u"addrenderpage", [](IGui& book, std::uint32_t page) { book.AddRenderPage(page); }},
      {u"remrenderpage", [](IGui& book, std::uint32_t page) { book.RemRenderPage(page); }},
      {u"addactivepage", [](IGui& book, std::uint32_t page) { book.AddActivePage(page); }},
      {u"remactivepage", [](IGui& book, std::uint32_t page) { book.RemActivePage(page); }}};
  const StringView words[] = {u"setpage",       u"undopage",      u"setpage", u"undopage", u"addrenderpage",
                              u"addactivepage", u"remactivepage", u"play",    u"more",     u"frame",
                              u"SETPAGE",       u"remrenderpage", u"reset",   u"",         u"removeallfromrender"};
  const StringView arguments[] = {u"a.glb", u"b.glb", u"c.glb", u"d.glb", u"", u"nobody", u"A.glb"};
  for (int step = 0; step < 50000 && !HasFatalFailure(); ++step) {
    SCOPED_TRACE(step);
    const std::uint32_t page = below(kPages + 1);  // the last is out of range
    const auto& [word, call] = calls[below(std::size(calls))];
    gameTakes = below(2) == 0;
    switch (below(8)) {
      case 0:
      case 1:
        call(*gui, page);
        model.Post(OwnRecord(word, page));
        break;
      case 2:
        gui->GetActivePages() = model.active = Pages(below(3), page);
        gui->GetRenderPages() = model.rendered = Pages(below(3), below(kPages + 1));
        break;
      case 3:
        gui->SetQuiet(model.quiet = below(2) == 0);
        if (below(8) > 0) break;
        gui->ClearUndo();
        model.undo.clear();
        break;
      default:
        ClickOn(below(4), String(words[below(std::size(words))]), String(arguments[below(std::size(arguments))]));
    }
    if (below(4) > 0) {
      Frame(0.2);
      model.Deliver();
      for (auto& [moved, how] : model.moving) how.second = std::max(how.second - 1, 0);
    }
    ExpectSame();
  }
}

}  // namespace
}  // namespace qen::test
