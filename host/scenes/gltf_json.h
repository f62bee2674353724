// Properties of glTF's JSON objects, checked. What is missing has its default; what is of the wrong kind or beyond the
// range of its type throws GltfError. Who looks into a Json includes <nlohmann/json.hpp>, which takes long to compile.
#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

namespace qen::host {

using Json = nlohmann::json;

// Why a file is refused, in one line.
class GltfError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The member of that name; null when there is none.
const Json* Member(const Json& object, const char* key);

// The member of the member; null when either is missing. For extensions and nested blocks.
const Json* Member(const Json& object, const char* outer, const char* inner);

// All elements of an array; of an empty one when it is missing.
const Json& Elements(const Json& object, const char* key);

std::optional<std::size_t> Index(const Json& object, const char* key);
std::size_t RequiredIndex(const Json& object, const char* key);
float Number(const Json& object, const char* key, float missing);
bool Flag(const Json& object, const char* key, bool missing);
std::string Text(const Json& object, const char* key, const std::string& missing);

// `target` receives the numbers of an array of exactly its size, or stays as it is.
void ReadNumbers(const Json& object, const char* key, std::span<float> target);

}  // namespace qen::host
