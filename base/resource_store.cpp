#include "base/resource_store.h"

#include <algorithm>

#include "engine/string_converter.h"

namespace qen::base {

String FileKey(StringView name) {
  String key = ttolowercase(name);
  std::ranges::replace(key, u'\\', u'/');
  return key;
}

}  // namespace qen::base
