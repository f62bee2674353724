// Where widgets get the words of a text id.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen {

class ITextSource {
 public:
  // The words of the id; "N/A" for a negative id or one without words. Valid until the table changes.
  [[nodiscard]] virtual const String& Words(std::int32_t id) const = 0;

 protected:
  ITextSource() = default;
  ~ITextSource() = default;
  ITextSource(const ITextSource&) = default;
  ITextSource& operator=(const ITextSource&) = default;
};

// The module's one source; not owned, must outlive the widgets.
void SetTextSource(const ITextSource* source);
const String& Words(std::int32_t id);

}  // namespace qen
