#include "pages/page.h"

#include <algorithm>
#include <array>

#include "definitions/definition_file.h"
#include "definitions/definition_text.h"
#include "definitions/page_reader.h"
#include "definitions/page_writer.h"
#include "engine/aabb.h"
#include "engine/anim_ctrl.h"
#include "engine/gui.h"
#include "engine/gui_object.h"
#include "engine/light.h"
#include "engine/matrix.h"
#include "engine/output.h"
#include "engine/pick_result.h"
#include "engine/ray.h"
#include "engine/render_client.h"
#include "engine/scene_manager.h"
#include "engine/system.h"
#include "formats/backup.h"
#include "pages/page_renderer.h"
#include "widgets/button.h"
#include "widgets/check_button.h"
#include "widgets/list.h"
#include "widgets/picture.h"
#include "widgets/slide_bar.h"
#include "widgets/text.h"

namespace qen {
namespace {

constexpr float kRayLength = 1000.0F;
constexpr std::int32_t kSceneLine = 371;  // of this class in the engine's log

template <class Widget>
std::unique_ptr<ICGUIObject> Make(const IChildNodes& nodes) {
  return std::make_unique<Widget>(nodes);
}

struct WidgetKind {
  std::uint32_t letter;
  std::unique_ptr<ICGUIObject> (*make)(const IChildNodes& nodes);
};

constexpr std::array<WidgetKind, 6> kWidgetKinds{{
    {widget_type::kButton, Make<CGUIButton>},
    {widget_type::kCheckButton, Make<CGUICheckButton>},
    {widget_type::kList, Make<CGUIList>},
    {widget_type::kPicture, Make<CGUIPicture>},
    {widget_type::kSlideBar, Make<CGUISlideBar>},
    {widget_type::kText, Make<CGUIText>},
}};

}  // namespace

CGUIPage::CGUIPage() : PageBase("CGUIPage", kSceneLine) {}

CGUIPage::~CGUIPage() = default;

SimpleScene* CGUIPage::LoadPage(const Char* file, std::uint32_t newKind) {
  if (unloading_) return nullptr;
  Unload();
  ResetForLoading(file, newKind);
  light_.reset();
  sounds_.GiveBack();
  bool tooShort = false;
  const std::optional<String> text = LoadMarkedDefinitionText(fileName.c_str(), tooShort);
  if (!text) return nullptr;
  const bool header = ReadPageHeader(*text, PageFormat::Page, *this);
  const bool itemBlocks = ReadPageItems(*text, *this);
  return header && itemBlocks ? scene : nullptr;
}

void CGUIPage::SceneLoaded() {
  light_ = std::make_unique<Light>();
  light_->type = Light::kDirectional;
  light_->direction = {0.0F, 0.0F, 1.0F};
  light_->direction.Normalize();
  light_->color = {1.0F, 1.0F, 1.0F};
  light_->changed = true;
  lights_.assign(1, light_.get());
  System::sceneMng->AddLight(SceneName(), light_.get(), {});
}

void CGUIPage::InstanceCreated() {
  if (instance->animCtrl != nullptr) instance->animCtrl->animations.clear();
}

std::unique_ptr<ICGUIObject> CGUIPage::MakeWidget(Char letter) {
  const auto* found = std::find_if(kWidgetKinds.begin(), kWidgetKinds.end(),
                                   [letter](const WidgetKind& candidate) { return candidate.letter == letter; });
  return found != kWidgetKinds.end() ? found->make(Nodes()) : nullptr;
}

void CGUIPage::WidgetCreated(ICGUIObject& widget) { widget.GetId() = NextObjectId(); }

PickResult* CGUIPage::Pick(Viewport* viewport, std::uint32_t x, std::uint32_t y, std::uint32_t buttonA,
                           std::uint32_t buttonB, Char key) {
  if (viewport != nullptr) ray_ = BuildPickLine(*viewport, x, y).value_or(ray_);
  const Ray ray{ray_.origin, ray_.direction, kRayLength};
  const std::uint32_t mouse = std::max(buttonA, buttonB);
  PickResult* first = nullptr;
  for (ICGUIObject* widget : items) {
    widget->info->mouseState = mouse;
    widget->info->key = key;
    PickResult* result = widget->Update(ray);
    if (first == nullptr) first = result;
  }
  if (first != nullptr && first->hovered != nullptr) focusIndex = first->hovered->GetId();
  return first;
}

void CGUIPage::Render(Viewport* viewport) {
  if (viewport == nullptr) return;
  PageRenderer(*this, *viewport, WidgetDrawing::AsFlagged, lights_).Draw();
  clients_.ForEach(&RenderClient::Draw);
}

bool CGUIPage::Save(const Char* file) {
  const String path = ResolvePath(file != nullptr ? file : u"");
  formats::MakeBackup(path);
  const PageSoundFiles sounds{sounds_.FileName(sound_kind::kMouse), sounds_.FileName(sound_kind::kClick),
                              sounds_.FileName(sound_kind::kAnimIn), sounds_.FileName(sound_kind::kAnimOut)};
  if (WriteDefinitionFile(path, WritePage(*this, sounds))) return true;
  if (System::output != nullptr) System::output->PrintError(u"Can't save file %s\n", path.c_str());
  return false;
}

void CGUIPage::Unload() {
  if (scene == nullptr || unloading_) return;
  unloading_ = true;
  ReleaseWidgets();
  ReleaseAnimations();
  // Also when a client throws.
  struct Ending {
    CGUIPage& page;
    ~Ending() { page.FinishUnloading(); }
  };
  const Ending ending{*this};
  clients_.ForEach(&RenderClient::Detach);
}

void CGUIPage::FinishUnloading() {
  clients_.Clear();
  lights_.clear();
  light_.reset();
  DestroySceneEntries();
  DeleteScene();
  sounds_.Release();
  unloading_ = false;
}

ICGUIObject* CGUIPage::Focused() const {
  const auto index = static_cast<std::size_t>(focusIndex);
  return focusIndex >= 0 && index < items.size() ? items[index] : nullptr;
}

// An item block may have given the hovered widget any id, so the focus can lie outside the list.
bool CGUIPage::StepFocus(std::int32_t step) {
  const auto count = static_cast<std::int64_t>(items.size());
  if (count == 0) return false;
  std::int64_t next = std::int64_t{focusIndex} + step;
  if (next >= count) next -= count;
  if (next < 0) next += count;
  focusIndex = static_cast<std::int32_t>(std::clamp<std::int64_t>(next, 0, count - 1));
  return true;
}

void CGUIPage::PlaceCursorOnFocus(bool mirrored) const {
  const Viewport* viewport = System::gui != nullptr ? System::gui->GetViewport() : nullptr;
  ICGUIObject* widget = Focused();
  if (viewport == nullptr || widget == nullptr) return;
  Matrix4x4 world = Matrix4x4::Identity;
  AABB box;
  widget->GetMatrix(world);
  widget->GetAABB(box);
  const Vec3 place = world.GetTranslation();
  if (mirrored) world.SetTranslation({place.x, place.y, -place.z});
  PlaceCursor(*viewport, world, box.center);
}

bool CGUIPage::FocusNext() {
  if (StepFocus(1)) PlaceCursorOnFocus(true);
  return true;
}

bool CGUIPage::FocusPrev() {
  if (StepFocus(-1)) PlaceCursorOnFocus(false);
  return true;
}

void CGUIPage::SetBagItems(std::vector<IBagEntry*> /*entries*/) {}

IBagEntry* CGUIPage::GetSelectedBagItem() { return nullptr; }

void CGUIPage::PlaySound(const void* object, std::int32_t soundKind) { sounds_.Play(object, soundKind); }

void CGUIPage::RegisterRenderObject(RenderClient* client) { clients_.Add(client); }

void CGUIPage::UnregisterRenderObject(RenderClient* client) {
  if (!clients_.Remove(client) && client != nullptr && System::output != nullptr) {
    System::output->PrintError(u"not unregistered object from render gui %s\n", client->GetName().c_str());
  }
}

}  // namespace qen
