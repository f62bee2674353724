#include "host/render/gl_renderer.h"

#include <iostream>

#include "host/render/draw_order.h"
#include "host/render/geometry_store.h"
#include "host/render/mesh_painter.h"
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

void ToStandardError(std::string_view line) { std::cerr << line << '\n'; }

}  // namespace

struct GlRenderer::Parts {
  explicit Parts(const GlRendererOptions& options)
      : onError(options.onError ? options.onError : ErrorSink(&ToStandardError)),
        toWindow(options.toWindow),
        target(options.samples) {}

  void BeginFrame(const base::DrawList& list, std::int32_t width, std::int32_t height);
  void DrawLayer(const base::DrawList& list, const base::DrawLayer& layer);
  void DrawBlended(const base::DrawList& list, const Matrix4x4& viewProjection);
  void EndFrame();

  ErrorSink onError;
  DriverMessages driverMessages{onError};
  unsigned lastError = 0;
  bool toWindow;
  RenderTarget target;
  TextureStore textures;
  GeometryStore geometry;
  MeshPainter meshes{geometry, textures};
  VertexPainter paint{textures};
  DrawOrder order;
  Matrix4x4 pixels;
};

void GlRenderer::Parts::BeginFrame(const base::DrawList& list, std::int32_t width, std::int32_t height) {
  target.Begin(width, height);
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
  paint.SetVertices(list.vertices);
}

void GlRenderer::Parts::DrawLayer(const base::DrawList& list, const base::DrawLayer& layer) {
  const Matrix4x4 viewProjection = layer.view * WithGlDepth(layer.projection);
  meshes.SetCamera(layer.view, viewProjection);
  order.Sort(list, layer);

  glEnable(GL_DEPTH_TEST);
  glDepthMask(GL_TRUE);
  glClear(GL_DEPTH_BUFFER_BIT);
  glDisable(GL_BLEND);
  for (const std::uint32_t i : order.solid) meshes.Draw(list.items[i], target.IsMultisampled());

  glDepthMask(GL_FALSE);
  glEnable(GL_BLEND);
  DrawBlended(list, viewProjection);

  glDisable(GL_DEPTH_TEST);
  for (const std::uint32_t i : order.flat) paint.Draw(list.items[i], pixels);
}

void GlRenderer::Parts::DrawBlended(const base::DrawList& list, const Matrix4x4& viewProjection) {
  // Texts and quads that lie on a surface win over it.
  glPolygonOffset(-1.0F, -1.0F);
  for (const std::uint32_t i : order.blended) {
    const base::DrawItem& item = list.items[i];
    if (item.kind == base::DrawKind::Mesh) {
      meshes.Draw(item, target.IsMultisampled());
      continue;
    }
    glEnable(GL_POLYGON_OFFSET_FILL);
    paint.Draw(item, item.world * viewProjection);
    glDisable(GL_POLYGON_OFFSET_FILL);
  }
}

void GlRenderer::Parts::EndFrame() {
  glDepthMask(GL_TRUE);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glBindVertexArray(0);
  target.Resolve();
  if (toWindow) target.CopyToWindow();
  ReportErrors(onError, lastError);
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

void GlRenderer::Draw(base::DrawList& list, std::int32_t width, std::int32_t height) {
  if (width <= 0 || height <= 0) return;
  list.OwnVertices();
  parts_->BeginFrame(list, width, height);
  for (const base::DrawLayer& layer : list.layers) parts_->DrawLayer(list, layer);
  parts_->EndFrame();
}

void GlRenderer::Read(base::Image& image) const { parts_->target.Read(image); }

IGlyphPages& GlRenderer::GlyphPages() { return parts_->textures; }

}  // namespace qen::host
