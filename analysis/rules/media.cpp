#include <algorithm>
#include <unordered_map>

#include "analysis/rules/rule_groups.h"
#include "base/resource_store.h"
#include "base/textures.h"
#include "base/utf.h"

namespace qen::analysis {
namespace {

using formats::Value;

// Looks for each file once.
class MediaCheck {
 public:
  MediaCheck(const Backends& backends, Findings& findings) : backends_(backends), findings_(findings) {}

  void Check(const Source& source) {
    for (const formats::Statement& statement : source.Reading().statements) {
      const Value kind = statement.keyword->value;
      const bool isMedium = kind == Value::Sound || kind == Value::Picture;
      if (!isMedium || statement.state != formats::ValueState::Read) continue;
      const String file(source.ValueOf(statement));
      if (!IsThere(kind, file)) {
        findings_.Add(Rule::MissingMedia, source, statement.value, base::ToUtf8(file) + " cannot be read");
      }
    }
  }

 private:
  bool IsThere(Value kind, const String& file) {
    const auto [place, isNew] = (kind == Value::Sound ? sounds_ : pictures_).try_emplace(base::FileKey(file));
    if (isNew) place->second = kind == Value::Sound ? CanRead(file) : CanReadPicture(file);
    return place->second;
  }

  bool CanRead(const String& file) {
    std::vector<std::uint8_t> bytes;
    return backends_.files.Read(file, bytes);
  }

  bool CanReadPicture(const String& file) {
    return std::ranges::any_of(base::kPictureEndings,
                               [&](StringView ending) { return CanRead(file + String(ending)); });
  }

  const Backends& backends_;
  Findings& findings_;
  std::unordered_map<String, bool> sounds_;
  std::unordered_map<String, bool> pictures_;
};

}  // namespace

void CheckMedia(const Gui& gui, const Backends& backends, Findings& findings) {
  MediaCheck check(backends, findings);
  if (gui.style != nullptr) check.Check(*gui.style);
  for (const Page& page : gui.pages) check.Check(*page.source);
}

}  // namespace qen::analysis
