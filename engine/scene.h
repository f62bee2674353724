// A scene file in memory: its nodes, their meshes and its animations.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "engine/scene_node.h"
#include "engine/types.h"

namespace qen {

class QEN_API SimpleScene {
 public:
  static constexpr std::uint32_t kNextAnimation = 0xFFFFFFFF;

  // `owner` and `line` say in the log who made it.
  SimpleScene(const char* owner, std::int32_t line);
  ~SimpleScene();
  SimpleScene(const SimpleScene&) = delete;
  SimpleScene& operator=(const SimpleScene&) = delete;

  // Reads a scene file, with its textures when asked. False when it cannot be read (the engine has logged it); the
  // scene then has no nodes.
  bool Load(const String& file, bool withTextures);

  // Reads an animation file and stores it under `index`, kNextAnimation for the next free one. The animation's tracks
  // belong to nodes of the same name. False when it cannot be read.
  bool LoadAnimData(const String& file, std::uint32_t index);

  // Depth first, parents before their children.
  [[nodiscard]] const std::vector<TMNode*>& GetNodes() const;
  [[nodiscard]] std::uint32_t GetNumNodesInRefFile() const;  // how many of them come from the scene file itself

  // The first node of that name, exact; null when there is none.
  [[nodiscard]] TMNode* FindMapNode(const String& name) const;

  // The engine's own side of the scene.
  struct Data;
  [[nodiscard]] Data& GetData() const { return *data_; }

 private:
  std::unique_ptr<Data> data_;
};

}  // namespace qen
