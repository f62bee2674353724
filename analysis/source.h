// A definition file, read.
#pragma once

#include <memory>
#include <vector>

#include "base/backends/file_backend.h"
#include "formats/reading.h"
#include "formats/source_text.h"

namespace qen::analysis {

class Source {
 public:
  Source(String name, formats::FileKind kind, std::vector<std::uint8_t> bytes);
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;

  [[nodiscard]] const String& Name() const { return name_; }
  [[nodiscard]] formats::FileKind Kind() const { return kind_; }
  [[nodiscard]] const formats::SourceText& Text() const { return text_; }
  [[nodiscard]] const formats::Reading& Reading() const { return reading_; }

  // Behind a byte-order mark.
  [[nodiscard]] std::size_t Begin() const;

  [[nodiscard]] const formats::Token& TokenAt(std::size_t token) const { return reading_.tokens[token]; }
  [[nodiscard]] StringView ValueAt(std::size_t token) const { return reading_.tokens[token].value; }
  [[nodiscard]] formats::Range16 RangeAt(std::size_t token) const { return reading_.tokens[token].range; }

  // The value of a statement; empty when it has none.
  [[nodiscard]] StringView ValueOf(const formats::Statement& statement) const;

 private:
  String name_;
  formats::FileKind kind_;
  formats::SourceText text_;
  formats::Reading reading_;
};

// Null when it cannot be read.
std::unique_ptr<Source> OpenSource(base::IFileBackend& files, const String& name, formats::FileKind kind);

}  // namespace qen::analysis
