// The numbers that a glTF file keeps in its buffers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/scenes/gltf_document.h"

namespace qen::host {

// Every accessor is checked against its buffer before it is read; GltfError says what is wrong. Sparse accessors and
// those without a buffer view are refused.
class GltfAccessors {
 public:
  explicit GltfAccessors(const GltfDocument& document) : document_(document) {}

  // Components of an element: 1 for SCALAR, 2 to 4 for VEC2 to VEC4.
  [[nodiscard]] std::size_t Components(std::size_t accessor) const;

  // All values in a row. Integers marked as normalised become 0 to 1 or -1 to 1. The accessor must have that many
  // components.
  [[nodiscard]] std::vector<float> Floats(std::size_t accessor, std::size_t components);

  // Unsigned scalars.
  [[nodiscard]] std::vector<std::uint32_t> Indices(std::size_t accessor);

 private:
  struct Layout {
    std::span<const std::uint8_t> bytes;  // from the first element on
    std::size_t stride = 0;
    std::size_t count = 0;
    std::size_t type = 0;  // of a component
    bool normalized = false;
  };

  Layout Locate(std::size_t accessor, std::size_t components);

  const GltfDocument& document_;
  std::size_t spent_ = 0;  // values read so far
};

}  // namespace qen::host
