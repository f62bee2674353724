// Keeps pages alive while their code runs.
#pragma once

#include "module/book.h"

namespace qen {

// While one exists, pages that are released are only retired; the last one unloads and deletes them.
class CGUIBook::Busy {
 public:
  explicit Busy(CGUIBook& book) : book_(book) { ++book_.busy_; }
  ~Busy() {
    if (book_.busy_ == 1) book_.DeleteRetired();
    --book_.busy_;
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  CGUIBook& book_;
};

}  // namespace qen
