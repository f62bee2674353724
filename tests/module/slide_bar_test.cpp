// A slide bar beside its model, through whatever user and host may do; and what the model leaves out.
#include "tests/module/slide_bar_model.h"

namespace qen::test {
namespace {

class SlideBar : public BesideModel {
 protected:
  void Open(unsigned parts, bool vertical) {
    gui->Release();
    place = {5, vertical ? 6.0F : -40.0F, 0};
    base::SceneData scene;
    AddSlideBar(scene, u"~sbar", -1, place, vertical);
    for (base::NodeData& node : scene.nodes) {
      for (std::size_t i = 0; i < 4; ++i) {
        if ((parts >> i & 1U) == 0 && node.name.starts_with(SlideBarModel::kRoles[i])) node.name = u"none";
      }
    }
    OpenScene(std::move(scene), u"item ~sbar { message moved: }");
    bar = dynamic_cast<ICGUISlideBar*>(Find(u"~sbar"));
    model = {};
    model.parts = parts;
    model.vertical = vertical;
    Update({.beside = true});
  }

  void Update(const Pointer& pointer) {
    ASSERT_EQ(Pick(bar, place + model.PlaceOf(pointer), pointer), model.Update(pointer))
        << pointer.along << " of " << model.min << ".." << model.max;
    ASSERT_EQ(Dispatched(), std::exchange(model.dispatched, ""));
    ASSERT_EQ(bar->info->position, model.position);
    ASSERT_EQ(bar->state, model.state);
    if ((model.parts & 3U) != 3U) return;
    const Vec3 drawn = gui->GetNodeMatrix(0, u"normal_slider~sbar")->GetTranslation() - place;
    ASSERT_NEAR(model.vertical ? -drawn.y : drawn.x, model.slider, 0.001);
    ASSERT_EQ(model.vertical ? drawn.x : drawn.y, 0);
  }

  void ChangeSomething() {
    constexpr std::int32_t kNumbers[] = {INT32_MIN, -20, -5, 0, 1, 2, 18, 19, 50, 100, 500, INT32_MAX};
    const auto number = [this, &kNumbers] { return kNumbers[dice.Below(std::size(kNumbers))]; };
    switch (dice.Below(5)) {
      case 0:
        model.min = bar->info->min = number();
        model.max = bar->info->max = number();
        break;
      case 1:
        return bar->SetVisible(model.visible = dice.Below(4) != 0);
      case 2:
        return bar->SetDisabled(model.disabled = dice.Below(4) == 0);
      case 3:
        bar->wrap = (model.wrap = dice.Below(2) == 0) ? 1 : 0;
        break;
      default:
        model.position = bar->info->position = number();
    }
  }

  ICGUISlideBar* bar = nullptr;
  Vec3 place;
  SlideBarModel model;
};

TEST_F(SlideBar, DoesWhatItsModelDoes) {
  engine.RecordCalls(false);
  for (unsigned parts = 0; parts <= SlideBarModel::kAllParts; ++parts) {
    for (const bool vertical : {false, true}) {
      Open(parts, vertical);
      for (int step = 0; step < 2200 && !HasFailure(); ++step) {
        SCOPED_TRACE("parts " + std::to_string(parts) + (vertical ? " upright" : "") + ", step " +
                     std::to_string(step));
        if (dice.Below(4) == 0) ChangeSomething();
        Update(model.Anywhere(dice));
      }
    }
  }
}

TEST_F(SlideBar, TellsButOrdersNothing) {
  Open(SlideBarModel::kAllParts, false);
  listener.onRecord = {};
  bar->info->messages.back()->text = u"enable/disable:~sbar";
  Update({.mouse = 1});
  EXPECT_EQ(bar->info->disabled, 0U);
}

}  // namespace
}  // namespace qen::test
