#include "tests/host/gltf_builder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <sstream>

namespace qen::host {
namespace {

// From the number 5120 on.
constexpr std::array<std::string_view, 7> kTypes{"byte", "ubyte", "short", "ushort", "", "uint", "float"};

void AppendNumber(Bytes& bytes, std::uint32_t value, std::size_t size = 4) {
  for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void AppendChunk(Bytes& file, std::string_view type, const Bytes& content) {
  AppendNumber(file, static_cast<std::uint32_t>(content.size()));
  file.insert(file.end(), type.begin(), type.end());
  file.insert(file.end(), content.begin(), content.end());
}

// The accessor of a text such as "float3 0 0 1", in JSON. Its numbers go to the end of `binary`.
std::string TakeNumbers(const std::string& text, std::size_t view, Bytes& binary) {
  std::istringstream words(text);
  std::string type;
  words >> type;
  const std::size_t end = type.find_first_of("1234");
  const auto kind = static_cast<std::size_t>(std::ranges::find(kTypes, type.substr(0, end)) - kTypes.begin());
  const std::size_t size = std::min<std::size_t>(std::size_t{1} << kind / 2, 4);
  const auto components = static_cast<std::size_t>(type.at(end) - '0');
  std::size_t count = 0;
  for (std::string word; words >> word; ++count) {
    const bool isFloat = kTypes[kind] == "float";
    AppendNumber(binary,
                 isFloat ? std::bit_cast<std::uint32_t>(std::stof(word)) : static_cast<std::uint32_t>(std::stoll(word)),
                 size);
  }
  return R"({"bufferView":)" + std::to_string(view) + R"(,"componentType":)" + std::to_string(5120 + kind) +
         R"(,"count":)" + std::to_string(count / components) + R"(,"type":")" +
         (components == 1 ? "SCALAR" : "VEC" + std::to_string(components)) +
         (type.back() == 'n' ? R"(","normalized":true})" : "\"}");
}

}  // namespace

Bytes ToBytes(std::string_view text) { return {text.begin(), text.end()}; }

Bytes MakeGlb(std::string members) {
  Bytes binary;
  std::string views;
  std::string accessors;
  std::size_t count = 0;
  for (std::size_t start = 0; (start = members.find('<')) != std::string::npos; ++count) {
    const std::size_t end = members.find('>', start);
    const std::size_t offset = binary.size();
    const std::string comma = count == 0 ? "" : ",";
    accessors += comma + TakeNumbers(members.substr(start + 1, end - start - 1), count, binary);
    views += comma + R"({"buffer":0,"byteOffset":)" + std::to_string(offset) + R"(,"byteLength":)" +
             std::to_string(binary.size() - offset) + '}';
    members.replace(start, end - start + 1, std::to_string(count));
  }
  std::string json = R"({"asset":{"version":"2.0"},"buffers":[)" +
                     (count == 0 ? "" : R"({"byteLength":)" + std::to_string(binary.size()) + '}') +
                     R"(],"bufferViews":[)" + views + R"(],"accessors":[)" + accessors + "]," + members + '}';
  json.resize((json.size() + 3) / 4 * 4, ' ');
  binary.resize((binary.size() + 3) / 4 * 4);
  Bytes chunks;
  AppendChunk(chunks, "JSON", ToBytes(json));
  if (!binary.empty()) AppendChunk(chunks, {"BIN\0", 4}, binary);
  Bytes file = ToBytes("glTF");
  AppendNumber(file, 2);
  AppendNumber(file, static_cast<std::uint32_t>(12 + chunks.size()));
  file.insert(file.end(), chunks.begin(), chunks.end());
  return file;
}

}  // namespace qen::host
