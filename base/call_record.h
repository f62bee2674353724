// Records calls into the engine: name and arguments, in order.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "engine/types.h"

namespace qen::base {

using CallArgument = std::variant<bool, std::int64_t, double, std::string>;  // texts in UTF-8; objects by their names

struct Call {
  std::string name;  // such as "ISceneMng::CreateScene"
  std::vector<CallArgument> arguments;
};

using CallSink = std::function<void(const Call&)>;

// While one lives, every call goes to its sink, which must not make or end taps; without any, recording costs nothing.
// Value types (maths, boxes, colours, strings) and plain look-ups are not recorded.
class QEN_API CallTap {
 public:
  explicit CallTap(CallSink sink);
  ~CallTap();
  CallTap(const CallTap&) = delete;
  CallTap& operator=(const CallTap&) = delete;

 private:
  friend void EmitCall(const Call& call);

  CallSink sink_;
};

}  // namespace qen::base
