// What scripts work on: the running GUI, and what they are told of it.
#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/call_record.h"
#include "host/app/stage.h"
#include "host/script/lent_pictures.h"
#include "host/script/lua_values.h"
#include "host/script/script.h"
#include "host/script/time_limit.h"

namespace qen::host {

class ScriptState;

// What a handler of the script failed with; names the script's line already.
class HandlerFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class ScriptWorld {
 public:
  ScriptWorld(Stage& stage, const ScriptOptions& options);
  ~ScriptWorld();
  ScriptWorld(const ScriptWorld&) = delete;
  ScriptWorld& operator=(const ScriptWorld&) = delete;

  [[nodiscard]] Stage& GetStage() { return stage_; }
  [[nodiscard]] IGui& Gui() { return stage_.Gui(); }
  [[nodiscard]] TimeLimit& Limit() { return limit_; }
  [[nodiscard]] LentPictures& Pictures() { return pictures_; }
  [[nodiscard]] bool RenewsPictures() const { return options_.renewPictures; }

  // One frame: update, delivery, picture, tooltip. Throws what a handler of a script failed with, and when the window
  // was closed or time is over.
  void Frame(double seconds);

  std::optional<std::string> TakeFailure() { return std::exchange(failure_, std::nullopt); }  // of a handler

  // Calls the function on top of the stack, which it takes, for each command of that word.
  void SetHandler(lua_State* state, const String& word);

  std::vector<std::string> TakeSounds() { return std::exchange(sounds_, {}); }  // those since the last call
  std::vector<std::string> TakeLog() { return std::exchange(log_, {}); }
  [[nodiscard]] const std::optional<std::string>& Tooltip() const { return tooltip_; }  // on screen

 private:
  void OnCall(const base::Call& call);
  bool OnCommand(GuiMessage& record);
  void PushRecord(lua_State* state, const GuiMessage& record);
  void ShowFrame();

  struct Handler {
    ScriptState* state;
    int function;  // in the registry
  };

  Stage& stage_;
  ScriptOptions options_;
  TimeLimit limit_;
  LentPictures pictures_;
  std::vector<std::string> sounds_;
  std::vector<std::string> log_;
  std::optional<std::string> tooltip_;
  std::map<String, Handler, std::less<>> handlers_;
  std::optional<std::string> failure_;  // of a handler, until the frame is over
  std::optional<base::CallTap> tap_;
};

}  // namespace qen::host
