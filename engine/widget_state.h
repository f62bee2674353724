// The display states of widgets (ICGUIObject::state).
#pragma once

#include <cstdint>

namespace qen::widget_state {

inline constexpr std::int32_t kHidden = 0;  // also: a text that belongs to no button
inline constexpr std::int32_t kNormal = 1;
inline constexpr std::int32_t kOnMouse = 2;
inline constexpr std::int32_t kEditing = 3;

}  // namespace qen::widget_state
