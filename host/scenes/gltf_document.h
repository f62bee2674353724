// A glTF 2.0 file, text or binary: its JSON and its buffers.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/backends/file_backend.h"
#include "host/scenes/gltf_json.h"

namespace qen::host {

// A stretch of a buffer.
struct BufferView {
  std::span<const std::uint8_t> bytes;
  std::size_t stride = 0;  // bytes from one element to the next, 0: they follow each other
};

// Whether files that need this extension are read.
bool IsKnownExtension(std::string_view name);

// Everything throws GltfError for what is wrong in the file.
class GltfDocument {
 public:
  // `bytes` must outlive the document. Buffers outside the file are read from `files`, beside `file`.
  GltfDocument(StringView file, std::span<const std::uint8_t> bytes, base::IFileBackend& files);

  ~GltfDocument();
  GltfDocument(const GltfDocument&) = delete;
  GltfDocument& operator=(const GltfDocument&) = delete;

  [[nodiscard]] const Json& Root() const { return *root_; }

  // An element of one of the lists at the root, such as "nodes".
  [[nodiscard]] const Json& Item(const char* list, std::size_t index) const;

  // Which element of a list the member of an object names, -1 when it has no such member.
  [[nodiscard]] std::int32_t Position(const Json& object, const char* key, const char* list) const;

  [[nodiscard]] BufferView View(std::size_t index) const;

  // What a URI stands for: data in itself, or a file beside this one.
  [[nodiscard]] std::vector<std::uint8_t> Fetch(const std::string& uri) const;

 private:
  void ReadContainer(std::span<const std::uint8_t> bytes);
  void CheckVersion() const;
  void ReadBuffers();

  base::IFileBackend& files_;
  String folder_;  // with its separator
  std::unique_ptr<const Json> root_;
  std::span<const std::uint8_t> binary_;            // the binary chunk
  std::vector<std::vector<std::uint8_t>> fetched_;  // buffers from elsewhere
  std::vector<std::span<const std::uint8_t>> buffers_;
};

}  // namespace qen::host
