// The glyphs of a frame at the graphics card.
#pragma once

#include <vector>

#include "host/render/frame_plan.h"
#include "host/render/gl_objects.h"

namespace qen::host {

// Describes the vertices of the buffer that is bound, for the array that is bound.
void DescribeDrawVertices();

class GlyphBuffer {
 public:
  GlyphBuffer();

  // Takes over the texts of a frame. Those that are what and where they were in the one before stay as they are.
  void Update(const FramePlan& plan);

  // With the present program; positions count the glyphs of the frame's texts.
  void Draw(std::uint32_t first, std::uint32_t count) const;

 private:
  void Reserve(std::size_t glyphs);
  void Stage(const TextPlace& text, const base::GlyphQuad* quads);
  void Upload();

  // Glyphs that are new.
  struct Run {
    std::size_t begin;
    std::size_t end;
  };

  GlVertexArray array_;
  GlBuffer vertices_;  // four a glyph
  GlBuffer indices_;   // six a glyph
  GlBuffer upload_;
  std::size_t capacity_ = 0;
  std::vector<TextPlace> texts_;          // that the buffer holds
  std::vector<base::DrawVertex> staged_;  // that go there next, and where
  std::vector<Run> runs_;
};

}  // namespace qen::host
