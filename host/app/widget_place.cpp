#include "host/app/widget_place.h"

#include <algorithm>
#include <limits>

#include "engine/aabb.h"
#include "engine/matrix.h"

namespace qen::host {

namespace {

// Shows points of a widget's local space on screen.
class Projection {
 public:
  Projection(ICGUIObject& widget, const Camera& camera, base::Point clientSize) : clientSize_(clientSize) {
    Matrix4x4 world = Matrix4x4::Identity;
    widget.GetMatrix(world);
    matrix_ = world * camera.GetView() * camera.GetProjection();
  }

  [[nodiscard]] std::optional<base::Point> operator()(const Vec3& point) const {
    const Vec4 projected = Vec4{point.x, point.y, point.z, 1.0F} * matrix_;
    if (projected.w <= 0.0F) return std::nullopt;
    const Vec4 screen = projected / projected.w;
    return base::Point{static_cast<std::int32_t>((0.5F + 0.5F * screen.x) * static_cast<float>(clientSize_.x)),
                       static_cast<std::int32_t>((0.5F - 0.5F * screen.y) * static_cast<float>(clientSize_.y))};
  }

 private:
  base::Point clientSize_;
  Matrix4x4 matrix_;
};

}  // namespace

std::optional<base::Point> FindPlace(ICGUIObject& widget, const Camera& camera, base::Point clientSize) {
  AABB box;
  widget.GetAABB(box);
  if (box.IsEmpty()) return std::nullopt;
  return Projection(widget, camera, clientSize)(box.center);
}

std::optional<Rect> FindRectangle(ICGUIObject& widget, const Camera& camera, base::Point clientSize) {
  AABB box;
  widget.GetAABB(box);
  if (box.IsEmpty()) return std::nullopt;
  const Projection project(widget, camera, clientSize);
  const Vec3 low = box.getMin();
  const Vec3 high = box.getMax();
  base::Point least{std::numeric_limits<std::int16_t>::max(), std::numeric_limits<std::int16_t>::max()};
  base::Point most{};
  for (unsigned corner = 0; corner < 8; ++corner) {
    const auto point = project({(corner & 1U) != 0 ? high.x : low.x, (corner & 2U) != 0 ? high.y : low.y,
                                (corner & 4U) != 0 ? high.z : low.z});
    if (!point) return std::nullopt;
    least = {std::min(least.x, std::max(point->x, 0)), std::min(least.y, std::max(point->y, 0))};
    most = {std::max(most.x, std::min(point->x, clientSize.x)), std::max(most.y, std::min(point->y, clientSize.y))};
  }
  return Rect{static_cast<std::int16_t>(least.x), static_cast<std::int16_t>(least.y), static_cast<std::int16_t>(most.x),
              static_cast<std::int16_t>(most.y)};
}

}  // namespace qen::host
