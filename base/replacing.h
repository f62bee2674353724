// The steps of replacing a file that each system has its own way for. Internal.
#pragma once

#include <cstddef>
#include <cstdio>
#include <filesystem>

namespace qen::base {

std::FILE* OpenNamed(const std::filesystem::path& path, const char* mode);  // null on failure

// For writing; null with errno EEXIST when there is a file of that name, null when there can be none.
std::FILE* MakeNew(const std::filesystem::path& path);

// What a link leads to, also when that is not there yet, so that the link stays one; else the path itself.
std::filesystem::path BehindLinks(const std::filesystem::path& path);

enum class Present { Nothing, Replaceable, Fixed };  // fixed: read-only, or no file
Present WhatIsAt(const std::filesystem::path& path);

// Gives a file that is being written the owner and the permissions of another, as far as they can be set. False when
// it would be open to more people.
bool KeepAccess(std::FILE* file, const std::filesystem::path& path, const std::filesystem::path& like);

bool Truncate(std::FILE* file, std::size_t size);  // flushed before
bool SyncToDisk(std::FILE* file);
bool MoveOver(const std::filesystem::path& from, const std::filesystem::path& to);  // lasting, as far as can be
void Remove(const std::filesystem::path& path);

}  // namespace qen::base
