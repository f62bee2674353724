// Strings and the export macro shared by every header of the engine library.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qen {

// All texts, names and file names are UTF-16 on every platform (binary compatible with wchar_t on Windows).
using Char = char16_t;
using String = std::u16string;
using StringView = std::u16string_view;

}  // namespace qen

#if defined(_WIN32) && defined(QEN_BASE_BUILD)
#define QEN_API __declspec(dllexport)
#elif defined(_WIN32)
#define QEN_API __declspec(dllimport)
#else
#define QEN_API __attribute__((visibility("default")))
#endif
