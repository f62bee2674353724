// The one door: every message, and the input that is kept between them.
#include "commands/live_objects.h"
#include "commands/message_collector.h"
#include "engine/gui_page_object.h"
#include "engine/ime.h"
#include "engine/item_info.h"
#include "engine/messages.h"
#include "engine/platform.h"
#include "engine/system.h"
#include "module/book_busy.h"
#include "widgets/key_codes.h"

namespace qen {
namespace {

// Kept for the life of the module, like the command queue.
std::uint32_t mainButtonState = mouse_state::kNone;
Char pendingKey = 0;

}  // namespace

std::int32_t CGUIBook::OnMessage(const Msg& message) {
  if (ready_) HandleMessage(message);
  return 0;
}

void CGUIBook::HandleMessage(const Msg& message) {
  switch (message.id) {
    case message::kMouseMove:
      return TakeCursor();
    case message::kButtonDown:
      if (message.first == message::kMainButton) mainButtonState = mouse_state::kHeld;
      return;
    case message::kButtonUp:
      if (message.first == message::kMainButton) mainButtonState = mouse_state::kReleased;
      return;
    case message::kWheel:
      return TakeWheel(static_cast<std::int16_t>(message.first & 0xFFFFU));
    case message::kDeliverQueue:
      return MessageCollector().Deliver();
    case message::kFrame:
      return TakeFrame();
    case message::kRender:
      return TakeRender(reinterpret_cast<const Viewport*>(message.second));
    case message::kCommand:
      if (message.second != 0) CarryOut(*reinterpret_cast<GuiMessage*>(message.second));
      return;
    case message::kKey:
      return TakeKey(static_cast<Char>(message.first & 0xFFFFU));
    default:
      return;
  }
}

void CGUIBook::TakeCursor() {
  hoverTime_ = 0.0;
  platform::POINT cursor{};
  if (!platform::GetCursorPos(&cursor)) return;
  if (!platform::ScreenToClient(System::GetMainWindowHandle(), &cursor)) return;
  SetCursor(cursor.x, cursor.y);
}

void CGUIBook::TakeWheel(std::int16_t amount) {
  if (amount != 0) TakeKey(amount < 0 ? key_code::kUp : key_code::kDown);
  pendingKey = 0;
}

void CGUIBook::TakeKey(Char key) {
  pendingKey = key;
  if (key != 0) Update(mouse_state::kNone, key, mouse_state::kNone);
  pendingKey = 0;
}

void CGUIBook::TakeFrame() {
  Update(mainButtonState, pendingKey, mouse_state::kNone);
  if (mainButtonState == mouse_state::kReleased) mainButtonState = mouse_state::kNone;
  pendingKey = 0;
}

void CGUIBook::TakeRender(const Viewport* viewport) {
  if (viewport != viewport_) return;
  Render(viewport_);
  if (System::ime != nullptr) System::ime->Draw();
}

}  // namespace qen
