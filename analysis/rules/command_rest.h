// Commands that a blank cuts in two: `setpage: options.glb`.
#pragma once

#include "analysis/source.h"

namespace qen::analysis {

// The word behind a command, on its line, that nobody reads and that belongs to it most likely; none when the command
// is whole.
std::size_t RestOfCommand(const Source& source, const formats::Statement& command);

// Whether the word is that of a command before it, so that it is told of there.
bool IsRestOfCommand(const Source& source, const formats::Stray& stray);

}  // namespace qen::analysis
