// The entry points of the GUI module, for hosts that load it at run time. Plain C names, no arguments.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen {

class IGui;

inline constexpr std::uint32_t kGuiInterfaceType = 9;

inline constexpr const char* kActivateDll = "ActivateDll";
inline constexpr const char* kDeactivateDll = "DeactivateDll";
inline constexpr const char* kQueryInterfaceType = "QueryInterfaceType";
inline constexpr const char* kQueryDescriptionString = "QueryDescriptionString";

using ActivateDllFunction = IGui* (*)();  // null when out of memory
using DeactivateDllFunction = void (*)();
using QueryInterfaceTypeFunction = std::uint32_t (*)();  // kGuiInterfaceType
using QueryDescriptionStringFunction = const Char* (*)();

}  // namespace qen
