// What the command queue asks of the registry of pages.
#pragma once

#include <cstdint>
#include <vector>

#include "commands/undo.h"
#include "engine/types.h"

namespace qen {

class IPageLists {
 public:
  virtual const std::vector<std::uint32_t>& ActivePages() const = 0;
  virtual String PageName(std::uint32_t page) const = 0;  // empty out of range
  virtual std::vector<CGuiUndo>& UndoStack() = 0;         // the last snapshot is at the back

 protected:
  IPageLists() = default;
  ~IPageLists() = default;
  IPageLists(const IPageLists&) = default;
  IPageLists& operator=(const IPageLists&) = default;
};

}  // namespace qen
