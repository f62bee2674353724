#include "host/app/game.h"

#include <utility>

#include "base/utf.h"
#include "engine/gui.h"
#include "engine/item_info.h"
#include "engine/messages.h"
#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "formats/command_words.h"
#include "host/app/pages.h"

namespace qen::host {
namespace {

// Commands are sent to every category; this one keeps the GUI's input away.
constexpr std::uint32_t kGameCategory = 0x1;

std::string Words(const GuiMessage& record) {
  return base::ToUtf8(record.argument.empty() ? record.command : record.command + u':' + record.argument);
}

bool IsGuiWord(StringView word) { return formats::FindCommand(word) != nullptr; }

}  // namespace

Game::Game(LineSink print) : print_(std::move(print)) { System::daemon->AddHandler(this, kGameCategory); }

Game::~Game() { System::daemon->RemoveHandler(this, kGameCategory); }

std::int32_t Game::OnMessage(const Msg& message) {
  if (message.id == message::kCommand) OnCommand(*reinterpret_cast<GuiMessage*>(message.second));
  if (message.id == message::kNotification) OnNotification(*reinterpret_cast<GuiMessage*>(message.second));
  return 0;
}

void Game::OnCommand(GuiMessage& record) {
  if (IsGuiWord(record.command)) ++commandCount_;
  if (record.handled != 0 || IsGuiWord(record.command)) return;
  const bool isSeenTo = hook_ && hook_(record);
  if (!isSeenTo || record.handled != 0) ++commandCount_;
  if (isSeenTo) return;
  print_("command: " + Words(record));
  if (record.command == u"quit") quit_ = true;
  if (record.command == u"language") System::gui->SetLanguage(record.argument);
  record.handled = 1;
}

void Game::OnNotification(GuiMessage& record) {
  ++commandCount_;
  if (!IsGuiWord(record.command) && hook_ && hook_(record)) return;
  std::string line = "notification: " + Words(record);
  const ICGUIObject* source = FindLiving(*System::gui, record.source);
  if (source != nullptr && source->info != nullptr) {
    line += " (" + base::ToUtf8(source->info->name) + " = " + std::to_string(source->info->position) + ')';
  }
  print_(line);
}

}  // namespace qen::host
