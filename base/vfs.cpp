#include "base/vfs.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "base/record.h"
#include "base/utf.h"
#include "formats/definition_syntax.h"

namespace qen::base {
namespace {

std::string_view AsText(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

String DecodeText(std::span<const std::uint8_t> bytes) {
  if (!formats::IsReadAsUtf16(bytes)) return ToUtf16(AsText(bytes));
  String text(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) {
    text[i] = static_cast<Char>(bytes[2 * i] | (bytes[2 * i + 1] << 8));
  }
  return text;
}

bool FileService::ReadFile(const Char* name, Char*& buffer, std::uint32_t& size) {
  Record("IVFS::ReadFile", name);
  if (name == nullptr || *name == u'\0') return false;
  std::vector<std::uint8_t> bytes;
  if (files_ == nullptr || !files_->Read(name, bytes)) {
    log_.ReportMissing(u"file", name);
    return false;
  }
  if (const auto wrong = formats::IsReadAsUtf16(bytes) ? std::nullopt : FindWrongByte(AsText(bytes))) {
    log_.ReportWrongByte(name, *wrong);
  }
  const String text = DecodeText(bytes);
  if (text.size() > std::numeric_limits<std::uint32_t>::max() / sizeof(Char)) return false;
  buffer = new Char[text.size() + 1];
  *std::ranges::copy(text, buffer).out = u'\0';
  size = static_cast<std::uint32_t>(text.size() * sizeof(Char));
  return true;
}

}  // namespace qen::base
