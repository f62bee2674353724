#include "host/app/widget_place.h"

#include "engine/aabb.h"
#include "engine/matrix.h"

namespace qen::host {

std::optional<base::Point> FindPlace(ICGUIObject& widget, const Camera& camera, base::Point clientSize) {
  Matrix4x4 world = Matrix4x4::Identity;
  AABB box;
  widget.GetMatrix(world);
  widget.GetAABB(box);
  if (box.IsEmpty()) return std::nullopt;
  const Vec3& center = box.center;
  const Vec4 projected = Vec4{center.x, center.y, center.z, 1.0F} * (world * camera.GetView() * camera.GetProjection());
  if (projected.w <= 0.0F) return std::nullopt;
  const Vec4 screen = projected / projected.w;
  return base::Point{static_cast<std::int32_t>((0.5F + 0.5F * screen.x) * static_cast<float>(clientSize.x)),
                     static_cast<std::int32_t>((0.5F - 0.5F * screen.y) * static_cast<float>(clientSize.y))};
}

}  // namespace qen::host
