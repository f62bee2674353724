// The program from its arguments to its end.
#pragma once

namespace qen::host {

// False when tests were run and one failed. Throws std::exception, with one line that says why, when it cannot do what
// it is asked for.
bool Run(int argc, const char* const* argv);

}  // namespace qen::host
