#include "host/scenes/gltf_document.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <string_view>

#include "base/utf.h"
#include "host/scenes/uri.h"

namespace qen::host {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint32_t kMagic = 0x46546C67;  // "glTF"
constexpr std::uint32_t kJsonChunk = 0x4E4F534A;
constexpr std::uint32_t kBinaryChunk = 0x004E4942;
constexpr std::size_t kHeaderSize = 12;
constexpr std::size_t kChunkHeaderSize = 8;

constexpr std::array<std::string_view, 5> kKnownExtensions{"KHR_materials_unlit", "KHR_materials_emissive_strength",
                                                           "KHR_mesh_quantization", "KHR_texture_transform",
                                                           "KHR_lights_punctual"};

std::uint32_t Word(Bytes bytes, std::size_t at) {
  return static_cast<std::uint32_t>(bytes[at]) | static_cast<std::uint32_t>(bytes[at + 1]) << 8U |
         static_cast<std::uint32_t>(bytes[at + 2]) << 16U | static_cast<std::uint32_t>(bytes[at + 3]) << 24U;
}

// Takes the next chunk's content off the front of `rest`.
Bytes TakeChunk(Bytes& rest, std::uint32_t& type) {
  if (rest.size() < kChunkHeaderSize) throw GltfError("the file is cut off");
  const std::size_t length = Word(rest, 0);
  type = Word(rest, 4);
  rest = rest.subspan(kChunkHeaderSize);
  if (length > rest.size()) throw GltfError("the file is cut off");
  const Bytes content = rest.first(length);
  rest = rest.subspan(length);
  return content;
}

std::unique_ptr<const Json> ParseJson(Bytes text) {
  try {
    return std::make_unique<const Json>(Json::parse(text.begin(), text.end()));
  } catch (const Json::exception&) {
    throw GltfError("its JSON is not well-formed");
  }
}

bool IsInside(std::size_t offset, std::size_t length, std::size_t size) {
  return offset <= size && length <= size - offset;
}

}  // namespace

bool IsKnownExtension(std::string_view name) {
  return std::ranges::find(kKnownExtensions, name) != kKnownExtensions.end();
}

GltfDocument::GltfDocument(StringView file, Bytes bytes, base::IFileBackend& files) : files_(files) {
  const std::size_t separator = file.find_last_of(u"/\\");
  if (separator != StringView::npos) folder_ = file.substr(0, separator + 1);
  if (bytes.size() >= sizeof kMagic && Word(bytes, 0) == kMagic) {
    ReadContainer(bytes);
  } else {
    root_ = ParseJson(bytes);
  }
  CheckVersion();
  ReadBuffers();
}

GltfDocument::~GltfDocument() = default;

void GltfDocument::ReadContainer(Bytes bytes) {
  constexpr std::uint32_t kVersion = 2;
  if (bytes.size() < kHeaderSize || Word(bytes, 8) > bytes.size()) throw GltfError("the file is cut off");
  if (Word(bytes, 4) != kVersion || Word(bytes, 8) < kHeaderSize) throw GltfError("not a binary glTF 2.0 file");
  Bytes rest = bytes.first(Word(bytes, 8)).subspan(kHeaderSize);
  std::uint32_t type = 0;
  const Bytes text = TakeChunk(rest, type);
  if (type != kJsonChunk) throw GltfError("its first chunk is no JSON");
  root_ = ParseJson(text);
  while (!rest.empty() && type != kBinaryChunk) {
    const Bytes content = TakeChunk(rest, type);
    if (type == kBinaryChunk) binary_ = content;
  }
}

void GltfDocument::CheckVersion() const {
  const Json* asset = Member(*root_, "asset");
  if (asset == nullptr || !Text(*asset, "version", "").starts_with("2.")) throw GltfError("not a glTF 2.0 file");
  for (const Json& name : Elements(*root_, "extensionsRequired")) {
    if (!name.is_string()) throw GltfError("\"extensionsRequired\" has a wrong value");
    const auto& extension = name.get_ref<const std::string&>();
    if (!IsKnownExtension(extension)) throw GltfError("it requires the extension " + extension);
  }
}

void GltfDocument::ReadBuffers() {
  const Json& buffers = Elements(*root_, "buffers");
  fetched_.reserve(buffers.size());  // the spans point into it
  for (const Json& buffer : buffers) {
    const std::string uri = Text(buffer, "uri", "");
    const Bytes bytes = uri.empty() ? binary_ : Bytes(fetched_.emplace_back(Fetch(uri)));
    const std::size_t length = RequiredIndex(buffer, "byteLength");
    if (length > bytes.size()) throw GltfError("a buffer is shorter than it should be");
    buffers_.push_back(bytes.first(length));
  }
}

const Json& GltfDocument::Item(const char* list, std::size_t index) const {
  const Json& items = Elements(*root_, list);
  if (index >= items.size()) throw GltfError("there is no element " + std::to_string(index) + " of \"" + list + '"');
  return items[index];
}

std::int32_t GltfDocument::Position(const Json& object, const char* key, const char* list) const {
  const auto index = Index(object, key);
  if (!index) return -1;
  static_cast<void>(Item(list, *index));  // it must exist
  return static_cast<std::int32_t>(*index);
}

BufferView GltfDocument::View(std::size_t index) const {
  const Json& view = Item("bufferViews", index);
  const std::size_t buffer = RequiredIndex(view, "buffer");
  if (buffer >= buffers_.size()) throw GltfError("there is no buffer " + std::to_string(buffer));
  const std::size_t offset = Index(view, "byteOffset").value_or(0);
  const std::size_t length = RequiredIndex(view, "byteLength");
  const Bytes bytes = buffers_[buffer];
  if (!IsInside(offset, length, bytes.size())) throw GltfError("buffer view " + std::to_string(index) + " is too long");
  return {bytes.subspan(offset, length), Index(view, "byteStride").value_or(0)};
}

std::vector<std::uint8_t> GltfDocument::Fetch(const std::string& uri) const {
  if (IsDataUri(uri)) {
    auto data = DecodeDataUri(uri);
    if (!data) throw GltfError("a data URI cannot be decoded");
    return *std::move(data);
  }
  const std::string name = DecodePercent(uri);
  std::vector<std::uint8_t> bytes;
  if (!files_.Read(folder_ + base::ToUtf16(name), bytes)) throw GltfError("cannot read " + name);
  return bytes;
}

}  // namespace qen::host
