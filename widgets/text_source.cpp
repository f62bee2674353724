#include "widgets/text_source.h"

namespace qen {
namespace {

const ITextSource* current = nullptr;

}  // namespace

void SetTextSource(const ITextSource* source) { current = source; }

const String& Words(std::int32_t id) {
  static const String none;
  return current != nullptr ? current->Words(id) : none;
}

}  // namespace qen
