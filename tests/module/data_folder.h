// A folder of its own that the GUI writes to.
#pragma once

#include <algorithm>

#include "engine/system.h"
#include "tests/module/gui_fixture.h"
#include "tests/temporary_folder.h"

namespace qen::test {

inline std::string BytesOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// A text as it must stand in a file: marked UTF-16LE with three zero bytes at the end.
inline std::string Encoded(StringView text) {
  std::string bytes = "\xFF\xFE";
  for (const Char unit : text) bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
  return bytes + std::string(3, '\0');
}

// The text up to those.
inline String Decoded(const std::string& bytes) {
  String units;
  for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
    units += static_cast<Char>(static_cast<std::uint8_t>(bytes[i]) | static_cast<std::uint8_t>(bytes[i + 1]) << 8);
  }
  return units.substr(0, units.find(u'\0'));
}

// With lines that people can compare when it is not so.
inline void ExpectText(const std::string& bytes, StringView text) {
  EXPECT_EQ(Narrow(Decoded(bytes)), Narrow(text));
  EXPECT_TRUE(bytes == Encoded(text));
}

// Lines as people write them, with the line ends of definition files.
inline String WithLineEnds(StringView lines) {
  String text;
  for (const Char unit : lines) text += unit == u'\n' ? String(u"\r\n") : String(1, unit);
  return text;
}

// The base path is the folder while one exists.
class DataFolder : public TemporaryFolder {
 public:
  DataFolder() { System::SetBasePath(base::ToUtf16(Path().string())); }
  ~DataFolder() { System::SetBasePath({}); }
};

class SavingTest : public GuiTest {
 protected:
  [[nodiscard]] std::vector<std::string> FilesIn(const std::filesystem::path& place) const {
    std::vector<std::string> names;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(place, none)) {
      const std::u8string name = entry.path().filename().u8string();
      names.emplace_back(name.begin(), name.end());
    }
    std::ranges::sort(names);
    return names;
  }

  DataFolder data;
  const std::filesystem::path& folder = data.Path();
};

}  // namespace qen::test
