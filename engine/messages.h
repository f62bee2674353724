// Ids and parameters of the messages that the GUI understands or sends.
#pragma once

#include <cstdint>

namespace qen::message {

inline constexpr std::uint32_t kMouseMove = 0x200;   // second: packed position, unused
inline constexpr std::uint32_t kButtonDown = 0x201;  // first: button, kMainButton or another
inline constexpr std::uint32_t kButtonUp = 0x202;    // first: button
inline constexpr std::uint32_t kWheel = 0x204;       // first: signed 16-bit amount, positive towards the user
inline constexpr std::uint32_t kDeliverQueue = 0x1019;
inline constexpr std::uint32_t kFrame = 0x1020;
inline constexpr std::uint32_t kRender = 0x1031;        // second: Viewport*
inline constexpr std::uint32_t kCommand = 0x8002;       // second: GuiMessage*, the receiver may mark it handled
inline constexpr std::uint32_t kKey = 0x8003;           // first: 16-bit key or character code
inline constexpr std::uint32_t kNotification = 0x8004;  // second: GuiMessage*, delivered once

inline constexpr std::uint32_t kMainButton = 1;  // of the mouse

}  // namespace qen::message

namespace qen::category {

inline constexpr std::uint32_t kGui = 0x280;
inline constexpr std::uint32_t kAll = 0xFFFFFFFF;

}  // namespace qen::category
