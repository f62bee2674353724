// Runs the program as people do.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "base/backends/image.h"
#include "tests/temporary_folder.h"

namespace qen::host {

std::string MakeEmptyScene();  // a page with a button that cannot be seen

// A page of these nodes, written in JSON. Their mesh 0 is a red square of 60 units.
std::string MakeSquares(const std::string& nodes);

// In the temporary folder is a GUI: a page "first" with a red square in the middle, which is a button, and an empty
// page "second".
class GuihostTest : public ::testing::Test {
 protected:
  GuihostTest();

  // Runs the program in the temporary folder without a display. Its exit status; `out` and `err` are what it printed.
  int Run(const std::string& arguments);

  std::optional<base::Image> Picture(const std::string& name);

  TemporaryFolder folder;
  std::string out;
  std::string err;
};

}  // namespace qen::host
