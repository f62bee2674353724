// Saving pages in their definition format.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "engine/gui.h"

namespace qen::host {

// Both throw std::runtime_error, naming the file, when the page cannot be saved; what was there is then still there.
// They give a line for people that names the file and the backup of what was there before.
std::string SavePageAs(IGui& gui, std::uint32_t page, const std::filesystem::path& file);
std::string SavePageInPlace(IGui& gui, std::uint32_t page);  // over its own definition, below the base path

}  // namespace qen::host
