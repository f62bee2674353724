#include "host/scenes/gltf_nodes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string>

#include "base/utf.h"
#include "host/scenes/gltf_lights.h"

namespace qen::host {
namespace {

using base::NodeData;
using base::Pose;
using base::Quaternion;

// Shepperd's method. The rows are the turned axes, of length 1 and at right angles.
Quaternion ToQuaternion(const Vec3& x, const Vec3& y, const Vec3& z) {
  const std::array<float, 4> squares{1.0F + x.x - y.y - z.z, 1.0F - x.x + y.y - z.z, 1.0F - x.x - y.y + z.z,
                                     1.0F + x.x + y.y + z.z};  // four times those of x, y, z and w
  const auto largest = std::ranges::max_element(squares) - squares.begin();
  const float twice = std::sqrt(squares[static_cast<std::size_t>(largest)]);
  const float f = 0.5F / twice;
  switch (largest) {
    case 0:
      return {0.5F * twice, (x.y + y.x) * f, (z.x + x.z) * f, (y.z - z.y) * f};
    case 1:
      return {(x.y + y.x) * f, 0.5F * twice, (y.z + z.y) * f, (z.x - x.z) * f};
    case 2:
      return {(z.x + x.z) * f, (y.z + z.y) * f, 0.5F * twice, (x.y - y.x) * f};
    default:
      return {(y.z - z.y) * f, (z.x - x.z) * f, (x.y - y.x) * f, 0.5F * twice};
  }
}

// A mirrored matrix gets a negative scale along x. A shear is lost.
Pose Decompose(const std::array<float, 16>& m) {
  Vec3 x{m[0], m[1], m[2]};
  Vec3 y{m[4], m[5], m[6]};
  Vec3 z{m[8], m[9], m[10]};
  Pose pose{{m[12], m[13], m[14]}, {}, {x.Length(), y.Length(), z.Length()}};
  if (Dot(Cross(x, y), z) < 0.0F) {
    x = -x;
    pose.scale.x = -pose.scale.x;
  }
  x.Normalize();
  y.Normalize();
  z = Cross(x, y);
  const bool flat = x == Vec3{} || y == Vec3{} || z == Vec3{};
  if (!flat) pose.rotation = ToQuaternion(x, y, z);
  return pose;
}

Pose ReadPose(const Json& node) {
  if (Member(node, "matrix") != nullptr) {
    std::array<float, 16> matrix{};
    ReadNumbers(node, "matrix", matrix);
    return Decompose(matrix);
  }
  std::array<float, 3> t{};
  std::array<float, 4> r{0.0F, 0.0F, 0.0F, 1.0F};
  std::array<float, 3> s{1.0F, 1.0F, 1.0F};
  ReadNumbers(node, "translation", t);
  ReadNumbers(node, "rotation", r);
  ReadNumbers(node, "scale", s);
  return {{t[0], t[1], t[2]}, {r[0], r[1], r[2], r[3]}, {s[0], s[1], s[2]}};
}

std::optional<std::array<float, 3>> ReadCamera(const GltfDocument& document, const Json& node) {
  constexpr float kFarPlane = 80000.0F;  // where the file leaves it open
  const auto index = Index(node, "camera");
  if (!index) return std::nullopt;
  const Json* perspective = Member(document.Item("cameras", *index), "perspective");
  if (perspective == nullptr) return std::nullopt;
  const std::array camera{Number(*perspective, "yfov", 0.0F), Number(*perspective, "znear", 0.0F),
                          Number(*perspective, "zfar", kFarPlane)};
  if (!(camera[0] > 0.0F && camera[1] > 0.0F && camera[2] > camera[1])) throw GltfError("a camera has wrong values");
  return camera;
}

std::size_t ToNodeIndex(const Json& value) {
  if (!value.is_number_unsigned()) throw GltfError("a node is named by something else than its position");
  return value.get<std::size_t>();
}

std::vector<std::size_t> Children(const Json& owner, const char* key) {
  std::vector<std::size_t> children;
  for (const Json& child : Elements(owner, key)) children.push_back(ToNodeIndex(child));
  return children;
}

// The nodes that are nobody's child.
std::vector<std::size_t> TopNodes(const GltfDocument& document) {
  const Json& nodes = Elements(document.Root(), "nodes");
  std::vector<bool> isChild(nodes.size());
  for (const Json& node : nodes) {
    for (const std::size_t child : Children(node, "children")) {
      if (child < isChild.size()) isChild[child] = true;
    }
  }
  std::vector<std::size_t> top;
  for (std::size_t i = 0; i < isChild.size(); ++i) {
    if (!isChild[i]) top.push_back(i);
  }
  return top;
}

std::vector<std::size_t> Roots(const GltfDocument& document) {
  const auto scene = Index(document.Root(), "scene");
  if (!scene && Elements(document.Root(), "scenes").empty()) return TopNodes(document);
  return Children(document.Item("scenes", scene.value_or(0)), "nodes");
}

class NodeWalk {
 public:
  explicit NodeWalk(const GltfDocument& document)
      : document_(document), seen_(Elements(document.Root(), "nodes").size()) {}

  // A stack of its own: files may nest deeper than calls can.
  std::vector<NodeData> Run() {
    Push(Roots(document_), -1);
    while (!waiting_.empty()) {
      const Waiting next = waiting_.back();
      waiting_.pop_back();
      const Json& node = document_.Item("nodes", next.node);
      if (seen_[next.node]) throw GltfError("node " + std::to_string(next.node) + " has two parents");
      seen_[next.node] = true;
      nodes_.push_back({.name = NodeName(node, next.node),
                        .parent = next.parent,
                        .pose = ReadPose(node),
                        .mesh = document_.Position(node, "mesh", "meshes"),
                        .camera = ReadCamera(document_, node),
                        .light = ReadLight(document_, node)});
      Push(Children(node, "children"), static_cast<std::int32_t>(nodes_.size() - 1));
    }
    return std::move(nodes_);
  }

 private:
  struct Waiting {
    std::size_t node;
    std::int32_t parent;
  };

  void Push(const std::vector<std::size_t>& children, std::int32_t parent) {
    for (auto child = children.rbegin(); child != children.rend(); ++child) waiting_.push_back({*child, parent});
  }

  const GltfDocument& document_;
  std::vector<bool> seen_;
  std::vector<Waiting> waiting_;
  std::vector<NodeData> nodes_;
};

}  // namespace

std::vector<NodeData> ReadNodes(const GltfDocument& document) { return NodeWalk(document).Run(); }

String NodeName(const Json& node, std::size_t position) {
  return base::ToUtf16(Text(node, "name", "node " + std::to_string(position)));
}

}  // namespace qen::host
