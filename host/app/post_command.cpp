#include "host/app/post_command.h"

#include <memory>
#include <stdexcept>
#include <utility>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/item_info.h"
#include "engine/ray.h"
#include "host/app/pages.h"
#include "host/app/widget_place.h"

namespace qen::host {
namespace {

// From the middle of the button's box, which it meets wherever the button stands.
Ray RayInto(ICGUIObject& button) {
  const HitBox box = *FindHitBox(button);
  const Vec3& center = box.local.center;
  const Vec4 start = Vec4{center.x, center.y, center.z, 1.0F} * box.world;
  return {{start.x, start.y, start.z}, {0.0F, 0.0F, 1.0F}, 1.0F};
}

}  // namespace

// The GUI has no door for this, so a button lends itself: for one update it carries this command alone, is clicked, and
// makes no sound.
void PostCommand(IGui& gui, const String& text) {
  ICGUIObject* button = FindFirstWidget(gui, ActiveThenAll(gui), [](ICGUIObject& widget) {
    return widget.info->type == widget_type::kButton && FindHitBox(widget);
  });
  if (button == nullptr) throw std::runtime_error("no button can carry the command " + base::ToUtf8(text));
  ItemInfo& info = *button->info;
  const auto silently = [](std::int32_t& sound) { return std::exchange(sound, sound_kind::kNone); };
  const std::int32_t hoverSound = silently(button->hoverSound);
  const std::int32_t clickSound = silently(button->clickSound);
  const auto visible = std::exchange(info.visible, 1);
  const auto disabled = std::exchange(info.disabled, 0);
  const auto mouseState = std::exchange(info.mouseState, mouse_state::kReleased);
  auto messages = std::exchange(info.messages, {});
  info.messages.push_back(std::make_unique<GuiMessage>());
  info.messages.back()->text = text;
  info.messages.back()->source = button;

  button->Update(RayInto(*button));

  info.messages = std::move(messages);
  info.mouseState = mouseState;
  info.disabled = disabled;
  info.visible = visible;
  button->clickSound = clickSound;
  button->hoverSound = hoverSound;
}

}  // namespace qen::host
