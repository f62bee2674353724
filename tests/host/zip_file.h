// Zip archives for tests.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace qen::host {

// Packs all that is in the folder, under names that begin there.
inline void PackZip(const std::filesystem::path& folder, const std::filesystem::path& archive) {
  const std::string pack = "LC_ALL=C.UTF-8 cmake -E tar cf '" + archive.string() + "' --format=zip *";
  ASSERT_EQ(std::system(("cd '" + folder.string() + "' && " + pack).c_str()), 0);
}

}  // namespace qen::host
