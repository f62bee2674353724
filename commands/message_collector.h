// The queue of command records.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/gui_message.h"
#include "engine/types.h"

namespace qen {

class IPageLists;

// One for the module, alive as long as it is loaded. Entries are kept in the order they were posted.
class CGUIMessageCollector {
 public:
  virtual ~CGUIMessageCollector() = default;

  // The registry that "setpage" and "undopage" are expanded with; not owned, null for none (they then queue nothing).
  void SetPageLists(IPageLists* lists) { lists_ = lists; }

  // Queues a copy of the record for the message id, "setpage" and "undopage" as the elementary commands they stand for.
  // Other records get their handled and snapshot flags set here.
  void Post(std::uint32_t id, GuiMessage& record);

  // Offers every waiting record to every module, then drops the handled ones. What is posted meanwhile waits for the
  // next delivery; a delivery inside a delivery does nothing.
  void Deliver();
  [[nodiscard]] bool IsDelivering() const { return delivering_; }

  // Drops the handled entries. Costs as much as there are entries from the first of these on.
  void Purge();

  void Clear();  // ends a delivery in progress, too

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  struct Entry {
    std::uint64_t serial = 0;  // grows along the queue
    std::uint64_t sourceSerial = 0;
    std::uint64_t pageSerial = 0;
    std::uint32_t id = 0;
    GuiMessage record;
  };

  void Append(std::uint32_t id, const GuiMessage& record);
  void AppendPageCommand(std::uint32_t id, const GuiMessage& origin, StringView command, const String& argument,
                         bool snapshot);
  void RemoveActivePages(std::uint32_t id, const GuiMessage& origin, bool snapshot);
  void ExpandSetPage(std::uint32_t id, const GuiMessage& record);
  void ExpandUndoPage(std::uint32_t id, const GuiMessage& record);
  void DeliverCopy();
  static void ForgetTheGone(Entry& entry);
  void StoreHandled(std::uint64_t serial, std::uint8_t handled);

  std::vector<Entry> queue_;
  std::vector<Entry> delivered_;      // the copy that a delivery works on; kept for its storage
  std::size_t firstHandled_ = kNone;  // no entry before it is handled
  std::uint64_t nextSerial_ = 1;
  bool delivering_ = false;
  bool cleared_ = false;  // since the last delivery began
  IPageLists* lists_ = nullptr;
};

CGUIMessageCollector& MessageCollector();

}  // namespace qen
