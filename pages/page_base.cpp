#include "pages/page_base.h"

#include <algorithm>

#include "engine/anim_ctrl.h"
#include "engine/gui_object.h"
#include "engine/output.h"
#include "engine/scene.h"
#include "engine/scene_instance.h"
#include "engine/scene_manager.h"
#include "engine/string_converter.h"
#include "engine/system.h"
#include "widgets/anim.h"

namespace qen {
namespace {

constexpr Char kWidgetMark = u'~';
constexpr std::size_t kFirstWidgets = 16;  // room for so many from the start

StringView Text(const Char* text) { return text != nullptr ? StringView(text) : StringView(); }

}  // namespace

PageBase::PageBase(const char* owner, std::int32_t line) : owner_(owner), line_(line) {}

PageBase::~PageBase() {
  ReleaseWidgets();
  ReleaseAnimations();
  names_.Forget(*this);
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
  for (std::size_t i = 0; i < count; ++i) {
    const String& nodeName = nodes[i]->name;
    if (!nodeName.empty() && nodeName.front() == kWidgetMark) CreateWidget(nodeName);
  }
  IndexWidgets();
}

void PageBase::CreateWidget(const String& nodeName) {
  const Char letter = nodeName.size() > 1 ? nodeName[1] : u'\0';
  std::unique_ptr<ICGUIObject> widget = MakeWidget(letter);
  if (!widget) return;
  auto info = std::make_unique<ItemInfo>();
  info->name = ttolowercase(nodeName);
  info->type = letter;
  info->visible = 1;
  if (items.capacity() < kFirstWidgets) items.reserve(kFirstWidgets);
  TMNode* node = scene->FindMapNode(nodeName);
  widget->Create(this, info.get(), &node);
  items.push_back(widget.get());
  WidgetCreated(*widget);
  ownedWidgets_.push_back({std::move(info), std::move(widget)});
}

void PageBase::IndexWidgets() {
  widgetsByName_ = items;
  std::stable_sort(widgetsByName_.begin(), widgetsByName_.end(),
                   [](const ICGUIObject* a, const ICGUIObject* b) { return a->info->name < b->info->name; });
}

std::pair<std::vector<ICGUIObject*>::const_iterator, std::vector<ICGUIObject*>::const_iterator> PageBase::WidgetsNamed(
    StringView wanted) const {
  const auto first = std::lower_bound(widgetsByName_.begin(), widgetsByName_.end(), wanted,
                                      [](const ICGUIObject* widget, StringView n) { return widget->info->name < n; });
  auto last = first;
  while (last != widgetsByName_.end() && (*last)->info->name == wanted) ++last;
  return {first, last};
}

ICGUIObject* PageBase::FindWidget(const String& wanted) {
  const auto [first, last] = WidgetsNamed(wanted);
  return first != last ? *first : nullptr;
}

void PageBase::AppendWidgets(StringView wanted, std::vector<ICGUIObject*>& found) const {
  const auto [first, last] = WidgetsNamed(wanted);
  found.insert(found.end(), first, last);
}

ICGUIObject* PageBase::FindItem(const Char* wanted) {
  const String text(Text(wanted));
  ICGUIObject* found = FindWidget(text);
  if (found == nullptr && System::output != nullptr) {
    System::output->PrintError(u"Gui object not found %s\n", text.c_str());
  }
  return found;
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
  return nodeIndex_.NodePosition(node) >= 0 ? node : nullptr;
}

Matrix4x4* PageBase::FindNodeMatrix(const Char* wanted) {
  const std::int32_t position = nodeIndex_.NodePosition(FindNode(wanted));
  if (position < 0 || instance == nullptr) return nullptr;
  const auto index = static_cast<std::size_t>(position);
  return index < instance->nodeMatrices.size() ? &instance->nodeMatrices[index] : nullptr;
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
  for (OwnedWidget& owned : ownedWidgets_) owned.widget->Release();
  items.clear();
  widgetsByName_.clear();
  ownedWidgets_.clear();
}

void PageBase::ReleaseAnimations() {
  anims.clear();
  ownedAnims_.clear();
}

void PageBase::DestroySceneEntries() {
  if (System::sceneMng != nullptr) {
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
