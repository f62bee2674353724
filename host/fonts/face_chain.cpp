#include "host/fonts/face_chain.h"

#include <algorithm>

#include "host/fonts/text_units.h"

namespace qen::host {

FaceChain::FaceChain(std::vector<CatalogFace> faces, FaceLibrary& library) : library_(library) {
  for (CatalogFace& face : faces) {
    const Synthesis synthesis{face.needsBold, face.needsOblique};
    links_.push_back({std::move(face), nullptr, synthesis});
  }
  // The first one is measured; the others are opened when a character needs them.
  while (!links_.empty() && !Open(links_.front())) links_.erase(links_.begin());
}

bool FaceChain::Open(Link& link) {
  if (link.file == nullptr) link.file = library_.Open(link.face.file, link.face.index);
  return link.file != nullptr;
}

bool FaceChain::HasAll(const Link& link, std::span<const std::uint32_t> letter) const {
  return std::ranges::all_of(letter, [&link](std::uint32_t code) { return IsInvisible(code) || link.face.Has(code); });
}

std::uint32_t FaceChain::FaceFor(std::span<const std::uint32_t> letter, std::uint32_t previous) {
  if (IsInvisible(letter.front())) return previous;
  for (const std::span<const std::uint32_t> wanted : {letter, letter.first(1)}) {
    for (std::uint32_t i = 0; i < links_.size(); ++i) {
      if (HasAll(links_[i], wanted) && Open(links_[i])) return i;
    }
  }
  return 0;
}

bool FaceChain::Has(std::uint32_t code) const {
  return std::ranges::any_of(links_, [&](const Link& link) { return HasAll(link, {&code, 1}); });
}

void FaceChain::Assign(std::span<const std::uint32_t> codes, std::vector<std::uint32_t>& faces) {
  faces.resize(codes.size());
  std::uint32_t previous = 0;
  for (std::size_t i = 0; i < codes.size();) {
    std::size_t end = i + 1;
    while (end < codes.size() && IsExtension(codes[end])) ++end;
    previous = FaceFor(codes.subspan(i, end - i), previous);
    for (; i < end; ++i) faces[i] = previous;
  }
}

}  // namespace qen::host
