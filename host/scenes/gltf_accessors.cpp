#include "host/scenes/gltf_accessors.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <string>

namespace qen::host {
namespace {

// A file may read the same bytes again and again; this bounds the memory that it can take.
constexpr std::size_t kMaxValues = 20'000'000;

enum ComponentType : std::size_t {
  kByte = 5120,
  kUnsignedByte = 5121,
  kShort = 5122,
  kUnsignedShort = 5123,
  kUnsignedInt = 5125,
  kFloat = 5126,
};

std::size_t SizeOf(std::size_t type) {
  switch (type) {
    case kByte:
    case kUnsignedByte:
      return 1;
    case kShort:
    case kUnsignedShort:
      return 2;
    case kUnsignedInt:
    case kFloat:
      return 4;
    default:
      throw GltfError("there is no component type " + std::to_string(type));
  }
}

std::uint32_t ReadUnsigned(const std::uint8_t* at, std::size_t size) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < size; ++i) value |= static_cast<std::uint32_t>(at[i]) << 8U * i;
  return value;
}

float ReadFloat(const std::uint8_t* at) {
  const float value = std::bit_cast<float>(ReadUnsigned(at, 4));
  if (!std::isfinite(value)) throw GltfError("a value is not a number");
  return value;
}

float ReadValue(const std::uint8_t* at, std::size_t type, bool normalized) {
  const std::uint32_t bits = ReadUnsigned(at, SizeOf(type));
  const auto scaled = [normalized](auto value, float largest) {
    const auto number = static_cast<float>(value);
    return normalized ? std::max(number / largest, -1.0F) : number;
  };
  switch (type) {
    case kByte:
      return scaled(static_cast<std::int8_t>(bits), 127.0F);
    case kUnsignedByte:
      return scaled(bits, 255.0F);
    case kShort:
      return scaled(static_cast<std::int16_t>(bits), 32767.0F);
    case kUnsignedShort:
      return scaled(bits, 65535.0F);
    case kFloat:
      return ReadFloat(at);
    default:
      return scaled(bits, 4294967295.0F);
  }
}

}  // namespace

std::size_t GltfAccessors::Components(std::size_t accessor) const {
  const std::string type = Text(document_.Item("accessors", accessor), "type", "");
  if (type == "SCALAR") return 1;
  if (type == "VEC2") return 2;
  if (type == "VEC3") return 3;
  if (type == "VEC4") return 4;
  throw GltfError("accessor " + std::to_string(accessor) + " has elements of an unknown kind");
}

std::vector<float> GltfAccessors::Floats(std::size_t accessor, std::size_t components) {
  const Layout layout = Locate(accessor, components);
  const std::size_t size = SizeOf(layout.type);
  std::vector<float> values;
  values.reserve(layout.count * components);
  for (std::size_t i = 0; i < layout.count; ++i) {
    const std::uint8_t* element = layout.bytes.data() + i * layout.stride;
    for (std::size_t c = 0; c < components; ++c) {
      values.push_back(ReadValue(element + c * size, layout.type, layout.normalized));
    }
  }
  return values;
}

std::vector<std::uint32_t> GltfAccessors::Indices(std::size_t accessor) {
  const Layout layout = Locate(accessor, 1);
  if (layout.type != kUnsignedByte && layout.type != kUnsignedShort && layout.type != kUnsignedInt) {
    throw GltfError("accessor " + std::to_string(accessor) + " has no unsigned integers");
  }
  std::vector<std::uint32_t> values(layout.count);
  for (std::size_t i = 0; i < layout.count; ++i) {
    values[i] = ReadUnsigned(layout.bytes.data() + i * layout.stride, SizeOf(layout.type));
  }
  return values;
}

GltfAccessors::Layout GltfAccessors::Locate(std::size_t accessor, std::size_t components) {
  const std::string name = "accessor " + std::to_string(accessor);
  const Json& json = document_.Item("accessors", accessor);
  if (Member(json, "sparse") != nullptr) throw GltfError(name + " is sparse");
  if (Components(accessor) != components) throw GltfError(name + " has elements of the wrong kind");

  const BufferView view = document_.View(RequiredIndex(json, "bufferView"));
  const std::size_t offset = Index(json, "byteOffset").value_or(0);
  Layout layout{.bytes = {},
                .stride = view.stride,
                .count = RequiredIndex(json, "count"),
                .type = RequiredIndex(json, "componentType"),
                .normalized = Flag(json, "normalized", false)};
  const std::size_t size = SizeOf(layout.type) * components;
  if (layout.stride == 0) layout.stride = size;
  if (layout.stride < size || offset > view.bytes.size()) throw GltfError(name + " does not fit its buffer view");
  layout.bytes = view.bytes.subspan(offset);
  const std::size_t fitting = layout.bytes.size() < size ? 0 : (layout.bytes.size() - size) / layout.stride + 1;
  if (layout.count > fitting) throw GltfError(name + " does not fit its buffer view");
  if (layout.count > (kMaxValues - spent_) / components) throw GltfError("it has too many values");
  spent_ += layout.count * components;
  return layout;
}

}  // namespace qen::host
