// The objects that a game hangs on a page to be drawn with it.
#pragma once

#include <cstddef>
#include <vector>

namespace qen {

class RenderClient;

// Works on the page's own list, whose clients are the game's. Clients may come and go while all are called.
class RenderClients {
 public:
  explicit RenderClients(std::vector<RenderClient*>& list) : list_(list) {}
  RenderClients(const RenderClients&) = delete;
  RenderClients& operator=(const RenderClients&) = delete;

  void Add(RenderClient* client);     // null is ignored
  bool Remove(RenderClient* client);  // its first place in the list; false when it has none
  void Clear();

  // Calls every client once for each of its places in the list, in order, but for those that are removed before their
  // turn. Those that are added meanwhile wait for the next pass.
  void ForEach(void (RenderClient::*call)());

 private:
  // One pass over the list; passes may be nested.
  struct Pass {
    std::size_t next = 0;
    std::size_t end = 0;
    Pass* outer = nullptr;
  };

  std::vector<RenderClient*>& list_;
  Pass* innermost_ = nullptr;
};

}  // namespace qen
