// What scripts work on: the running GUI, and what they are told of it.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/call_record.h"
#include "engine/bag_entry.h"
#include "host/app/stage.h"
#include "host/script/lua_values.h"
#include "host/script/script.h"

namespace qen::host {

// A slot's content, as a script gives it.
struct ScriptBagEntry final : IBagEntry {
  std::uint32_t GetColor() override { return color; }
  Texture* GetTexture() override { return texture; }

  std::uint32_t color = 0xFFFFFF;
  Texture* texture = nullptr;
};

// The picture stays loaded. Throws std::runtime_error, naming the file, when it cannot be loaded.
Texture* LoadTexture(const String& file);

// What a handler of the script failed with; names the script's line already.
class HandlerFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class ScriptWorld {
 public:
  // `state` is the script's; it must live longer.
  ScriptWorld(Stage& stage, lua_State* state, const ScriptOptions& options);
  ~ScriptWorld();
  ScriptWorld(const ScriptWorld&) = delete;
  ScriptWorld& operator=(const ScriptWorld&) = delete;

  [[nodiscard]] Stage& GetStage() { return stage_; }
  [[nodiscard]] IGui& Gui() { return stage_.Gui(); }
  [[nodiscard]] bool RenewsPictures() const { return options_.renewPictures; }

  // One frame: update, delivery, picture, tooltip. Throws what a handler of the script failed with, and when the window
  // was closed.
  void Frame(double seconds);

  std::optional<std::string> TakeFailure() { return std::exchange(failure_, std::nullopt); }  // of a handler

  // Calls the function on top of the stack, which it takes, for each command of that word.
  void SetHandler(const String& word);

  // The entries stay until the page gets others. Null stands for an empty place.
  void SetBag(std::uint32_t page, std::vector<std::unique_ptr<ScriptBagEntry>> entries);
  [[nodiscard]] bool HasBag(std::uint32_t page) const { return bags_.contains(page) && !bags_.at(page).empty(); }

  std::vector<std::string> TakeSounds() { return std::exchange(sounds_, {}); }  // those since the last call
  std::vector<std::string> TakeLog() { return std::exchange(log_, {}); }
  [[nodiscard]] const std::optional<std::string>& Tooltip() const { return tooltip_; }  // on screen

 private:
  void OnCall(const base::Call& call);
  bool OnCommand(GuiMessage& record);
  void PushRecord(const GuiMessage& record);
  void ShowFrame();

  Stage& stage_;
  lua_State* state_;
  ScriptOptions options_;
  std::vector<std::string> sounds_;
  std::vector<std::string> log_;
  std::optional<std::string> tooltip_;
  std::map<String, int, std::less<>> handlers_;  // references to Lua functions
  std::optional<std::string> failure_;           // of a handler, until the frame is over
  std::map<std::uint32_t, std::vector<std::unique_ptr<ScriptBagEntry>>> bags_;
  std::optional<base::CallTap> tap_;
};

}  // namespace qen::host
