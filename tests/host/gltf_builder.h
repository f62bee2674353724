// Makes glTF files for tests.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qen::host {

using Bytes = std::vector<std::uint8_t>;

Bytes ToBytes(std::string_view text);

// A binary file of these members of its JSON. Numbers stand where their accessor is named: `"POSITION":<float3 0 0 1>`.
// Their types are those of C, "u" in front of unsigned ones and "n" behind normalised ones: <ubyte4n 255 0 0 255>. Each
// accessor has a buffer view of its own, of the same number. A later member replaces an earlier one of its name.
Bytes MakeGlb(std::string members);

}  // namespace qen::host
