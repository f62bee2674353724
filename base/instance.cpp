#include "base/instance.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "base/context.h"
#include "base/record.h"
#include "base/scene_data.h"

namespace qen::base {
namespace {

bool IsSame(const Matrix4x4& a, const Matrix4x4& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

}  // namespace

Instance::Instance(StringView name, SimpleScene& scene, const Matrix4x4& transform, bool animates,
                   const LightList& lights)
    : scene_(&scene.GetData()) {
  scene_->instances.push_back(this);
  placed_.scene = &scene;
  placed_.transform = transform;
  placed_.animCtrl = animates ? &animCtrl_ : nullptr;
  for (const auto& [index, animation] : scene_->animations) AddAnimation(index, animation.frames);
  NameObject(this, name);
  NameObject(&animCtrl_, name);
  PutAtRest();
  TakeLights(lights);
}

Instance::~Instance() {
  ForgetObject(this);
  ForgetObject(&animCtrl_);
  Context* context = CurrentContext();
  if (context != nullptr && !ownLights_.empty()) {
    lights_ = placed_.ownLights;  // no others end with it
    context->render.Forget(lights_);
  }
  if (scene_ != nullptr) std::erase(scene_->instances, this);
}

void Instance::PutAtRest() {
  if (scene_->IsAtRest() && IsSame(placed_.transform, Matrix4x4::Identity)) {
    placed_.nodeMatrices.reserve(scene_->nodes.size());
    for (const TMNode& node : scene_->nodes) placed_.nodeMatrices.push_back(node.transform);
    return;
  }
  BeginMoving();
  placed_.nodeMatrices = written_;
  for (std::size_t i = 0; i < scene_->nodes.size(); ++i) PutNode(i);
}

void Instance::TakeLights(const LightList& lights) {
  for (const NodeLight& source : scene_->lights) ownLights_.push_back(source.light);
  for (Light& light : ownLights_) placed_.ownLights.push_back(&light);
  if (!ownLights_.empty()) {
    lights_ = lights;
    lights_.insert(lights_.end(), placed_.ownLights.begin(), placed_.ownLights.end());
  }
  placed_.sceneLights = ownLights_.empty() ? &lights : &lights_;
  MoveLights();
}

void Instance::AddLight(Light* light) {
  if (!ownLights_.empty()) lights_.insert(lights_.end() - static_cast<std::ptrdiff_t>(ownLights_.size()), light);
}

void Instance::Disable(bool disabled) {
  Record("InstanceBase::Disable", Named{this}, disabled);
  disabled_ = disabled;
  if (!disabled) animCtrl_.BeginAnew();
}

void Instance::GetLOD(std::uint32_t level, SimpleSceneInstance*& instance, float& distance) {
  Record("InstanceObject::GetLOD", Named{this}, level);
  instance = level == 0 ? &placed_ : nullptr;
  distance = std::numeric_limits<float>::max();
}

void Instance::Advance(double seconds, bool shown) {
  if (scene_ == nullptr) return;
  if (animCtrl_.Advance(seconds)) moved_ = true;
  if (!shown || disabled_) return;
  if (moved_) {
    moved_ = false;
    if (written_.empty()) BeginMoving();
    PoseNodes();
    MoveNodes();
  }
  MoveLights();
}

void Instance::AddAnimation(std::uint32_t index, float frames) {
  animCtrl_.SetAnimationLength(static_cast<std::int32_t>(index), frames);
}

void Instance::Detach() {
  scene_ = nullptr;
  placed_.scene = nullptr;
  placed_.nodeMatrices.clear();
  placed_.entries.clear();
  placed_.drawMatrices.clear();
}

void Instance::BeginMoving() {
  const std::size_t nodes = scene_->nodes.size();
  poses_.resize(nodes);
  globals_.resize(nodes);
  written_.resize(nodes);
  scene_->restPoses.CopyTo(poses_);
  for (std::size_t i = 0; i < nodes; ++i) {
    globals_[i] = GlobalOf(i);
    written_[i] = ToWorld(globals_[i]);
  }
}

void Instance::PoseNodes() {
  scene_->restPoses.CopyTo(poses_);
  for (const AnimCtrl::Playing& playing : animCtrl_.animations) {
    const auto animation = scene_->animations.find(static_cast<std::uint32_t>(playing.index));
    if (animation != scene_->animations.end()) ApplyAnimation(animation->second, playing.frame, poses_);
  }
}

void Instance::MoveNodes() {
  for (std::size_t i = 0; i < scene_->nodes.size(); ++i) {
    globals_[i] = GlobalOf(i);
    const Matrix4x4 world = Place(i, ToWorld(globals_[i]));
    if (IsSame(world, written_[i]) && IsSame(world, placed_.nodeMatrices[i])) continue;
    written_[i] = world;
    placed_.nodeMatrices[i] = world;
    PutNode(i);
  }
}

// Puts the scene's node where the instance's is.
void Instance::PutNode(std::size_t node) {
  TMNode& moved = scene_->nodes[node];
  moved.transform = placed_.nodeMatrices[node] * placed_.transform;
  moved.inverseTransform = moved.transform->Inverse();
}

// In the file's space; that of its parent is known.
Matrix4x4 Instance::GlobalOf(std::size_t node) const {
  const std::uint32_t parent = scene_->nodes[node].parent;
  const Matrix4x4 local = ToMatrix(poses_[node]);
  return parent == TMNode::kNoParent ? local : local * globals_[parent];
}

// Nodes are also moved by whoever writes their matrices, so this is done in each frame.
void Instance::MoveLights() {
  for (std::size_t i = 0; i < ownLights_.size() && i < scene_->lights.size(); ++i) {
    const Matrix4x4 world = placed_.nodeMatrices[scene_->lights[i].node] * placed_.transform;
    ownLights_[i].position = world.GetTranslation();
    // The file's z is a node's own y.
    ownLights_[i].direction = {-world.m[1][0], -world.m[1][1], -world.m[1][2]};
    ownLights_[i].direction.Normalize();
  }
}

// Where a node stands that its animation has at `animated`.
Matrix4x4 Instance::Place(std::size_t node, const Matrix4x4& animated) {
  const bool moved = !IsSame(placed_.nodeMatrices[node], written_[node]);
  if (moved) carried_.Put(node, placed_.nodeMatrices[node], RestWorld(node));
  return carried_.Has(node) ? carried_.Carry(node, animated) : animated;
}

Matrix4x4 Instance::RestWorld(std::size_t node) const {
  const auto rest = [this](std::uint32_t of) { return ToMatrix(scene_->restPoses.Of(of)); };
  Matrix4x4 global = rest(static_cast<std::uint32_t>(node));
  for (std::uint32_t up = scene_->nodes[node].parent; up != TMNode::kNoParent; up = scene_->nodes[up].parent) {
    global = global * rest(up);
  }
  return ToWorld(global);
}

}  // namespace qen::base
