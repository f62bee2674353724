// What the book's own overlay is drawn with.
#pragma once

#include <vector>

#include "definitions/style_reader.h"
#include "engine/material.h"

namespace qen {

class Font;
class Texture;

// Settings from the style file, and the engine's resources made from them. A style without a file name of two
// characters has no resources.
class Style {
 public:
  Style() = default;
  ~Style();
  Style(const Style&) = delete;
  Style& operator=(const Style&) = delete;

  // Reads a style file over the defaults and makes the resources. False, without resources, for a file of less than
  // three bytes; a file that cannot be read gives the defaults.
  bool Load(const Char* file);
  void CreateResources();

  void ForgetFile();  // no style any more: nothing is drawn or saved
  void DestroyFont();

  [[nodiscard]] bool IsNamed() const { return fileName_.size() >= 2; }
  [[nodiscard]] const String& FileName() const { return fileName_; }
  StyleSettings& Settings() { return settings_; }
  [[nodiscard]] Font* GetFont() const { return resources_.font; }
  [[nodiscard]] Material* GetMaterial() const { return resources_.material; }
  [[nodiscard]] const MaterialParams& GetMaterialParams() const { return params_; }

 private:
  // Uses of the managers' resources.
  struct Resources {
    Font* font = nullptr;
    Material* material = nullptr;
    Texture* texture = nullptr;
  };

  static void Destroy(Resources& resources);
  void GiveBackForgotten();

  String fileName_;
  StyleSettings settings_;
  Resources resources_;
  std::vector<Resources> forgotten_;  // given back by the next loading
  MaterialParams params_;
};

}  // namespace qen
