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
  }
  return true;
}

void RenderClients::ForEach(void (RenderClient::*call)()) {
  // Put back also when a client throws.
  struct Nesting {
    Pass*& innermost;
    Pass pass{0, innermost};
    ~Nesting() { innermost = pass.outer; }
  };
  Nesting nesting{innermost_};
  innermost_ = &nesting.pass;
  while (nesting.pass.next < list_.size()) (list_[nesting.pass.next++]->*call)();
}

}  // namespace qen
