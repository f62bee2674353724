// Turns a picture of a glyph into signed distances from its outline.
#pragma once

#include <cstdint>
#include <vector>

namespace qen::host {

// Grey values, 255 inside the outline. `left` and `top` place its upper left corner: pixels right of and above the
// origin.
struct GlyphPicture {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint8_t> texels;  // rows from the top without gaps
};

class DistanceField {
 public:
  static constexpr int kOversampling = 2;  // pixels of the source a texel of the result, each way

  // `out` is wider than the glyph by `reach` texels on all sides; 0 is that far outside the outline and 255 inside.
  void Make(const GlyphPicture& source, int reach, GlyphPicture& out);

 private:
  struct Offset {
    float x = 0.0F, y = 0.0F;
  };

  void Fill(const GlyphPicture& source, std::int32_t column, std::int32_t row);
  void FindNearestRows();
  void FindEnvelope(std::int32_t row);
  void MeasureRow(std::int32_t row);
  [[nodiscard]] float NearOutline(std::int32_t column, std::int32_t row, std::int32_t edgeColumn,
                                  std::int32_t edgeRow) const;
  [[nodiscard]] bool IsEdge(std::int32_t column, std::int32_t row) const;
  [[nodiscard]] Offset ToOutline(std::int32_t column, std::int32_t row) const;
  [[nodiscard]] std::size_t At(std::int32_t column, std::int32_t row) const;
  [[nodiscard]] float Average(std::int32_t column, std::int32_t row) const;

  std::int32_t width_ = 0;  // of the following
  std::int32_t height_ = 0;
  std::vector<float> coverage_;           // of the source's pixels, with room around them
  std::vector<std::int32_t> nearestRow_;  // of an edge in the same column; none is far above everything
  std::vector<Offset> toOutline_;         // from the middle of an edge pixel
  std::vector<float> distance_;           // in the source's pixels, positive inside

  // The parabolas of the row at hand: where each begins to be the lowest, and the column of its apex.
  std::vector<float> starts_;
  std::vector<std::int32_t> apexes_;
};

}  // namespace qen::host
