// How the engine library reports its own calls to the call record. Internal.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>

#include "base/call_record.h"
#include "engine/color.h"
#include "engine/matrix.h"
#include "engine/rect.h"
#include "engine/resource.h"

namespace qen::base {

inline constinit bool recording = false;  // whether there is a sink; one thread drives the engine

inline bool IsRecording() { return recording; }

void EmitCall(const Call& call);

// Keeps calls that the engine makes itself out of the record.
class RecordPause {
 public:
  RecordPause() : was_(recording) { recording = false; }
  ~RecordPause() { recording = was_; }
  RecordPause(const RecordPause&) = delete;
  RecordPause& operator=(const RecordPause&) = delete;

 private:
  bool was_;
};

// Objects appear in the record under the names they were given while something was recorded; "" without one. Names are
// kept by address until forgotten.
void NameObject(const void* object, StringView name);
void NameAlike(const void* object, const void* named);  // under the name of another, if that has one
bool AreNamesKept();                                    // false: naming does nothing now
void ForgetObject(const void* object);

struct Named {
  const void* object;
};

template <std::same_as<bool> T>
CallArgument ToArgument(T value) {
  return value;
}
template <std::integral T>
requires(!std::same_as<T, bool>) CallArgument ToArgument(T value) { return static_cast<std::int64_t>(value); }
template <std::floating_point T>
CallArgument ToArgument(T value) {
  return static_cast<double>(value);
}
CallArgument ToArgument(StringView text);
CallArgument ToArgument(const Char* text);  // null is empty
CallArgument ToArgument(const Resource* resource);
CallArgument ToArgument(Named object);
CallArgument ToArgument(Color color);
CallArgument ToArgument(const Vec3& vector);  // these three as a text of numbers with blanks between them
CallArgument ToArgument(const Matrix4x4& matrix);
CallArgument ToArgument(const Rect& rect);

template <class... Arguments>
void Record(const char* name, const Arguments&... arguments) {
  if (IsRecording()) [[unlikely]]
    EmitCall({name, {ToArgument(arguments)...}});
}

}  // namespace qen::base
