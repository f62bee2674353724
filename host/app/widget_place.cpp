#include "host/app/widget_place.h"

#include <algorithm>
#include <limits>

#include "engine/gui_page_object.h"
#include "engine/item_info.h"
#include "engine/mesh.h"
#include "engine/scene.h"
#include "engine/scene_instance.h"
#include "engine/string_converter.h"

namespace qen::host {
namespace {

constexpr float kRayLength = 1000.0F;

Vec3 Transform(const Vec3& point, const Matrix4x4& matrix) {
  const Vec4 moved = Vec4{point.x, point.y, point.z, 1.0F} * matrix;
  return {moved.x, moved.y, moved.z};
}

// The first child whose name begins so, letter case aside; null when there is none.
const TMNode* FindChild(const SimpleScene& scene, const TMNode* parent, StringView beginning) {
  if (parent == nullptr) return nullptr;
  for (const TMNode* node : scene.GetNodes()) {
    if (node->parent == parent->position && ttolowercase(node->name).starts_with(beginning)) return node;
  }
  return nullptr;
}

// The mesh that a slide bar is dragged along.
std::optional<HitBox> FindBar(const ICGUIObject& widget) {
  const ICGUIPageObject* page = widget.GetPage();
  if (page == nullptr || page->scene == nullptr || page->instance == nullptr) return std::nullopt;
  const TMNode* bar = FindChild(*page->scene, widget.node, u"barx");
  if (bar == nullptr) bar = FindChild(*page->scene, widget.node, u"bary");
  const TMNode* shape = FindChild(*page->scene, bar, u"normal");
  if (shape == nullptr || shape->mesh == nullptr) return std::nullopt;
  return HitBox{shape->mesh->GetAABB(), page->instance->nodeMatrices[shape->position]};
}

}  // namespace

std::optional<HitBox> FindHitBox(ICGUIObject& widget) {
  if (widget.info != nullptr && widget.info->type == widget_type::kSlideBar) return FindBar(widget);
  HitBox box{{}, Matrix4x4::Identity};
  widget.GetMatrix(box.world);
  widget.GetAABB(box.local);
  return box.local.IsEmpty() ? std::nullopt : std::optional(box);
}

std::optional<base::Point> Project(const HitBox& box, const Vec3& part, const Camera& camera, base::Point clientSize) {
  const Vec3& half = box.local.halfSize;
  const Vec3 point = box.local.center + Vec3{half.x * part.x, half.y * part.y, half.z * part.z};
  const Vec4 projected =
      Vec4{point.x, point.y, point.z, 1.0F} * (box.world * camera.GetView() * camera.GetProjection());
  if (projected.w <= 0.0F) return std::nullopt;
  const Vec4 screen = projected / projected.w;
  return base::Point{static_cast<std::int32_t>((0.5F + 0.5F * screen.x) * static_cast<float>(clientSize.x)),
                     static_cast<std::int32_t>((0.5F - 0.5F * screen.y) * static_cast<float>(clientSize.y))};
}

std::optional<base::Point> FindPlace(ICGUIObject& widget, const Camera& camera, base::Point clientSize) {
  const auto box = FindHitBox(widget);
  return box ? Project(*box, {}, camera, clientSize) : std::nullopt;
}

std::optional<Rect> FindRectangle(ICGUIObject& widget, const Camera& camera, base::Point clientSize) {
  const auto box = FindHitBox(widget);
  if (!box) return std::nullopt;
  constexpr std::int32_t kFar = std::numeric_limits<std::int16_t>::max();
  base::Point least{kFar, kFar};
  base::Point most{};
  for (unsigned corner = 0; corner < 8; ++corner) {
    const Vec3 part{(corner & 1U) != 0 ? 1.0F : -1.0F, (corner & 2U) != 0 ? 1.0F : -1.0F,
                    (corner & 4U) != 0 ? 1.0F : -1.0F};
    const auto point = Project(*box, part, camera, clientSize);
    if (!point) return std::nullopt;
    least = {std::min(least.x, std::max(point->x, 0)), std::min(least.y, std::max(point->y, 0))};
    most = {std::max(most.x, std::min(point->x, clientSize.x)), std::max(most.y, std::min(point->y, clientSize.y))};
  }
  return Rect{static_cast<std::int16_t>(least.x), static_cast<std::int16_t>(least.y), static_cast<std::int16_t>(most.x),
              static_cast<std::int16_t>(most.y)};
}

Ray RayThrough(base::Point client, const Camera& camera, base::Point clientSize) {
  const auto& projection = camera.GetProjection().m;
  const Vec3 seen{(2.0F * static_cast<float>(client.x) / static_cast<float>(clientSize.x) - 1.0F) / projection[0][0],
                  -(2.0F * static_cast<float>(client.y) / static_cast<float>(clientSize.y) - 1.0F) / projection[1][1],
                  1.0F};
  const Matrix4x4 toWorld = camera.GetView().Inverse();
  const Vec3 eye = Transform({}, toWorld);
  return {eye, Transform(seen, toWorld) - eye, kRayLength};
}

bool Meets(const Ray& ray, const HitBox& box) {
  const Matrix4x4 toLocal = box.world.Inverse();
  const Vec3 origin = Transform(ray.origin, toLocal);
  float distance = 0.0F;
  return box.local.Intersect(origin, Transform(ray.origin + ray.direction, toLocal) - origin, distance);
}

}  // namespace qen::host
