// Turns a widget's activation into command records.
#pragma once

#include <cstdint>

namespace qen {

class ICGUIObject;

// Completes every command record of the widget (word, argument, value, page) and posts it with the message id, in
// order.
void DispatchItemCommands(std::uint32_t id, ICGUIObject& widget);

}  // namespace qen
