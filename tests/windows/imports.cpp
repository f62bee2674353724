#include "tests/windows/imports.h"

#include <cstring>

namespace qen::test {
namespace {

template <class T>
T* At(HMODULE library, DWORD_PTR offset) {
  return reinterpret_cast<T*>(reinterpret_cast<char*>(library) + offset);
}

void* Exchange(ULONGLONG& entry, void* replacement) {
  void* const before = reinterpret_cast<void*>(entry);
  DWORD protection = 0;
  VirtualProtect(&entry, sizeof entry, PAGE_READWRITE, &protection);
  entry = reinterpret_cast<ULONGLONG>(replacement);
  VirtualProtect(&entry, sizeof entry, protection, &protection);
  return before;
}

}  // namespace

void* ReplaceImport(HMODULE library, const char* function, void* replacement) {
  const auto* dos = At<IMAGE_DOS_HEADER>(library, 0);
  const auto* headers = At<IMAGE_NT_HEADERS>(library, static_cast<DWORD_PTR>(dos->e_lfanew));
  const DWORD imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (const auto* from = At<IMAGE_IMPORT_DESCRIPTOR>(library, imports); from->Name != 0; ++from) {
    const auto* names = At<IMAGE_THUNK_DATA>(library, from->OriginalFirstThunk);
    auto* entries = At<IMAGE_THUNK_DATA>(library, from->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++entries) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      const auto* name = At<IMAGE_IMPORT_BY_NAME>(library, names->u1.AddressOfData);
      if (std::strcmp(name->Name, function) == 0) return Exchange(entries->u1.Function, replacement);
    }
  }
  return nullptr;
}

}  // namespace qen::test
