#include "pages/pick_ray.h"

#include <cmath>

#include "engine/camera.h"
#include "engine/platform.h"
#include "engine/system.h"
#include "engine/viewport.h"

namespace qen {

std::optional<ClientSize> MainClientSize() {
  platform::RECT rect{};
  if (!platform::GetClientRect(System::GetMainWindowHandle(), &rect)) return std::nullopt;
  const ClientSize size{static_cast<float>(rect.right - rect.left), static_cast<float>(rect.bottom - rect.top)};
  if (size.width <= 0.0F || size.height <= 0.0F) return std::nullopt;
  return size;
}

std::optional<PickLine> BuildPickLine(const Viewport& viewport, std::uint32_t x, std::uint32_t y) {
  const Camera* camera = viewport.GetCamera();
  const std::optional<ClientSize> size = MainClientSize();
  if (camera == nullptr || !size) return std::nullopt;
  const Matrix4x4& projection = camera->GetProjection();
  const Vec3 v{(2.0F * static_cast<float>(x) / size->width - 1.0F) / projection.m[0][0],
               -((2.0F * static_cast<float>(y) / size->height - 1.0F) / projection.m[1][1]), 1.0F};
  Matrix4x4 toWorld;
  toWorld.SetInverse(Matrix4x4::Identity * camera->GetView());
  const Vec3 origin = toWorld.GetTranslation();
  return PickLine{origin, toWorld * v - origin};
}

void PlaceCursor(const Viewport& viewport, const Matrix4x4& world, const Vec3& point) {
  const Camera* camera = viewport.GetCamera();
  const std::optional<ClientSize> size = MainClientSize();
  if (camera == nullptr || !size) return;
  Vec4 seen = Vec4{point.x, point.y, point.z, 1.0F} * (world * camera->GetView() * camera->GetProjection());
  if (seen.w == 0.0F) return;
  seen = seen / seen.w + Vec4{1.0F, 1.0F, 1.0F, 1.0F};
  const float x = size->width * 0.5F * seen.x;
  const float y = size->height - size->height * 0.5F * seen.y;
  constexpr float kFarthest = 32767.0F;  // no screen is larger, and every system takes it
  if (!(std::fabs(x) < kFarthest && std::fabs(y) < kFarthest)) return;
  platform::POINT cursor{};
  cursor.x = static_cast<decltype(cursor.x)>(x);
  cursor.y = static_cast<decltype(cursor.y)>(y);
  if (platform::ClientToScreen(System::GetMainWindowHandle(), &cursor)) platform::SetCursorPos(cursor.x, cursor.y);
}

}  // namespace qen
