// The main window and its cursor.
#pragma once

#include <cstdint>

namespace qen::base {

struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;
};

class IWindowBackend {
 public:
  virtual ~IWindowBackend() = default;
  virtual Point ClientSize() = 0;    // pixels
  virtual Point ClientOrigin() = 0;  // upper left pixel of the client area on the screen
  virtual Point Cursor() = 0;        // on the screen
  virtual void SetCursor(Point screen) = 0;
};

}  // namespace qen::base
