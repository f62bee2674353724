#include "host/scenes/gltf_animations.h"

#include <algorithm>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "host/scenes/gltf_nodes.h"

namespace qen::host {
namespace {

using base::Interpolation;
using base::NodeTracks;
using base::Quaternion;
using base::Track;

Interpolation ReadInterpolation(const Json& sampler) {
  const std::string name = Text(sampler, "interpolation", "LINEAR");
  if (name == "STEP") return Interpolation::Step;
  return name == "CUBICSPLINE" ? Interpolation::Cubic : Interpolation::Linear;
}

Vec3 ToValue(const float* v, Vec3) { return {v[0], v[1], v[2]}; }
Quaternion ToValue(const float* v, Quaternion) { return {v[0], v[1], v[2], v[3]}; }

class AnimationReader {
 public:
  AnimationReader(const GltfDocument& document, GltfAccessors& accessors)
      : document_(document), accessors_(accessors) {}

  base::AnimationData Run() {
    for (const Json& animation : Elements(document_.Root(), "animations")) {
      for (const Json& channel : Elements(animation, "channels")) ReadChannel(animation, channel);
    }
    base::AnimationData data;
    data.seconds = seconds_;
    for (auto& [node, tracks] : tracks_) data.nodes.push_back(std::move(tracks));
    return data;
  }

 private:
  void ReadChannel(const Json& animation, const Json& channel) {
    const Json* target = Member(channel, "target");
    const auto node = target == nullptr ? std::nullopt : Index(*target, "node");
    if (!node) return;  // nothing that this engine animates
    const Json& samplers = Elements(animation, "samplers");
    const std::size_t sampler = RequiredIndex(channel, "sampler");
    if (sampler >= samplers.size()) throw GltfError("there is no sampler " + std::to_string(sampler));
    NodeTracks& tracks = TracksOf(*node);
    const std::string path = Text(*target, "path", "");
    if (path == "translation") ReadTrack(samplers[sampler], 3, tracks.translation);
    if (path == "rotation") ReadTrack(samplers[sampler], 4, tracks.rotation);
    if (path == "scale") ReadTrack(samplers[sampler], 3, tracks.scale);
  }

  NodeTracks& TracksOf(std::size_t node) {
    const Json& json = document_.Item("nodes", node);
    const auto [place, isNew] = tracks_.try_emplace(node);
    if (isNew) place->second.node = NodeName(json, node);
    return place->second;
  }

  template <class T>
  void ReadTrack(const Json& sampler, std::size_t components, Track<T>& track) {
    if (!track.times.empty()) return;
    track.interpolation = ReadInterpolation(sampler);
    track.times = accessors_.Floats(RequiredIndex(sampler, "input"), 1);
    if (std::ranges::adjacent_find(track.times, std::greater_equal<>()) != track.times.end()) {
      throw GltfError("the times of an animation do not grow");
    }
    const std::vector<float> values = accessors_.Floats(RequiredIndex(sampler, "output"), components);
    const std::size_t valuesPerKey = track.interpolation == Interpolation::Cubic ? 3 : 1;
    if (values.size() != track.times.size() * valuesPerKey * components) {
      throw GltfError("an animation does not have a value a key");
    }
    for (std::size_t i = 0; i < values.size(); i += components) track.values.push_back(ToValue(&values[i], T{}));
    if (!track.times.empty()) seconds_ = std::max(seconds_, track.times.back());
  }

  const GltfDocument& document_;
  GltfAccessors& accessors_;
  std::map<std::size_t, NodeTracks> tracks_;  // by node
  float seconds_ = 0.0F;
};

}  // namespace

base::AnimationData ReadAnimations(const GltfDocument& document, GltfAccessors& accessors) {
  return AnimationReader(document, accessors).Run();
}

}  // namespace qen::host
