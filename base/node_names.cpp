#include "base/node_names.h"

#include <functional>

namespace qen::base {

void NodeNames::Reserve(std::size_t names, std::size_t characters) {
  characters_.reserve(characters + names);
  const std::size_t slots = names + names / 3 + 1;
  tags_.assign(slots, 0);
  positions_.resize(slots);
}

StringView NodeNames::Keep(StringView name) {
  const std::size_t begin = characters_.size();
  characters_.append(name).push_back(u'\0');
  return StringView(characters_).substr(begin, name.size());
}

void NodeNames::Add(const TMNode& node) {
  const Slot slot = SlotOf(node.name);
  if (tags_[slot.index] != 0) return;
  tags_[slot.index] = slot.tag;
  positions_[slot.index] = node.position;
}

const TMNode* NodeNames::Find(StringView name) const {
  if (tags_.empty()) return nullptr;
  const std::size_t slot = SlotOf(name).index;
  return tags_[slot] == 0 ? nullptr : &nodes_[positions_[slot]];
}

void NodeNames::Clear() {
  characters_ = {};
  tags_ = {};
  positions_ = {};
}

NodeNames::Slot NodeNames::SlotOf(StringView name) const {
  const std::uint64_t hash = std::hash<StringView>{}(name);
  const auto tag = static_cast<std::uint8_t>(hash >> 32U | 0x80U);
  auto index = static_cast<std::size_t>((hash & 0xFFFFFFFFU) * tags_.size() >> 32U);
  while (tags_[index] != 0 && (tags_[index] != tag || nodes_[positions_[index]].name != name)) {
    if (++index == tags_.size()) index = 0;
  }
  return {index, tag};
}

}  // namespace qen::base
