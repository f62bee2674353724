#include "host/scenes/gltf_json.h"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

namespace qen::host {
namespace {

[[noreturn]] void Refuse(const char* key) { throw GltfError('"' + std::string(key) + "\" has a wrong value"); }

float ToFloat(const Json& value, const char* key) {
  if (!value.is_number()) Refuse(key);
  const double number = value.get<double>();
  if (!(std::abs(number) <= std::numeric_limits<float>::max())) Refuse(key);
  return static_cast<float>(number);
}

}  // namespace

const Json* Member(const Json& object, const char* key) {
  if (!object.is_object())
    throw GltfError('"' + std::string(key) + "\" is looked for in something else than an object");
  const auto found = object.find(key);
  return found == object.end() ? nullptr : &*found;
}

const Json* Member(const Json& object, const char* outer, const char* inner) {
  const Json* between = Member(object, outer);
  return between == nullptr ? nullptr : Member(*between, inner);
}

const Json& Elements(const Json& object, const char* key) {
  static const Json kNone = Json::array();
  const Json* list = Member(object, key);
  if (list == nullptr) return kNone;
  if (!list->is_array()) Refuse(key);
  return *list;
}

std::optional<std::size_t> Index(const Json& object, const char* key) {
  const Json* value = Member(object, key);
  if (value == nullptr) return std::nullopt;
  if (!value->is_number_unsigned()) Refuse(key);
  return value->get<std::size_t>();
}

std::size_t RequiredIndex(const Json& object, const char* key) {
  const auto index = Index(object, key);
  if (!index) throw GltfError('"' + std::string(key) + "\" is missing");
  return *index;
}

float Number(const Json& object, const char* key, float missing) {
  const Json* value = Member(object, key);
  return value == nullptr ? missing : ToFloat(*value, key);
}

bool Flag(const Json& object, const char* key, bool missing) {
  const Json* value = Member(object, key);
  if (value == nullptr) return missing;
  if (!value->is_boolean()) Refuse(key);
  return value->get<bool>();
}

std::string Text(const Json& object, const char* key, const std::string& missing) {
  const Json* value = Member(object, key);
  if (value == nullptr) return missing;
  if (!value->is_string()) Refuse(key);
  return value->get<std::string>();
}

void ReadNumbers(const Json& object, const char* key, std::span<float> target) {
  const Json* list = Member(object, key);
  if (list == nullptr) return;
  if (!list->is_array() || list->size() != target.size()) Refuse(key);
  for (std::size_t i = 0; i < target.size(); ++i) target[i] = ToFloat((*list)[i], key);
}

}  // namespace qen::host
