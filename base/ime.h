// The input-method service.
#pragma once

#include "base/backends/window_backend.h"
#include "engine/ime.h"
#include "engine/material.h"

namespace qen {
class Font;
}

namespace qen::base {

struct Context;

class ImeService final : public IIMEQUENRIN {
 public:
  explicit ImeService(Context& engine) : engine_(engine) {}

  void Enable(bool enabled) override;
  void Draw() override;

  // Tells the backend when the state is another than at the end of the last frame.
  void Settle();

 private:
  [[nodiscard]] Point Place(Point size) const;

  Context& engine_;
  Font* font_ = nullptr;  // the font manager's; made when first needed
  MaterialParams plate_;
  bool wanted_ = false;
  bool settled_ = false;
};

}  // namespace qen::base
