#include "pages/render_clients.h"

#include <algorithm>

#include "engine/render_client.h"

namespace qen {

void RenderClients::Add(RenderClient* client) {
  if (client != nullptr) list_.push_back(client);
}

bool RenderClients::Remove(RenderClient* client) {
  const auto found = std::find(list_.begin(), list_.end(), client);
  if (found == list_.end()) return false;
  const auto place = static_cast<std::size_t>(found - list_.begin());
  list_.erase(found);
  for (Pass* pass = innermost_; pass != nullptr; pass = pass->outer) {
    if (place < pass->next) --pass->next;
    if (place < pass->end) --pass->end;
  }
  return true;
}

void RenderClients::Clear() {
  list_.clear();
  for (Pass* pass = innermost_; pass != nullptr; pass = pass->outer) pass->end = 0;
}

void RenderClients::ForEach(void (RenderClient::*call)()) {
  // Put back also when a client throws.
  struct Nesting {
    Pass*& innermost;
    Pass pass;
    ~Nesting() { innermost = pass.outer; }
  };
  Nesting nesting{innermost_, {0, list_.size(), innermost_}};
  Pass& pass = nesting.pass;
  innermost_ = &pass;
  while (pass.next < std::min(pass.end, list_.size())) (list_[pass.next++]->*call)();
}

}  // namespace qen
