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

// A binary file of a JSON text and a binary chunk, none when it is empty, both padded as the format wants it.
Bytes MakeGlb(std::string json, Bytes binary);

// A BMP of 2 x 1 pixels: red, then half transparent blue.
Bytes MakePicture();

// Collects the numbers of a file and describes them. All functions that add return the position of the new accessor.
class GltfBuilder {
 public:
  // Floats, or unsigned integers of 8, 16 or 32 bits.
  template <class T = float>
  std::size_t Add(const char* type, std::initializer_list<T> values, bool normalized = false);

  // A buffer view of its own, without an accessor; its position.
  std::size_t AddView(const Bytes& content);

  // The whole JSON with these members besides, "uri" naming the buffer (none: the binary chunk).
  [[nodiscard]] std::string Json(const std::string& members, const std::string& uri = "") const;
  [[nodiscard]] Bytes Glb(const std::string& members) const { return MakeGlb(Json(members), binary_); }
  [[nodiscard]] const Bytes& Binary() const { return binary_; }

 private:
  Bytes binary_;
  std::vector<std::string> views_;
  std::vector<std::string> accessors_;
};

}  // namespace qen::host
