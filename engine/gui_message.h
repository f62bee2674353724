// A command record: what a widget asks the GUI, the game or another module to do.
#pragma once

#include <cstdint>

#include "engine/types.h"

namespace qen {

class ICGUIObject;
class ICGUIPageObject;

// Shared by all modules, which receive a pointer to it with the messages kCommand and kNotification. Source and page
// may be gone by the time a record is delivered; whoever follows them must know that they live.
struct GuiMessage {
  String text;                      // as written in the definition file: command word, ":" and argument
  String command;                   // the word
  String argument;                  // what it applies to
  std::int32_t value = 0;           // taken from the source widget when it was activated
  ICGUIObject* source = nullptr;    // the widget that owns the record; null when the GUI itself made it
  ICGUIPageObject* page = nullptr;  // the page whose running animation defers the record
  std::uint8_t handled = 0;         // set by the module that carries the command out
  std::uint8_t snapshot = 0;        // remember the page lists before carrying it out
  std::uint8_t origin = 0;          // 1: made by the GUI itself, 0: posted by a widget
};

}  // namespace qen
