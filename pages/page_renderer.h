// Draws the nodes of a page's scene.
#pragma once

#include <cstddef>

#include "engine/scene_instance.h"

namespace qen {

class ICGUIPageObject;
class Mesh;
class Viewport;
struct AABB;
struct NodeDrawInfo;
struct TMNode;

enum class WidgetDrawing : std::uint8_t {
  AsFlagged,  // a widget's node is drawn as its record's flags say, its sub-scene first
  ByWidget,   // a widget's node is always drawn by the widget
};

// One drawing of one page.
class PageRenderer {
 public:
  // `lights` is for the sub-scenes of widgets.
  PageRenderer(const ICGUIPageObject& page, Viewport& viewport, WidgetDrawing drawing, const LightList& lights);

  // Gives the renderer the camera, then everything that is to be drawn. Nodes are drawn only of a page with an
  // instance.
  void Draw();

 private:
  void DrawNode(const TMNode& node, std::size_t position);
  bool DrawWidget(const NodeDrawInfo& info, const Matrix4x4& world, const AABB& box);
  void SubmitMesh(Mesh& mesh, const Matrix4x4& world);

  const ICGUIPageObject& page_;
  Viewport& viewport_;
  WidgetDrawing drawing_;
  const LightList& lights_;
  std::size_t meshes_ = 0;   // submitted so far
  std::size_t entries_ = 0;  // likewise
};

}  // namespace qen
