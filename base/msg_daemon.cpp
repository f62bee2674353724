#include "engine/msg_daemon.h"

#include <algorithm>

#include "base/record.h"
#include "engine/gui_message.h"
#include "engine/messages.h"

namespace qen {
namespace {

// What can be told of the second parameter without looking at an address.
StringView CommandText(std::uint32_t id, std::uintptr_t second) {
  const bool isCommand = id == message::kCommand || id == message::kNotification;
  if (!isCommand || second == 0) return {};
  return reinterpret_cast<const GuiMessage*>(second)->text;
}

}  // namespace

// Counts the deliveries in progress, also when a handler throws.
class MsgDaemon::Delivery {
 public:
  explicit Delivery(MsgDaemon& daemon) : daemon_(daemon) { ++daemon_.depth_; }
  ~Delivery() {
    if (--daemon_.depth_ == 0) daemon_.DropRemoved();
  }
  Delivery(const Delivery&) = delete;
  Delivery& operator=(const Delivery&) = delete;

 private:
  MsgDaemon& daemon_;
};

void MsgDaemon::AddHandler(Object* handler, std::uint32_t category) {
  base::Record("MsgDaemon::AddHandler", category);
  if (handler == nullptr || category == 0) return;
  const auto known = std::ranges::find(entries_, handler, &Entry::handler);
  if (known != entries_.end()) {
    known->category |= category;
  } else {
    entries_.push_back({handler, category});
  }
}

void MsgDaemon::RemoveHandler(Object* handler, std::uint32_t category) {
  base::Record("MsgDaemon::RemoveHandler", category);
  if (handler == nullptr) return;
  const auto known = std::ranges::find(entries_, handler, &Entry::handler);
  if (known == entries_.end()) return;
  known->category &= ~category;
  if (known->category != 0) return;
  known->handler = nullptr;
  if (depth_ == 0) DropRemoved();
}

std::int32_t MsgDaemon::ProcMsg(std::uint32_t id, std::uint32_t first, std::uintptr_t second, std::uint32_t category) {
  if (base::IsRecording()) base::Record("MsgDaemon::ProcMsg", id, first, CommandText(id, second), category);
  const Msg message{id, first, second};
  std::int32_t answer = 0;
  const Delivery delivery(*this);
  // By index and to the present end: handlers that register meanwhile may move the entries and wait for the next
  // message.
  const std::size_t count = entries_.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Entry entry = entries_[i];
    if (entry.handler == nullptr || (entry.category & category) == 0) continue;
    const std::int32_t reply = entry.handler->OnMessage(message);
    if (reply != 0) answer = reply;
  }
  return answer;
}

void MsgDaemon::DropRemoved() {
  std::erase_if(entries_, [](const Entry& entry) { return entry.handler == nullptr; });
}

}  // namespace qen
