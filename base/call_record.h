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

// Every call from now on goes to the sink; null ends the recording, which costs nothing then. Value types (maths,
// boxes, colours, strings) and plain look-ups are not recorded.
QEN_API void SetCallSink(CallSink sink);

}  // namespace qen::base
