// The renderer.
#pragma once

#include "engine/matrix.h"
#include "engine/scene_instance.h"

namespace qen {

class IRender {
 public:
  virtual ~IRender() = default;

  // A new projection begins a new layer: what follows is drawn over everything before, whatever its depth.
  virtual void SetProjection(const Matrix4x4& projection) = 0;
  virtual void SetView(const Matrix4x4& view) = 0;

  // Takes note of a sub-mesh; the entry and what it points to must stay until the frame is drawn. Opaque surfaces hide
  // by depth, transparent ones are blended from far to near by the entry's distance.
  virtual void Submit(const RenderEntry& entry) = 0;
};

}  // namespace qen
