// Plays the part of the game: takes the commands that the GUI leaves to others.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "engine/gui_message.h"
#include "engine/object.h"

namespace qen::host {

// Receives a line to print.
using LineSink = std::function<void(const std::string& line)>;

// Is offered each record that the GUI leaves to others before the game answers it. True: it has been seen to.
using CommandHook = std::function<bool(GuiMessage& record)>;

// Registered with the engine's message daemon while it lives. The GUI's own words pass; every other command is printed
// once and marked handled; "quit" also ends the program, and "language" switches to the language it names.
// Notifications are printed.
class Game final : public Object {
 public:
  explicit Game(LineSink print);
  ~Game() override;
  Game(const Game&) = delete;
  Game& operator=(const Game&) = delete;

  std::int32_t OnMessage(const Msg& message) override;

  void SetHook(CommandHook hook) { hook_ = std::move(hook); }

  // The commands so far that the GUI or somebody here takes; those that wait count with each delivery.
  [[nodiscard]] std::uint64_t CommandCount() const { return commandCount_; }

  [[nodiscard]] bool HasQuit() const { return quit_; }

 private:
  void OnCommand(GuiMessage& record);
  void OnNotification(GuiMessage& record);

  LineSink print_;
  CommandHook hook_;
  bool quit_ = false;
  std::uint64_t commandCount_ = 0;
};

}  // namespace qen::host
