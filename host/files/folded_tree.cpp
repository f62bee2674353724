#include "host/files/folded_tree.h"

#include <physfs.h>

#include <memory>

#include "base/utf.h"
#include "engine/string_converter.h"

namespace qen::host {
namespace {

constexpr std::chrono::seconds kListAgainAfter{1};

struct FreeList {
  void operator()(char** list) const { PHYSFS_freeList(list); }
};

void AddEntries(const std::string& place, std::unordered_map<String, std::vector<std::string>>& entries) {
  const std::unique_ptr<char*, FreeList> list(PHYSFS_enumerateFiles(place.c_str()));
  if (list == nullptr) return;
  for (char** name = list.get(); *name != nullptr; ++name) {
    entries[ttolowercase(base::ToUtf16(*name))].push_back(place + '/' + *name);
  }
}

}  // namespace

std::string FoldedTree::ExactPath(std::span<const String> parts) const {
  std::string path = root_;
  for (const String& part : parts) path += '/' + base::ToUtf8(part);
  return path;
}

std::vector<std::string> FoldedTree::Find(std::span<const String> parts) {
  Paths places{root_};
  String key;
  for (const String& part : parts) {
    const String name = ttolowercase(part);
    const Paths* found = FindEntry(key, places, name);
    if (found == nullptr) return {};
    places = *found;
    key += u'/' + name;
  }
  return places;
}

const FoldedTree::Paths* FoldedTree::FindEntry(const String& key, const Paths& places, const String& name) {
  Folder& folder = folders_[key];
  const auto now = Clock::now();
  const bool isNew = folder.listed == Clock::time_point{};
  auto found = folder.entries.find(name);
  if (found == folder.entries.end() && (isNew || now - folder.listed >= kListAgainAfter)) {
    folder.entries.clear();
    for (const std::string& place : places) AddEntries(place, folder.entries);
    folder.listed = now;
    found = folder.entries.find(name);
  }
  return found == folder.entries.end() ? nullptr : &found->second;
}

}  // namespace qen::host
