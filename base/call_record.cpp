#include "base/call_record.h"

#include <array>
#include <charconv>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/record.h"
#include "base/utf.h"

namespace qen::base {
namespace {

std::vector<const CallTap*>& Taps() {
  static std::vector<const CallTap*> taps;
  return taps;
}

std::unordered_map<const void*, String>& Names() {
  static std::unordered_map<const void*, String> names;
  return names;
}

template <class... Numbers>
CallArgument JoinNumbers(Numbers... numbers) {
  std::string text;
  const auto append = [&text](auto number) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    if (!text.empty()) text += ' ';
    text.append(digits.data(), end);
  };
  (append(numbers), ...);
  return text;
}

}  // namespace

CallTap::CallTap(CallSink sink) : sink_(std::move(sink)) {
  Taps().push_back(this);
  recording = true;
}

CallTap::~CallTap() {
  std::erase(Taps(), this);
  recording = !Taps().empty();
}

void EmitCall(const Call& call) {
  for (const CallTap* tap : Taps()) tap->sink_(call);
}

bool AreNamesKept() { return !Taps().empty(); }

void NameObject(const void* object, StringView name) {
  if (AreNamesKept()) Names()[object] = name;
}

void NameAlike(const void* object, const void* named) {
  const auto found = Names().find(named);
  if (found == Names().end()) return;
  const String name = found->second;
  Names()[object] = name;
}

void ForgetObject(const void* object) {
  if (!Names().empty()) Names().erase(object);
}

CallArgument ToArgument(StringView text) { return ToUtf8(text); }
CallArgument ToArgument(const Char* text) { return text == nullptr ? std::string() : ToUtf8(text); }
CallArgument ToArgument(const Resource* resource) {
  return resource == nullptr ? std::string() : ToUtf8(resource->GetName());
}

CallArgument ToArgument(Named object) {
  const auto name = Names().find(object.object);
  return name == Names().end() ? std::string() : ToUtf8(name->second);
}

CallArgument ToArgument(Color color) { return static_cast<std::int64_t>(color.argb); }
CallArgument ToArgument(const Vec3& vector) { return JoinNumbers(vector.x, vector.y, vector.z); }
CallArgument ToArgument(const Rect& rect) { return JoinNumbers(rect.left, rect.top, rect.right, rect.bottom); }
CallArgument ToArgument(const Matrix4x4& matrix) {
  const auto& m = matrix.m;
  return JoinNumbers(m[0][0], m[0][1], m[0][2], m[0][3], m[1][0], m[1][1], m[1][2], m[1][3], m[2][0], m[2][1], m[2][2],
                     m[2][3], m[3][0], m[3][1], m[3][2], m[3][3]);
}

}  // namespace qen::base
