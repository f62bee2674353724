// Something that other code hangs on a page to be drawn with it.
#pragma once

#include "engine/types.h"

namespace qen {

// Not owned by the page. Must stay alive until it is unregistered or detached.
class RenderClient {
 public:
  virtual void Draw() = 0;       // after the page's scene, each time the page is drawn
  virtual void Detach() = 0;     // the page is unloading and forgets the client
  virtual String GetName() = 0;  // for the log

 protected:
  RenderClient() = default;
  ~RenderClient() = default;
  RenderClient(const RenderClient&) = default;
  RenderClient& operator=(const RenderClient&) = default;
};

}  // namespace qen
