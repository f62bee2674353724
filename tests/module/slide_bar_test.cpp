// How a slide bar is moved: dragged, stepped with keys and with its buttons.
#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {
namespace {

class SlideBar : public GuiTest {
 protected:
  SlideBar() {
    base::SceneData scene;
    AddSlideBar(scene, u"~sx", -1, {0, -40, 0}, false);
    AddSlideBar(scene, u"~sy", -1, {60, 0, 0}, true);
    engine.AddSound(u"hover.wav");
    page = OpenScene(std::move(scene), u"onmousewav hover.wav");
    x = dynamic_cast<ICGUISlideBar*>(Find(u"~sx"));
    y = dynamic_cast<ICGUISlideBar*>(Find(u"~sy"));
    for (ICGUIObject* bar : page->items) Say(*bar, {u"moved:" + bar->info->name});
    listener.onRecord = [](std::uint32_t, GuiMessage& record) { record.handled = 1; };
    MoveTo({1, 1});
    Frame();
  }

  // Points on the faces of the parts; `part` runs from the near end, with the slider at rest, to the far one.
  static Vec3 OnX(double part) { return {static_cast<float>(-30 + part * 60), -40, -1}; }
  static Vec3 OnY(double part) { return {60, static_cast<float>(30 - part * 60), -1}; }
  static constexpr double kDown = -0.1;
  static constexpr double kUp = 1.1;

  void ClickAt(const Vec3& place) {
    Aim(place);
    ClickHere();
  }

  // Delivers what is left; then "c" for each command record since the last call, "n" for each notification.
  std::string Dispatched() {
    Deliver();
    std::string ids;
    for (const Listener::Record& entry : listener.records) {
      ids += entry.id == message::kNotification ? 'n' : entry.id == message::kCommand ? 'c' : '?';
    }
    listener.records.clear();
    return ids;
  }

  std::optional<Picked> Pick(const Vec3& place, std::uint32_t mouse, Char key = 0) {
    return PickAt(Project(place), mouse, key);
  }

  ICGUIPageObject* page = nullptr;
  ICGUISlideBar* x = nullptr;
  ICGUISlideBar* y = nullptr;
};

TEST_F(SlideBar, FollowsTheHeldCursor) {
  for (const auto& [min, max] : {std::pair{0, 100}, {-20, 60}, {5, 5}, {100, 130}}) {
    for (const ICGUIObject* bar : page->items) {
      bar->info->min = min;
      bar->info->max = max;
    }
    Press();
    const int count = max - min + 1;
    for (int i = 0; i < count; i += 3) {
      const double middle = (i + 0.5) / count;
      Aim(OnX(middle));
      Frame();
      EXPECT_EQ(x->info->position, min + i) << min << ".." << max;
      Aim(OnY(middle));
      Frame();
      EXPECT_EQ(y->info->position, max - static_cast<int>((1 - middle) * count));
      EXPECT_EQ(x->info->position, min + i) << "it stays where it was left";
    }
    ReleaseButton();
    Frame();
  }
}

TEST_F(SlideBar, ReachesItsEndsAndNoFurther) {
  Press();
  for (const auto& [part, wanted] : {std::pair{0.995, 100}, {0.005, 0}, {0.995, 100}}) {
    Aim(OnX(part));
    Frame();
    EXPECT_EQ(x->info->position, wanted);
    Aim(OnY(part));
    Frame();
    EXPECT_EQ(y->info->position, wanted) << "the top of an upright bar is its near end";
  }
  Aim(OnX(0.5) + Vec3{0, 3, 0});
  Frame();
  EXPECT_EQ(x->info->position, 100) << "beside the bar";
  ReleaseButton();
  Aim(OnX(0.5));
  Frame();
  EXPECT_EQ(x->info->position, 100) << "let go of";
}

TEST_F(SlideBar, TellsOfEveryFrameThatItIsDragged) {
  EXPECT_EQ(Pick(OnX(0.3), 1), Picked(x, x));
  Pick(OnX(0.3), 1);
  EXPECT_EQ(Dispatched(), "nn");
  EXPECT_EQ(Dispatched(), "") << "delivered once";
  EXPECT_EQ(Pick(OnX(0.3), 0), Picked(x, nullptr));
  EXPECT_EQ(Pick(OnX(0.9), 2), Picked(x, nullptr)) << "a release does not move it";
  EXPECT_EQ(Dispatched(), "c") << "but it is a click on the button that the bar is";
}

TEST_F(SlideBar, StepsByATenthWithTheKeys) {
  struct Row {
    std::int32_t min, max, from;
    Char key;
    std::int32_t to;
  };
  const Row rows[] = {{0, 100, 0, 40, 10},
                      {0, 100, 95, 40, 100},
                      {0, 100, 7, 38, 0},
                      {0, 100, 50, 38, 40},
                      {0, 5, 2, 40, 3},
                      {0, 5, 2, 38, 1},
                      {-50, 49, 0, 40, 10},
                      {0, 18, 0, 40, 1},
                      {0, 19, 0, 40, 2},
                      {10, -10, 0, 40, -10},
                      {0, 100, 50, 13, 50},
                      {INT32_MIN, INT32_MAX, INT32_MAX, 40, INT32_MAX},
                      {INT32_MIN, INT32_MAX, INT32_MIN, 38, INT32_MIN},
                      {INT32_MIN, INT32_MAX, 0, 40, 429496729}};
  for (const Row& row : rows) {
    x->info->min = row.min;
    x->info->max = row.max;
    x->info->position = row.from;
    Pick(OnX(0.5), 0, row.key);
    EXPECT_EQ(x->info->position, row.to) << row.min << ".." << row.max << " from " << row.from;
    EXPECT_EQ(Dispatched(), row.key == 13 ? "" : "n");
  }
  x->info->position = -10;
  Pick(OnX(0.5) + Vec3{0, 3, 0}, 0, 40);
  EXPECT_EQ(Dispatched(), "") << "beside the bar";
}

TEST_F(SlideBar, StepsByOneWithItsButtons) {
  x->info->max = 2;
  for (const auto& [place, wanted] :
       {std::pair{kUp, 1}, {kUp, 2}, {kUp, 2}, {kDown, 1}, {kDown, 0}, {kDown, 0}, {kUp, 1}}) {
    ClickAt(OnX(place));
    EXPECT_EQ(x->info->position, wanted);
    EXPECT_EQ(Dispatched(), "cn");
  }
  EXPECT_EQ(Pick(OnX(kUp), 2), Picked(x, x));
  EXPECT_EQ(page->focusIndex, x->GetId());

  x->wrap = 1;
  for (const auto& [place, wanted] : {std::pair{kUp, 0}, {kDown, 2}, {kUp, 0}, {kUp, 1}, {kDown, 0}}) {
    ClickAt(OnX(place));
    EXPECT_EQ(x->info->position, wanted) << "round the ends";
  }
}

TEST_F(SlideBar, SoundsOnItsButtonsOnly) {
  Pick(OnX(0.5), 0);
  EXPECT_TRUE(engine.sound.played.empty());
  Pick(OnX(kUp), 0);
  EXPECT_EQ(engine.sound.played, std::vector<std::string>{"hover.wav"});
}

TEST_F(SlideBar, IgnoresAllWhileDisabled) {
  x->SetDisabled(1);
  Press();
  for (const double part : {0.5, kUp}) {
    Aim(OnX(part));
    Frame();
  }
  ReleaseButton();
  Frame();
  EXPECT_EQ(Pick(OnX(0.5), 0, 40), std::nullopt);
  EXPECT_EQ(x->info->position, 0);
  EXPECT_EQ(Dispatched(), "");
}

TEST_F(SlideBar, NotificationsChangeNoWidget) {
  x->info->messages.back()->text = u"enable/disable:~sy";
  x->info->checked = 1;
  Pick(OnX(0.5), 1);
  EXPECT_EQ(Dispatched(), "n");
  EXPECT_EQ(y->info->disabled, 0U);

  listener.onRecord = {};
  x->info->messages.back()->text = u"setpage:s.glb";
  Pick(OnX(0.5), 1);
  EXPECT_EQ(Dispatched(), "nnnn") << "what a change of pages stands for";
  EXPECT_EQ(Dispatched(), "") << "is news as well";
}

}  // namespace
}  // namespace qen::test
