// Makes glTF files for tests.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace qen::host {

using Bytes = std::vector<std::uint8_t>;

Bytes ToBytes(std::string_view text);
std::string ToBase64(const Bytes& bytes);

// A binary file of a JSON text and a binary chunk, none when it is empty, both padded as the format wants it.
Bytes MakeGlb(std::string json, Bytes binary);

// A BMP of 2 x 1 pixels: red, then half transparent blue.
Bytes MakePicture();

// Collects the numbers of a file and describes them. All functions that add return the position of the new accessor.
class GltfBuilder {
 public:
  std::size_t AddFloats(const char* type, std::initializer_list<float> values);
  std::size_t AddBytes(const char* type, std::initializer_list<std::uint8_t> values, bool normalized = false);
  std::size_t AddShorts(const char* type, std::initializer_list<std::uint16_t> values, bool normalized = false);
  std::size_t AddInts(const char* type, std::initializer_list<std::uint32_t> values);

  // A buffer view of its own, without an accessor; its position.
  std::size_t AddView(const Bytes& content);

  // The whole JSON with these members besides, "uri" naming the buffer (none: the binary chunk).
  [[nodiscard]] std::string Json(const std::string& members, const std::string& uri = "") const;
  [[nodiscard]] Bytes Glb(const std::string& members) const { return MakeGlb(Json(members), binary_); }
  [[nodiscard]] const Bytes& Binary() const { return binary_; }

 private:
  template <class T>
  std::size_t Add(const char* type, std::uint32_t componentType, std::initializer_list<T> values, bool normalized);

  Bytes binary_;
  std::vector<std::string> views_;
  std::vector<std::string> accessors_;
};

}  // namespace qen::host
