// A language that shows where longer words would not fit, and which words are in no language table.
#pragma once

#include "engine/types.h"

namespace qen::analysis {

// The text of a language file with accents on its Latin letters and at least 40 % longer. Escapes stay.
String PseudoText(StringView text);

}  // namespace qen::analysis
