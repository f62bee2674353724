#include "pages/page_base.h"

#include <algorithm>
#include <iterator>

#include "engine/anim_ctrl.h"
#include "engine/gui_object.h"
#include "engine/output.h"
#include "engine/scene.h"
#include "engine/scene_instance.h"
#include "engine/scene_manager.h"
#include "engine/string_converter.h"
#include "engine/system.h"
#include "formats/widget_kinds.h"
#include "widgets/anim.h"

namespace qen {
namespace {

StringView Text(const Char* text) { return text != nullptr ? StringView(text) : StringView(); }

// Asks for the present name, which the host may have changed.
auto Named(StringView wanted) {
  return [wanted](const ICGUIObject* widget) { return widget->info->name == wanted; };
}

}  // namespace

PageBase::PageBase(const char* owner, std::int32_t line) : owner_(owner), line_(line) {}

PageBase::~PageBase() {
  ReleaseWidgets();
  ReleaseAnimations();
  names_.Release(*this);
}

void PageBase::ResetForLoading(const Char* file, std::uint32_t newKind) {
  nextObjectId_ = 0;
  focusIndex = 0;
  slotCount = 0;
  kind = newKind;
  fileName = Text(file);
}

bool PageBase::LoadScene(const String& file) {
  if (scene != nullptr) Unload();
  instance = nullptr;
  instanceId = -1;
  name = file;
  names_.Claim(file, *this);
  baseName = names_.BaseName();
  ISceneMng* scenes = System::sceneMng;
  if (scenes == nullptr) return false;
  scenes->RemoveSimpleScene(names_.GuiScene());
  scenes->DestroyScene(names_.Scene());
  if (!scenes->CreateScene(names_.Scene(), true)) return false;
  ownedScene_ = std::make_unique<SimpleScene>(owner_, line_);
  scene = ownedScene_.get();
  if (!scene->Load(name, true)) return false;
  if (!scenes->AddSimpleScene(names_.GuiScene(), scene)) return false;
  SceneLoaded();
  nodeIndex_.Build(*scene);
  return true;
}

bool PageBase::AddAnimation(const String& file) {
  if (!scene->LoadAnimData(file, SimpleScene::kNextAnimation)) return false;
  auto anim = std::make_unique<CGUIAnim>();
  anim->Init(instance, static_cast<std::int32_t>(anims.size()), file);
  anims.push_back(anim.get());
  ownedAnims_.push_back(std::move(anim));
  return true;
}

void PageBase::Build() {
  if (scene == nullptr) return;
  CreateSceneInstance();
  CreateWidgets();
}

void PageBase::CreateSceneInstance() {
  instanceId = System::sceneMng->CreateInstance(names_.Scene(), names_.GuiScene(), Matrix4x4::Identity, {}, {});
  if (instanceId >= 0) {
    float distance = 0.0F;
    InstanceObject* object = System::sceneMng->GetInstance(instanceId);
    if (object != nullptr) object->GetLOD(0, instance, distance);
  }
  if (instance == nullptr) return;
  Disable(true);
  InstanceCreated();
}

void PageBase::CreateWidgets() {
  const std::vector<TMNode*>& nodes = scene->GetNodes();
  const std::size_t count = std::min<std::size_t>(scene->GetNumNodesInRefFile(), nodes.size());
  const auto isWidget = [](const TMNode* node) { return node->name.starts_with(formats::kWidgetMark); };
  const auto end = nodes.begin() + static_cast<std::ptrdiff_t>(count);
  const auto widgets = static_cast<std::size_t>(std::count_if(nodes.begin(), end, isWidget));
  items.reserve(widgets);
  ownedWidgets_.reserve(widgets);
  for (std::size_t i = 0; i < count; ++i) {
    if (isWidget(nodes[i])) CreateWidget(nodes[i]->name);
  }
}

void PageBase::CreateWidget(StringView nodeName) {
  const Char letter = nodeName.size() > 1 ? nodeName[1] : u'\0';
  std::unique_ptr<ICGUIObject> widget = MakeWidget(letter);
  if (!widget) return;
  ItemInfo& info = records_.emplace_back();
  info.name = ttolowercase(nodeName);
  info.type = letter;
  info.visible = 1;
  TMNode* node = scene->FindMapNode(String(nodeName));
  widget->Create(this, &info, &node);
  items.push_back(widget.get());
  WidgetCreated(*widget);
  ownedWidgets_.push_back(std::move(widget));
}

void PageBase::AppendWidgets(StringView wanted, std::vector<ICGUIObject*>& found) const {
  std::copy_if(items.begin(), items.end(), std::back_inserter(found), Named(wanted));
}

ICGUIObject* PageBase::FindItem(const Char* wanted) {
  const String text(Text(wanted));
  const auto found = std::find_if(items.begin(), items.end(), Named(text));
  if (found != items.end()) return *found;
  if (System::output != nullptr) System::output->PrintError(u"Gui object not found %s\n", text.c_str());
  return nullptr;
}

ICGUIAnim* PageBase::PlayAnim(std::int32_t position, bool loop) {
  if (position < 0 || static_cast<std::size_t>(position) >= anims.size()) return nullptr;
  if (ICGUIAnim* playing = GetPlayingAnim()) return playing;
  ICGUIAnim* anim = anims[static_cast<std::size_t>(position)];
  anim->Play(loop);
  return loop ? nullptr : anim;
}

ICGUIAnim* PageBase::GetPlayingAnim() {
  const auto found = std::find_if(anims.begin(), anims.end(), [](ICGUIAnim* anim) { return anim->IsPlaying(); });
  return found != anims.end() ? *found : nullptr;
}

void PageBase::StopAnims() {
  for (ICGUIAnim* anim : anims) anim->Stop();
}

std::int32_t PageBase::NextObjectId() { return static_cast<std::int32_t>(nextObjectId_++); }

TMNode* PageBase::FindNode(const Char* wanted) {
  TMNode* node = scene != nullptr ? scene->FindMapNode(String(Text(wanted))) : nullptr;
  return node != nullptr && node->position < scene->GetNumNodesInRefFile() ? node : nullptr;
}

Matrix4x4* PageBase::FindNodeMatrix(const Char* wanted) {
  const TMNode* node = FindNode(wanted);
  if (node == nullptr || instance == nullptr) return nullptr;
  return node->position < instance->nodeMatrices.size() ? &instance->nodeMatrices[node->position] : nullptr;
}

void PageBase::Disable(bool disabled) {
  if (System::sceneMng == nullptr) return;
  System::sceneMng->DisableScene(names_.Scene(), disabled);
  if (InstanceObject* object = System::sceneMng->GetInstance(instanceId)) object->Disable(disabled);
}

void PageBase::LoseScene() {
  instance = nullptr;
  instanceId = -1;
}

void PageBase::ReleaseWidgets() {
  for (const std::unique_ptr<ICGUIObject>& widget : ownedWidgets_) widget->Release();
  items.clear();
  ownedWidgets_.clear();
  records_.clear();
}

void PageBase::ReleaseAnimations() {
  anims.clear();
  ownedAnims_.clear();
}

void PageBase::DestroySceneEntries() {
  // What another page has taken over is that page's to destroy.
  if (System::sceneMng != nullptr && !names_.AreAnothers(*this)) {
    System::sceneMng->DestroyInstance(instanceId);
    System::sceneMng->RemoveSimpleScene(names_.GuiScene());
    System::sceneMng->DestroyScene(names_.Scene());
  }
  names_.Release(*this);
  LoseScene();
}

void PageBase::DeleteScene() {
  nodeIndex_.Clear();
  scene = nullptr;
  ownedScene_.reset();
}

}  // namespace qen
