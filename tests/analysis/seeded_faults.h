// Faults of definitions and scenes, each with what must be told of it.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "sound_gui.h"

namespace qen::analysis {

struct SeededFault {
  const char* what;          // for people; with letters, digits and underscores only
  Rule rule;                 // that tells of it, alone
  const char* file;          // where it is told
  const char* at;            // the text that it is told at: its first place, or the place behind "|" (`textid |ten`)
  void (*spoil)(SoundGui&);  // makes it
};

std::span<const SeededFault> ReadingFaults();
std::span<const SeededFault> NameFaults();
std::span<const SeededFault> SceneFaults();
std::span<const SeededFault> CommandAndFileFaults();
std::span<const SeededFault> TextFaults();

}  // namespace qen::analysis
