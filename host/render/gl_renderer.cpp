#include "host/render/gl_renderer.h"

#include <iostream>
#include <span>
#include <utility>

#include "host/render/geometry_store.h"
#include "host/render/mesh_painter.h"
#include "host/render/planner.h"
#include "host/render/render_target.h"
#include "host/render/texture_store.h"
#include "host/render/vertex_painter.h"

namespace qen::host {
namespace {

// Turns a depth of 0 to 1 into OpenGL's -1 to 1.
Matrix4x4 WithGlDepth(const Matrix4x4& projection) {
  Matrix4x4 depth = Matrix4x4::Identity;
  depth.m[2][2] = 2.0F;
  depth.m[3][2] = -1.0F;
  return projection * depth;
}

// From pixels, y down, to clip space.
Matrix4x4 PixelTransform(std::int32_t width, std::int32_t height) {
  Matrix4x4 transform = Matrix4x4::Identity;
  transform.m[0][0] = 2.0F / static_cast<float>(width);
  transform.m[1][1] = -2.0F / static_cast<float>(height);
  transform.m[2][2] = 0.0F;
  transform.SetTranslation({-1.0F, 1.0F, 0.0F});
  return transform;
}

constexpr int kStillFrames = 5;  // before a coarse picture is drawn anew

void ToStandardError(std::string_view line) { std::cerr << line << '\n'; }

}  // namespace

struct GlRenderer::Parts {
  explicit Parts(const GlRendererOptions& options)
      : onError(options.onError ? options.onError : ErrorSink(&ToStandardError)),
        toWindow(options.toWindow),
        coarseInMotion(options.coarseInMotion && options.samples > 0),
        fine(options.samples) {}

  bool IsShown(std::int32_t newWidth, std::int32_t newHeight) const;
  [[nodiscard]] bool IsDueToRefine() const { return target == &coarse && stillFrames == kStillFrames; }
  void DrawPlan(RenderTarget& into);
  void BeginFrame();
  void DrawLayer(const PlannedLayer& layer);
  void DrawBlended(std::span<const Batch> batches);
  void EndFrame() const;

  [[nodiscard]] std::span<const Batch> Batches(std::uint32_t begin, std::uint32_t end) const {
    return std::span(plan.batches).subspan(begin, end - begin);
  }

  ErrorSink onError;
  DriverMessages driverMessages{onError};
  unsigned lastError = 0;
  bool toWindow;
  bool coarseInMotion;
  RenderTarget fine;
  RenderTarget coarse{0};
  RenderTarget* target = &fine;  // that has the picture
  TextureStore textures;
  GeometryStore geometry;
  MeshPainter meshes{geometry, textures};
  VertexPainter paint{textures};
  Planner planner;
  FramePlan plan;
  Matrix4x4 pixels;

  // Of the picture that is there.
  bool isThere = false;
  bool hasChanged = false;  // against the one before
  int stillFrames = 0;      // since it changed
  FramePlan shown;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::uint64_t contents = 0;
};

bool GlRenderer::Parts::IsShown(std::int32_t newWidth, std::int32_t newHeight) const {
  return isThere && newWidth == width && newHeight == height && contents == textures.Changes() + geometry.Changes() &&
         plan.ShowsTheSameAs(shown);
}

void GlRenderer::Parts::DrawPlan(RenderTarget& into) {
  isThere = false;
  target = &into;
  BeginFrame();
  for (const PlannedLayer& layer : plan.layers) DrawLayer(layer);
  EndFrame();
  isThere = true;
  contents = textures.Changes() + geometry.Changes();
  std::swap(plan, shown);
}

void GlRenderer::Parts::BeginFrame() {
  target->Begin(width, height);
  pixels = PixelTransform(width, height);
  glEnable(GL_FRAMEBUFFER_SRGB);
  glDisable(GL_SCISSOR_TEST);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
  glClear(GL_COLOR_BUFFER_BIT);
  // The picture stays opaque, whatever is blended into it.
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glDepthFunc(GL_LEQUAL);
  // Texts and quads that lie on a surface win over it.
  glPolygonOffset(-1.0F, -1.0F);
  meshes.Begin(plan, target->IsMultisampled());
  paint.Begin(plan);
}

void GlRenderer::Parts::DrawLayer(const PlannedLayer& layer) {
  const Matrix4x4 viewProjection = layer.view * WithGlDepth(layer.projection);
  meshes.SetCamera(layer.view, viewProjection);
  glEnable(GL_DEPTH_TEST);
  glDepthMask(GL_TRUE);
  glClear(GL_DEPTH_BUFFER_BIT);
  glDisable(GL_BLEND);
  for (const Batch& batch : Batches(layer.begin, layer.blended)) meshes.Draw(batch);

  glDepthMask(GL_FALSE);
  glEnable(GL_BLEND);
  paint.SetTransform(viewProjection);
  DrawBlended(Batches(layer.blended, layer.flat));

  glDisable(GL_DEPTH_TEST);
  glDisable(GL_CULL_FACE);
  paint.SetTransform(pixels);
  for (const Batch& batch : Batches(layer.flat, layer.end)) paint.Draw(batch);
}

void GlRenderer::Parts::DrawBlended(std::span<const Batch> batches) {
  for (const Batch& batch : batches) {
    if (batch.kind == BatchKind::Meshes) {
      meshes.Draw(batch);
      continue;
    }
    glDisable(GL_CULL_FACE);
    glEnable(GL_POLYGON_OFFSET_FILL);
    paint.Draw(batch);
    glDisable(GL_POLYGON_OFFSET_FILL);
  }
}

void GlRenderer::Parts::EndFrame() const {
  glDepthMask(GL_TRUE);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glBindVertexArray(0);
  target->Resolve();
  if (toWindow) target->CopyToWindow();
}

GlRenderer::GlRenderer(const GlRendererOptions& options) : parts_(std::make_unique<Parts>(options)) {}

GlRenderer::~GlRenderer() = default;

std::uint32_t GlRenderer::CreateTexture(const base::Image& image) { return parts_->textures.Create(image); }

void GlRenderer::DestroyTexture(std::uint32_t texture) { parts_->textures.Destroy(texture); }

std::uint32_t GlRenderer::CreateGeometry(std::span<const base::Vertex> vertices,
                                         std::span<const std::uint32_t> indices) {
  return parts_->geometry.Create(vertices, indices);
}

void GlRenderer::DestroyGeometry(std::uint32_t geometry) { parts_->geometry.Destroy(geometry); }

void GlRenderer::Draw(const base::DrawList& list, std::int32_t width, std::int32_t height) {
  if (width <= 0 || height <= 0) return;
  parts_->planner.Plan(list, parts_->plan);
  Parts& parts = *parts_;
  const bool isNew = !parts.IsShown(width, height);
  parts.stillFrames = isNew ? 0 : parts.stillFrames + 1;
  parts.hasChanged = isNew || parts.IsDueToRefine();
  if (parts.hasChanged) {
    parts.width = width;
    parts.height = height;
    parts.DrawPlan(isNew && parts.coarseInMotion ? parts.coarse : parts.fine);
  }
  ReportErrors(parts.onError, parts.lastError);
}

bool GlRenderer::HasChanged() const { return parts_->hasChanged; }

std::uint32_t GlRenderer::DrawCalls() const { return static_cast<std::uint32_t>(parts_->shown.batches.size()); }

void GlRenderer::ShowAgain() const {
  if (parts_->isThere && parts_->toWindow) parts_->target->CopyToWindow();
}

void GlRenderer::Read(base::Image& image) const { parts_->target->Read(image); }

IGlyphPages& GlRenderer::GlyphPages() { return parts_->textures; }

}  // namespace qen::host
