// The URIs that scene files name other data by.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qen::host {

bool IsDataUri(std::string_view uri);

// The bytes of a base64 data URI; nothing when it is no such thing.
std::optional<std::vector<std::uint8_t>> DecodeDataUri(std::string_view uri);

// Replaces "%20" and the like; what is no such escape stays.
std::string DecodePercent(std::string_view text);

}  // namespace qen::host
