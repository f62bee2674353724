// What a page hands to the renderer.
#include <stdexcept>

#include "engine/mesh.h"
#include "engine/render_client.h"
#include "engine/scene.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

class Client final : public RenderClient {
 public:
  Client(std::vector<std::string>& journal, String name) : journal_(journal), name_(std::move(name)) {}
  void Draw() override {
    journal_.push_back("draw " + Narrow(name_));
    if (onDraw) onDraw();
  }
  void Detach() override {
    journal_.push_back("detach " + Narrow(name_));
    if (onDetach) onDetach();
  }
  String GetName() override { return name_; }

  std::function<void()> onDraw;
  std::function<void()> onDetach;

 private:
  std::vector<std::string>& journal_;
  String name_;
};

class PageDrawing : public GuiTest {
 protected:
  PageDrawing() {
    base::SceneData scene;
    base::AddBox(scene, u"backdrop", -1, {0, 0, -50}, {100, 80, 1});
    AddButton(scene, u"ok", {});
    page = OpenScene(std::move(scene));
    Frame();
  }

  ICGUIPageObject* page = nullptr;
};

TEST_F(PageDrawing, SubmitsDecorationAndStatesWithTheirPlacesAndDistances) {
  DrawPages();
  const base::DrawList& frame = engine.render.frame;
  ASSERT_EQ(frame.layers.size(), 1U);
  ASSERT_EQ(frame.items.size(), 2U);
  EXPECT_FLOAT_EQ(frame.items[0].distance, 144.1F + 50.0F);
  EXPECT_FLOAT_EQ(frame.items[1].distance, 144.1F);
  EXPECT_EQ(frame.items[0].entry.count, 1U);
  ASSERT_NE(frame.items[0].entry.lights, nullptr);
  ASSERT_EQ(frame.items[0].entry.lights->size(), 1U);
}

TEST_F(PageDrawing, HiddenAndUnlistedPagesAreNotDrawn) {
  gui->GetRenderPages().clear();
  DrawPages();
  EXPECT_TRUE(engine.render.frame.items.empty());
  gui->GetRenderPages() = {0, 0, 7};
  DrawPages();
  EXPECT_EQ(engine.render.frame.items.size(), 4U) << "listed twice, drawn twice; a page that is none, not at all";
  Viewport other(&engine.camera);
  engine.Draw([&] { Send(message::kRender, 0, &other); });
  EXPECT_TRUE(engine.render.frame.items.empty()) << "another viewport";
}

TEST_F(PageDrawing, DrawsTheBoxesOfAWidgetThatShowsThem) {
  page->items[0]->SetShowBox(1);
  DrawPages();
  std::size_t lines = 0;
  for (const base::DrawItem& item : engine.render.frame.items) lines += item.kind == base::DrawKind::Lines3D ? 1 : 0;
  EXPECT_EQ(lines, 1U) << "of the node that is drawn";
}

TEST_F(PageDrawing, DrawsTheSceneThatAPictureCarriesWhileItIsShown) {
  base::SceneData album;
  base::AddBox(album, u"~pframe", -1, {}, {10, 10, 1});
  page = OpenScene(std::move(album), {}, u"album");
  base::SceneData figure;
  base::AddBox(figure, u"hat", -1, {}, {1, 1, 1});
  base::AddBox(figure, u"plume", -1, {0, 2, 0}, {1, 1, 1});
  page->items[0]->subScene = OpenScene(std::move(figure), {}, u"figure")->instance;
  ShowOnly(1);
  engine.calls.clear();
  DrawPages();
  EXPECT_EQ(engine.render.frame.items.size(), 1U + 2U);
  const std::vector<base::Call> drawn = engine.CallsOf("SimpleSceneInstance::Render");
  ASSERT_EQ(drawn.size(), 1U);
  EXPECT_EQ(std::get<std::int64_t>(drawn[0].arguments.back()), 2) << "with the interface";
  page->items[0]->SetVisible(0);
  Frame();
  DrawPages();
  EXPECT_TRUE(engine.render.frame.items.empty());
}

TEST_F(PageDrawing, CallsRenderClientsInOrderAndForgetsThemOnUnload) {
  std::vector<std::string> journal;
  Client a(journal, u"a");
  Client b(journal, u"b");
  page->RegisterRenderObject(&a);
  page->RegisterRenderObject(&b);
  DrawPages();
  page->UnregisterRenderObject(&a);
  page->UnregisterRenderObject(&a);
  ASSERT_EQ(engine.errors.size(), 1U);
  EXPECT_EQ(engine.errors[0], u"not unregistered object from render gui a");
  page->Unload();
  page->Unload();
  EXPECT_EQ(journal, (std::vector<std::string>{"draw a", "draw b", "detach b"}));
}

TEST_F(PageDrawing, CallsRenderClientsOnceWhicheverComeAndGo) {
  std::vector<std::string> journal;
  Client a(journal, u"a");
  Client b(journal, u"b");
  Client c(journal, u"c");
  Client late(journal, u"late");
  for (Client* client : {&a, &b, &c}) page->RegisterRenderObject(client);
  b.onDraw = [&] {
    page->UnregisterRenderObject(&a);
    page->UnregisterRenderObject(&b);
    page->RegisterRenderObject(&late);
  };
  DrawPages();
  EXPECT_EQ(journal, (std::vector<std::string>{"draw a", "draw b", "draw c"}));
  journal.clear();
  DrawPages();
  EXPECT_EQ(journal, (std::vector<std::string>{"draw c", "draw late"}));

  journal.clear();
  c.onDetach = [&] {
    EXPECT_EQ(page->renderClients.size(), 2U) << "forgotten when all have been told";
    page->UnregisterRenderObject(&late);
    page->RegisterRenderObject(&c);
    page->LoadPage(u"s.txt", 0);
    page->Unload();
  };
  page->Unload();
  EXPECT_EQ(journal, std::vector<std::string>{"detach c"});
  EXPECT_TRUE(page->renderClients.empty());
}

TEST_F(PageDrawing, LetsAClientLoadTheGuiAnew) {
  AddText(u"gui.txt", u"name s.txt");
  std::vector<std::string> journal;
  Client guest(journal, u"guest");
  guest.onDraw = [this] {
    module.Export<DeactivateDllFunction>(kDeactivateDll)();
    gui->Release();
    gui->Load(u"gui.txt", &engine.camera);
  };
  page->RegisterRenderObject(&guest);
  DrawPages();
  EXPECT_EQ(engine.errors, std::vector<String>{u"Gui is busy: not deactivated"});
  EXPECT_EQ(journal, (std::vector<std::string>{"draw guest", "detach guest"}));
  gui->SetViewport(&engine.viewport);
  ShowOnly(0);
  Frame();
  EXPECT_TRUE(IsDrawn(u"normal_ok")) << "the old page has not taken the new one's scene with it";
}

TEST_F(PageDrawing, SurvivesAClientThatUnloadsEverything) {
  std::vector<std::string> journal;
  Client rude(journal, u"rude");
  Client other(journal, u"other");
  page->RegisterRenderObject(&rude);
  page->RegisterRenderObject(&other);
  rude.onDraw = [this] { gui->Release(); };
  DrawPages();
  EXPECT_EQ(gui->GetPageCount(), 0U);
  EXPECT_EQ(journal.back(), "detach other");
}

TEST_F(PageDrawing, LetsAClientReleaseTheGuiWhenItIsDetached) {
  AddText(u"gui.txt", u"name s.txt");
  std::vector<std::string> journal;
  Client guest(journal, u"guest");
  guest.onDetach = [this] {
    module.Export<DeactivateDllFunction>(kDeactivateDll)();
    gui->Release();
    gui->Load(u"gui.txt", &engine.camera);
  };
  const auto unload = [&](const std::function<void()>& work) {
    gui->GetPage(0)->RegisterRenderObject(&guest);
    engine.errors.clear();
    work();
    guest.onDraw = nullptr;
    EXPECT_EQ(engine.errors, std::vector<String>{u"Gui is busy: not deactivated"});
    gui->SetViewport(&engine.viewport);
    ShowOnly(0);
    Frame();
    EXPECT_TRUE(IsDrawn(u"normal_ok"));
  };
  unload([this] { gui->Release(); });
  unload([this] { gui->GetPage(0)->Unload(); });
  guest.onDraw = [this] { gui->Release(); };
  unload([this] { DrawPages(); });
  EXPECT_EQ(journal, (std::vector<std::string>{"detach guest", "detach guest", "draw guest", "detach guest"}));
}

TEST_F(PageDrawing, UnloadsAlthoughAClientThrows) {
  std::vector<std::string> journal;
  Client rude(journal, u"rude");
  rude.onDetach = [] { throw std::runtime_error("no"); };
  page->RegisterRenderObject(&rude);
  EXPECT_THROW(page->Unload(), std::runtime_error);
  EXPECT_EQ(page->scene, nullptr);
  EXPECT_NE(page->LoadPage(u"s.txt", 0), nullptr);
}

TEST_F(PageDrawing, FindsNodesByTheirExactNames) {
  EXPECT_NE(page->FindNode(u"backdrop"), nullptr);
  EXPECT_EQ(page->FindNode(u"Backdrop"), nullptr);
  EXPECT_EQ(page->FindNode(nullptr), nullptr);
  ASSERT_NE(gui->GetNodeMatrix(0, u"backdrop"), nullptr);
  EXPECT_FLOAT_EQ(gui->GetNodeMatrix(0, u"backdrop")->m[3][2], 50.0F);
}

}  // namespace
}  // namespace qen::test
