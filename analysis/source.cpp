#include "analysis/source.h"

#include <utility>

namespace qen::analysis {

Source::Source(String name, formats::FileKind kind, std::vector<std::uint8_t> bytes)
    : name_(std::move(name)), kind_(kind), text_(std::move(bytes)) {
  // What is read as another encoding makes no words.
  if (text_.GetEncoding() != formats::Encoding::Utf16BE) {
    reading_ = formats::ReadDefinition(kind_, text_.Text(), Begin());
  } else {
    reading_.blocks.emplace_back();
  }
}

// One that its reader does not skip would be part of the first word. It is told of, and then passed over.
std::size_t Source::Begin() const { return text_.HasMark() ? 1 : 0; }

StringView Source::ValueOf(const formats::Statement& statement) const {
  return statement.value == formats::kNone ? StringView() : ValueAt(statement.value);
}

std::unique_ptr<Source> OpenSource(base::IFileBackend& files, const String& name, formats::FileKind kind) {
  std::vector<std::uint8_t> bytes;
  if (!files.Read(name, bytes)) return nullptr;
  return std::make_unique<Source>(name, kind, std::move(bytes));
}

}  // namespace qen::analysis
