// The program from its arguments to its end.
#pragma once

namespace qen::host {

// The program's exit status: 0; 1 when tests failed, a check found errors, or, with a line on standard error, it could
// not do what it is asked for; 2 when that was a check.
int Run(int argc, const char* const* argv);

}  // namespace qen::host
