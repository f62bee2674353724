// The face of a font and those that stand in for characters that it lacks.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "host/fonts/face_file.h"
#include "host/fonts/font_catalog.h"
#include "host/fonts/glyph_cache.h"

namespace qen::host {

class FaceChain {
 public:
  // Takes the faces that can be opened; throws nothing, and is empty when none can.
  FaceChain(std::vector<CatalogFace> faces, FaceLibrary& library);

  [[nodiscard]] bool IsEmpty() const { return links_.empty(); }
  [[nodiscard]] const CatalogFace& First() const { return links_.front().face; }
  [[nodiscard]] FaceFile& File(std::uint32_t i) const { return *links_[i].file; }
  [[nodiscard]] Synthesis SynthesisOf(std::uint32_t i) const { return links_[i].synthesis; }

  // Whether one of the faces has it, or it is not seen.
  [[nodiscard]] bool Has(std::uint32_t code) const;

  // For each character the position of the face to take; one for a letter with all its marks where possible.
  void Assign(std::span<const std::uint32_t> codes, std::vector<std::uint32_t>& faces);

 private:
  struct Link {
    CatalogFace face;
    FaceFile* file = nullptr;
    Synthesis synthesis;
  };

  [[nodiscard]] std::uint32_t FaceFor(std::span<const std::uint32_t> letter, std::uint32_t previous);
  [[nodiscard]] bool HasAll(const Link& link, std::span<const std::uint32_t> letter) const;
  bool Open(Link& link);

  FaceLibrary& library_;
  std::vector<Link> links_;
};

}  // namespace qen::host
