#include "tests/host/gltf_builder.h"

#include <bit>
#include <type_traits>

namespace qen::host {
namespace {

template <class T>
constexpr std::uint32_t kComponentType = 5126;  // of floats
template <>
constexpr std::uint32_t kComponentType<std::uint8_t> = 5121;
template <>
constexpr std::uint32_t kComponentType<std::uint16_t> = 5123;
template <>
constexpr std::uint32_t kComponentType<std::uint32_t> = 5125;

void AppendNumber(Bytes& bytes, std::uint32_t value, std::size_t size = 4) {
  for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void AppendChunk(Bytes& file, std::uint32_t type, const Bytes& content) {
  AppendNumber(file, static_cast<std::uint32_t>(content.size()));
  AppendNumber(file, type);
  file.insert(file.end(), content.begin(), content.end());
}

std::size_t ComponentsOf(std::string_view type) {
  return type == "SCALAR" ? 1 : static_cast<std::size_t>(type.back() - '0');
}

std::string Join(const std::vector<std::string>& elements) {
  std::string list;
  for (const std::string& element : elements) list += (list.empty() ? "" : ",") + element;
  return '[' + list + ']';
}

}  // namespace

Bytes ToBytes(std::string_view text) { return {text.begin(), text.end()}; }

Bytes MakeGlb(std::string json, Bytes binary) {
  constexpr std::uint32_t kJsonChunk = 0x4E4F534A;
  constexpr std::uint32_t kBinaryChunk = 0x004E4942;
  while (json.size() % 4 != 0) json += ' ';
  while (binary.size() % 4 != 0) binary.push_back(0);
  Bytes chunks;
  AppendChunk(chunks, kJsonChunk, ToBytes(json));
  if (!binary.empty()) AppendChunk(chunks, kBinaryChunk, binary);
  Bytes file = ToBytes("glTF");
  AppendNumber(file, 2);
  AppendNumber(file, static_cast<std::uint32_t>(12 + chunks.size()));
  file.insert(file.end(), chunks.begin(), chunks.end());
  return file;
}

Bytes MakePicture() {
  constexpr std::uint32_t kInfoSize = 108;  // of the header's version 4, which has alpha
  constexpr std::uint32_t kPixels = 14 + kInfoSize;
  Bytes bytes = ToBytes("BM");
  for (const std::uint32_t value : {kPixels + 8, 0U, kPixels, kInfoSize, 2U, 1U}) AppendNumber(bytes, value);
  AppendNumber(bytes, 1, 2);
  AppendNumber(bytes, 32, 2);
  AppendNumber(bytes, 3);  // channels by masks
  for (int i = 0; i < 5; ++i) AppendNumber(bytes, 0);
  for (const std::uint32_t mask : {0x00FF0000U, 0x0000FF00U, 0x000000FFU, 0xFF000000U}) AppendNumber(bytes, mask);
  bytes.resize(kPixels);
  AppendNumber(bytes, 0xFFFF0000);
  AppendNumber(bytes, 0x800000FF);
  return bytes;
}

std::size_t GltfBuilder::AddView(const Bytes& content) {
  views_.push_back(R"({"buffer":0,"byteOffset":)" + std::to_string(binary_.size()) + R"(,"byteLength":)" +
                   std::to_string(content.size()) + '}');
  binary_.insert(binary_.end(), content.begin(), content.end());
  return views_.size() - 1;
}

std::string GltfBuilder::Json(const std::string& members, const std::string& uri) const {
  const std::string name = uri.empty() ? "" : R"("uri":")" + uri + R"(",)";
  const std::string buffers = "[{" + name + R"("byteLength":)" + std::to_string(binary_.size()) + "}]";
  return R"({"asset":{"version":"2.0"},"buffers":)" + (binary_.empty() ? "[]" : buffers) + R"(,"bufferViews":)" +
         Join(views_) + R"(,"accessors":)" + Join(accessors_) + (members.empty() ? "" : ",") + members + '}';
}

template <class T>
std::size_t GltfBuilder::Add(const char* type, std::initializer_list<T> values, bool normalized) {
  Bytes content;
  for (const T value : values) {
    if constexpr (std::is_same_v<T, float>) {
      AppendNumber(content, std::bit_cast<std::uint32_t>(value));
    } else {
      AppendNumber(content, value, sizeof(T));
    }
  }
  accessors_.push_back(R"({"bufferView":)" + std::to_string(AddView(content)) + R"(,"componentType":)" +
                       std::to_string(kComponentType<T>) + R"(,"count":)" +
                       std::to_string(values.size() / ComponentsOf(type)) + R"(,"type":")" + type + '"' +
                       (normalized ? R"(,"normalized":true})" : "}"));
  return accessors_.size() - 1;
}

template std::size_t GltfBuilder::Add(const char*, std::initializer_list<float>, bool);
template std::size_t GltfBuilder::Add(const char*, std::initializer_list<std::uint8_t>, bool);
template std::size_t GltfBuilder::Add(const char*, std::initializer_list<std::uint16_t>, bool);
template std::size_t GltfBuilder::Add(const char*, std::initializer_list<std::uint32_t>, bool);

}  // namespace qen::host
