#include "commands/message_collector.h"

#include <algorithm>

#include "commands/live_objects.h"
#include "commands/page_lists.h"
#include "engine/messages.h"
#include "engine/msg_daemon.h"
#include "engine/system.h"
#include "formats/command_words.h"

namespace qen {
namespace {

// Notifications are news: nobody has to take them, so each is delivered once.
std::uint8_t HandledWhenQueued(std::uint32_t id) { return id == message::kNotification ? 1 : 0; }

}  // namespace

CGUIMessageCollector& MessageCollector() {
  static CGUIMessageCollector collector;
  return collector;
}

void CGUIMessageCollector::Post(std::uint32_t id, GuiMessage& record) {
  if (record.command == command::kSetPage) return ExpandSetPage(id, record);
  if (record.command == command::kUndoPage) return ExpandUndoPage(id, record);
  record.handled = HandledWhenQueued(id);
  record.snapshot = 1;
  Append(id, record);
}

void CGUIMessageCollector::Append(std::uint32_t id, const GuiMessage& record) {
  if (record.handled != 0) firstHandled_ = std::min(firstHandled_, queue_.size());
  queue_.push_back({nextSerial_++, LiveSerial(record.source), LiveSerial(record.page), id, record});
}

void CGUIMessageCollector::AppendPageCommand(std::uint32_t id, const GuiMessage& origin, StringView command,
                                             const String& argument, bool snapshot) {
  GuiMessage record;
  record.text = origin.text;
  record.command = command;
  record.argument = argument;
  record.value = origin.value;
  record.source = origin.source;
  record.page = origin.page;
  record.handled = HandledWhenQueued(id);
  record.snapshot = snapshot ? 1 : 0;
  record.origin = 1;
  Append(id, record);
}

void CGUIMessageCollector::RemoveActivePages(std::uint32_t id, const GuiMessage& origin, bool snapshot) {
  const std::vector<std::uint32_t>& active = lists_->ActivePages();
  for (std::size_t i = active.size(); i-- > 0;) {
    const bool first = i + 1 == active.size();
    AppendPageCommand(id, origin, command::kRemActivePage, lists_->PageName(active[i]), snapshot && first);
  }
}

void CGUIMessageCollector::ExpandSetPage(std::uint32_t id, const GuiMessage& record) {
  if (lists_ == nullptr) return;
  RemoveActivePages(id, record, true);
  AppendPageCommand(id, record, command::kRemoveAllFromRender, record.argument, false);
  AppendPageCommand(id, record, command::kAddRenderPage, record.argument, false);
  AppendPageCommand(id, record, command::kAddActivePage, record.argument, false);
}

void CGUIMessageCollector::ExpandUndoPage(std::uint32_t id, const GuiMessage& record) {
  if (lists_ == nullptr || lists_->UndoStack().empty()) return;
  const CGuiUndo snapshot = std::move(lists_->UndoStack().back());
  lists_->UndoStack().pop_back();
  RemoveActivePages(id, record, false);
  AppendPageCommand(id, record, command::kRemoveAllFromRender, record.argument, false);
  for (const std::uint32_t page : snapshot.renderPages) {
    AppendPageCommand(id, record, command::kAddRenderPage, lists_->PageName(page), false);
  }
  for (const std::uint32_t page : snapshot.activePages) {
    AppendPageCommand(id, record, command::kAddActivePage, lists_->PageName(page), false);
  }
}

void CGUIMessageCollector::ForgetTheGone(Entry& entry) {
  GuiMessage& record = entry.record;
  if (entry.sourceSerial == 0 || LiveSerial(record.source) != entry.sourceSerial) record.source = nullptr;
  if (entry.pageSerial == 0 || LiveSerial(record.page) != entry.pageSerial) record.page = nullptr;
}

void CGUIMessageCollector::Deliver() {
  if (delivering_ || System::daemon == nullptr) return;
  DeliverCopy();
  Purge();
}

void CGUIMessageCollector::DeliverCopy() {
  // Also when a handler throws.
  struct Ending {
    bool& delivering;
    ~Ending() { delivering = false; }
  };
  const Ending ending{delivering_};
  delivering_ = true;
  cleared_ = false;
  delivered_ = queue_;
  for (std::size_t i = 0; !cleared_ && i < delivered_.size(); ++i) {
    Entry& entry = delivered_[i];
    ForgetTheGone(entry);
    System::daemon->ProcMsg(entry.id, 0, reinterpret_cast<std::uintptr_t>(&entry.record), category::kAll);
    StoreHandled(entry.serial, entry.record.handled);
  }
}

void CGUIMessageCollector::StoreHandled(std::uint64_t serial, std::uint8_t handled) {
  // A handler may have purged or emptied the queue, so the entry is looked for, not counted off.
  const auto found = std::lower_bound(queue_.begin(), queue_.end(), serial,
                                      [](const Entry& entry, std::uint64_t wanted) { return entry.serial < wanted; });
  if (found == queue_.end() || found->serial != serial) return;
  if (handled != 0) firstHandled_ = std::min(firstHandled_, static_cast<std::size_t>(found - queue_.begin()));
  found->record.handled = handled;
}

void CGUIMessageCollector::Purge() {
  if (firstHandled_ >= queue_.size()) return;
  const auto first = queue_.begin() + static_cast<std::ptrdiff_t>(firstHandled_);
  const auto isHandled = [](const Entry& entry) { return entry.record.handled != 0; };
  queue_.erase(std::remove_if(first, queue_.end(), isHandled), queue_.end());
  firstHandled_ = kNone;
}

void CGUIMessageCollector::Clear() {
  cleared_ = true;
  queue_.clear();
  firstHandled_ = kNone;
}

}  // namespace qen
