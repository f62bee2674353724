#include "base/file_paths.h"
#include "base/record.h"
#include "base/whole_file.h"
#include "engine/platform.h"

namespace qen::platform {

bool SaveWholeFile(const Char* file, const void* bytes, std::size_t size) {
  base::Record("SaveWholeFile", file, size);
  if (file == nullptr || *file == u'\0') return false;
  base::WholeFile whole(base::ResolvePath(file));
  return whole.Write(bytes, size) && whole.PutInPlace();
}

}  // namespace qen::platform
