// What a page hands to the renderer, and the clients that draw with it.
#include <stdexcept>

#include "engine/render_client.h"
#include "engine/scene.h"
#include "tests/module/gui_fixture.h"

namespace qen::test {
namespace {

// Writes its letter when it draws, and the capital when it is detached.
class Client final : public RenderClient {
 public:
  Client(std::string& journal, char letter) : journal_(journal), letter_(letter) {}
  void Draw() override {
    journal_ += letter_;
    if (onDraw) onDraw();
  }
  void Detach() override {
    journal_ += static_cast<char>(letter_ - 'a' + 'A');
    if (onDetach) onDetach();
  }
  String GetName() override { return u"client"; }

  std::function<void()> onDraw;
  std::function<void()> onDetach;

 private:
  std::string& journal_;
  char letter_;
};

class PageDrawing : public GuiTest {
 protected:
  PageDrawing() {
    AddText(u"gui.txt", u"name s.txt");
    base::SceneData scene;
    base::AddBox(scene, u"backdrop", -1, {0, 0, -50}, {100, 80, 1});
    AddButton(scene, u"ok", {});
    page = OpenScene(std::move(scene));
    Frame();
  }

  // The distances of the meshes of the last frame.
  std::string Drawn() {
    std::ostringstream drawn;
    for (const base::DrawItem& item : engine.render.frame.items) {
      if (item.kind == base::DrawKind::Lines3D) drawn << "lines ";
      if (item.kind == base::DrawKind::Mesh) drawn << item.distance << ' ';
    }
    return drawn.str();
  }

  ICGUIPageObject* page = nullptr;
  std::string journal;
  Client a{journal, 'a'};
  Client b{journal, 'b'};
  Client c{journal, 'c'};
};

TEST_F(PageDrawing, ShowsTheListedPagesToItsOwnViewport) {
  gui->GetRenderPages() = {0, 0, 7};
  page->items[0]->SetShowBox(1);
  DrawPages();
  EXPECT_EQ(Drawn(), "194.1 lines 144.1 194.1 lines 144.1 ") << "a page that is none, not at all";
  Viewport other(&engine.camera);
  engine.Draw([&] { Send(message::kRender, 0, &other); });
  EXPECT_EQ(Drawn(), "");
}

TEST_F(PageDrawing, ShowsTheSceneThatAPictureCarriesWhileItIsShown) {
  base::SceneData album;
  base::AddBox(album, u"~pframe", -1, {}, {10, 10, 1});
  ICGUIObject& picture = *OpenScene(std::move(album), {}, u"album")->items[0];
  picture.subScene = page->instance;
  for (const std::size_t shown : {5U, 0U}) {
    picture.SetVisible(shown == 0 ? 0 : 1);
    Frame();
    DrawPages();
    EXPECT_EQ(engine.render.frame.items.size(), shown);
  }
}

TEST_F(PageDrawing, CallsClientsOnceWhicheverComeAndGo) {
  Client late(journal, 'l');
  for (Client* client : {&a, &b, &c}) page->RegisterRenderObject(client);
  b.onDraw = [&] {
    page->UnregisterRenderObject(&a);
    page->UnregisterRenderObject(&b);
    page->RegisterRenderObject(&late);
  };
  DrawPages();
  DrawPages();
  EXPECT_EQ(std::exchange(journal, {}), "abccl");
  page->UnregisterRenderObject(&a);
  EXPECT_EQ(engine.errors, Words{u"not unregistered object from render gui client"});
  c.onDetach = [&] {
    EXPECT_EQ(page->renderClients.size(), 2U) << "forgotten when all have been told";
    page->UnregisterRenderObject(&late);
    page->RegisterRenderObject(&c);
    page->LoadPage(u"s.txt", 0);
    page->Unload();
  };
  page->Unload();
  page->Unload();
  EXPECT_EQ(journal, "C");
  EXPECT_TRUE(page->renderClients.empty());
}

TEST_F(PageDrawing, LetsAClientReleaseAndLoadTheGui) {
  const auto release = [this] { gui->Release(); };
  const auto reload = [this] {
    module.Export<DeactivateDllFunction>(kDeactivateDll)();
    gui->Release();
    gui->Load(u"gui.txt", &engine.camera);
  };
  const auto unload = [this] { gui->GetPage(0)->Unload(); };
  for (int round = 0; round < 3; ++round) {
    a.onDraw = round == 0 ? std::function<void()>(release) : nullptr;
    a.onDetach = reload;
    for (Client* client : {&a, &b}) gui->GetPage(0)->RegisterRenderObject(client);
    round == 0 ? DrawPages() : round == 1 ? release() : unload();
    EXPECT_EQ(std::exchange(journal, {}), round == 0 ? "abAB" : "AB");
    EXPECT_EQ(std::exchange(engine.errors, {}), Words{u"Gui is busy: not deactivated"});
    gui->SetViewport(&engine.viewport);
    ShowOnly(0);
    Frame();
    EXPECT_TRUE(IsDrawn(u"normal_ok"));
  }
}

TEST_F(PageDrawing, UnloadsAlthoughAClientThrows) {
  a.onDetach = [] { throw std::runtime_error("no"); };
  page->RegisterRenderObject(&a);
  EXPECT_THROW(page->Unload(), std::runtime_error);
  EXPECT_EQ(page->scene, nullptr);
  EXPECT_NE(page->LoadPage(u"s.txt", 0), nullptr);
}

}  // namespace
}  // namespace qen::test
