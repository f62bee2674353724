// The program from its arguments to its end.
#pragma once

namespace qen::host {

// Throws std::exception, with one line that says why, when it cannot do what it is asked for.
void Run(int argc, const char* const* argv);

}  // namespace qen::host
