// Where the renderer's complaints go.
#pragma once

#include <functional>
#include <string_view>

namespace qen::host {

using ErrorSink = std::function<void(std::string_view line)>;

// While it lives, hands the driver's messages to `sink` at the very call that causes them, where the context was made
// for debugging; elsewhere does nothing.
class DriverMessages {
 public:
  explicit DriverMessages(const ErrorSink& sink);  // must outlive this
  ~DriverMessages();
  DriverMessages(const DriverMessages&) = delete;
  DriverMessages& operator=(const DriverMessages&) = delete;

 private:
  bool on_;
};

// Reports what went wrong since the last call, once for all of it. `previous` holds the last error reported, so that
// one that comes every frame is told once.
void ReportErrors(const ErrorSink& sink, unsigned& previous);

}  // namespace qen::host
