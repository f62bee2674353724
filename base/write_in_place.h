// Writing into a file that cannot be replaced, because its folder may not be written.
#pragma once

#include <filesystem>
#include <span>

namespace qen::base {

// Makes these bytes the file's content. False when that fails; what was there is put back then, as far as can be.
bool WriteInPlace(const std::filesystem::path& path, std::span<const char> bytes);

}  // namespace qen::base
