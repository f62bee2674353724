// A GUI as its files tell it: pages with the outlines of their scenes, languages, style.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "analysis/source.h"
#include "base/backends/scene_backend.h"
#include "engine/aabb.h"
#include "engine/matrix.h"

namespace qen::analysis {

struct Node {
  String name;
  std::size_t parent = formats::kNone;
  std::vector<std::size_t> children = {};
  base::Pose pose;               // in the file's space, relative to the parent
  Matrix4x4 world;               // from the local space of the node's mesh
  std::optional<AABB> box = {};  // local, of its mesh
};

// A scene without its meshes.
struct SceneOutline {
  std::vector<Node> nodes;                     // parents before children
  std::optional<std::array<float, 3>> camera;  // of the node "Camera01"

  // The first child whose name begins with the word, letter case aside, as the module looks for it; none without one.
  [[nodiscard]] std::size_t FindChild(std::size_t parent, StringView word) const;
};

struct Widget {
  String name;  // as the module calls it: in lower case
  Char letter;  // which kind
  std::size_t node = 0;
  std::vector<std::size_t> blocks;  // item blocks of the page's file
};

// What a key of the header names.
struct NamedFile {
  std::size_t statement = 0;  // of the page's file
  String file;
};

struct Page {
  std::unique_ptr<Source> source = {};
  bool isBag = false;
  std::size_t statement = 0;               // of the description, that names it
  std::size_t nameToken = formats::kNone;  // of the page's file: its scene
  String sceneFile = {};                   // as it is written
  String name = {};                        // by which commands know it
  bool hasScene = false;
  SceneOutline scene = {};
  std::vector<Widget> widgets = {};
  std::unordered_map<String, std::size_t> widgetsByName = {};  // the first of each name
  std::vector<std::size_t> items = {};                         // item blocks, in their order
};

struct Language {
  String name;
  std::size_t section = 0;                              // token of the language file: its first name
  std::unordered_map<std::int32_t, std::size_t> texts;  // by id, the first entry of each
};

struct WidgetPlace {
  std::size_t page = 0;
  std::size_t widget = 0;
};

struct Gui {
  std::unique_ptr<Source> description;
  std::vector<Page> pages;  // those whose files can be read, in their order
  std::unique_ptr<Source> languageFile;
  bool hasLanguageStatement = false;  // the description names one, which may be missing
  std::vector<Language> languages;    // in their order, each name once
  std::unique_ptr<Source> style;
  std::unordered_map<String, std::size_t> pagesByName;  // the first of each name
  std::unordered_map<String, std::vector<WidgetPlace>> widgetsByName;

  [[nodiscard]] const Widget& At(const WidgetPlace& place) const { return pages[place.page].widgets[place.widget]; }
};

// Whether every page that the description names is there, with its scene; else names that are not found prove nothing.
bool IsComplete(const Gui& gui);

// The name of the page whose scene is written so: what is behind the last backslash.
StringView PageNameOf(StringView sceneFile);

SceneOutline OutlineOf(const base::SceneData& scene);

// Finds the page's widgets in its outline, and their blocks in its file.
void FindWidgets(Page& page);

}  // namespace qen::analysis
