// Pictures that scripts put into the GUI.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "engine/bag_entry.h"
#include "engine/gui.h"
#include "engine/gui_widgets.h"
#include "engine/texture.h"
#include "engine/types.h"

namespace qen::host {

struct EndTextureUse {
  void operator()(Texture* texture) const;
};
using TextureUse = std::unique_ptr<Texture, EndTextureUse>;  // of the texture manager's

// Throws std::runtime_error, naming the file, when it cannot be loaded.
TextureUse LoadTexture(const String& file);

// A slot's content, as a script gives it.
struct ScriptBagEntry final : IBagEntry {
  std::uint32_t GetColor() override { return color; }
  Texture* GetTexture() override { return texture.get(); }

  std::uint32_t color = 0xFFFFFF;
  TextureUse texture;
};
using BagEntries = std::vector<std::unique_ptr<ScriptBagEntry>>;  // null stands for an empty place

// What is replaced stays loaded until EndFrame, since the last frame may show it still.
class LentPictures {
 public:
  void Show(ICGUIPicture& widget, TextureUse texture);  // null: the widget's own picture
  void Fill(IGui& gui, std::uint32_t bag, BagEntries entries);
  [[nodiscard]] bool IsFilled(std::uint32_t bag) const;

  void EndFrame() { replaced_.clear(); }

  // The GUI has its own pictures again, bags have no entries, and nothing stays loaded.
  void TakeBack(IGui& gui);

 private:
  std::map<ICGUIPicture*, TextureUse> shown_;  // the widgets may be gone
  std::map<std::uint32_t, BagEntries> bags_;   // by the numbers of their pages
  std::vector<TextureUse> replaced_;
};

}  // namespace qen::host
