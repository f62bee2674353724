#include "pages/page_renderer.h"

#include "engine/camera.h"
#include "engine/drawing.h"
#include "engine/gui_object.h"
#include "engine/gui_page_object.h"
#include "engine/mesh.h"
#include "engine/node_draw_info.h"
#include "engine/render.h"
#include "engine/scene.h"
#include "engine/system.h"
#include "engine/viewport.h"

namespace qen {
namespace {

constexpr Color kBoxColor(0xFF0000);
constexpr std::uint32_t kInterfacePass = 2;

const NodeDrawInfo* InfoOf(const TMNode& node) { return static_cast<const NodeDrawInfo*>(node.userData); }

bool IsSeen(const TMNode& node) {
  const NodeDrawInfo* info = InfoOf(node);
  return info == nullptr ? node.mesh != nullptr : info->drawn != 0;
}

void DrawBox(const Matrix4x4& world, const AABB& box) {
  Drawing drawing;
  drawing.SetWorldMatrix(world);
  drawing.DrawAABB(box, kBoxColor);
}

}  // namespace

PageRenderer::PageRenderer(const ICGUIPageObject& page, Viewport& viewport, WidgetDrawing drawing,
                           const LightList& lights)
    : page_(page), viewport_(viewport), drawing_(drawing), lights_(lights) {}

void PageRenderer::Draw() {
  const Camera* camera = viewport_.GetCamera();
  if (camera == nullptr || System::render == nullptr) return;
  System::render->SetProjection(camera->GetProjection());
  System::render->SetView(camera->GetView());
  if (page_.scene == nullptr || page_.instance == nullptr) return;
  const std::vector<TMNode*>& nodes = page_.scene->GetNodes();
  // What a widget draws may unload the page: then there is no instance any more.
  for (std::size_t i = 0; page_.instance != nullptr && i < nodes.size(); ++i) {
    if (IsSeen(*nodes[i]) && i < page_.instance->nodeMatrices.size()) DrawNode(*nodes[i], i);
  }
}

void PageRenderer::DrawNode(const TMNode& node, std::size_t position) {
  const NodeDrawInfo* info = InfoOf(node);
  const AABB box = node.mesh != nullptr ? node.mesh->GetAABB() : AABB{};
  const Matrix4x4 world = page_.instance->nodeMatrices[position] * page_.instance->GetTM();
  if (info != nullptr && !DrawWidget(*info, world, box)) return;
  if (page_.instance != nullptr && node.mesh != nullptr) SubmitMesh(*node.mesh, world);
}

// True when the node's mesh is to be drawn as well.
bool PageRenderer::DrawWidget(const NodeDrawInfo& info, const Matrix4x4& world, const AABB& box) {
  ICGUIObject* owner = info.owner;
  const bool byWidget = drawing_ == WidgetDrawing::ByWidget;
  if (!byWidget && owner != nullptr && owner->GetSubScene() != nullptr) {
    owner->GetSubScene()->Render(&viewport_, kInterfacePass, lights_);
  }
  if (info.showBox != nullptr && *info.showBox != 0) DrawBox(world, box);
  const bool instead = byWidget || info.widgetDrawsInstead != 0;
  if (owner != nullptr && (instead || info.widgetDrawsToo != 0)) owner->Render(world, box);
  return !instead;
}

void PageRenderer::SubmitMesh(Mesh& mesh, const Matrix4x4& world) {
  SimpleSceneInstance& instance = *page_.instance;
  if (meshes_ >= instance.drawMatrices.size()) instance.drawMatrices.resize(meshes_ + 1);
  Matrix4x4& slot = instance.drawMatrices[meshes_++];
  slot = world;
  const float distance = viewport_.GetCamera()->plane.DistanceTo(slot * mesh.GetAABB().center);
  for (std::uint32_t i = 0; i < mesh.GetNumSubMeshes(); ++i) {
    if (entries_ >= instance.entries.size()) instance.entries.resize(entries_ + 1);
    RenderEntry& entry = instance.entries[entries_++];
    entry.lights = instance.sceneLights;
    entry.subMesh = mesh.GetSubMesh(i);
    entry.world = &slot;
    entry.count = 1;
    entry.distance = distance;
    System::render->Submit(entry);
  }
}

}  // namespace qen
