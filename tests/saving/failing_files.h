// File calls that fail, or kill the program, when they are told to.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace qen::test {

enum class Fault {
  Fail,  // as a full or broken disk does: half of what was to be written is
  Kill,  // the process ends on the spot, before the call
};

constexpr int kKilled = 86;  // exit status of a process that was

// The calls that open, read, write, flush, move or remove files or make folders are counted from now on, by the program
// and the libraries it loads, and the call of that number (from 1) is struck. None is with 0.
void StrikeFileCall(std::size_t number, Fault fault);

// Ends the counting and gives the names of the calls.
std::vector<std::string> CountedFileCalls();

// While set, no file or folder can be made, as where a folder may not be written.
void RefuseNewFiles(bool refuse);

}  // namespace qen::test
