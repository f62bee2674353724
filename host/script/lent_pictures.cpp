#include "host/script/lent_pictures.h"

#include <stdexcept>
#include <utility>

#include "base/utf.h"
#include "engine/gui_page_object.h"
#include "engine/resource.h"
#include "host/app/pages.h"

namespace qen::host {

void EndTextureUse::operator()(Texture* texture) const {
  if (TextureManager* textures = TextureManager::GetSingleton()) textures->Destroy(texture);
}

TextureUse LoadTexture(const String& file) {
  TextureUse texture(TextureManager::GetSingleton()->Load(file, kDefaultGroup, 0, 0));
  if (texture == nullptr) throw std::runtime_error("cannot load the picture " + base::ToUtf8(file));
  return texture;
}

void LentPictures::Show(ICGUIPicture& widget, TextureUse texture) {
  widget.SetTexture(texture.get());
  std::swap(shown_[&widget], texture);
  replaced_.push_back(std::move(texture));
}

void LentPictures::Fill(IGui& gui, std::uint32_t bag, BagEntries entries) {
  std::vector<IBagEntry*> listed;
  listed.reserve(entries.size());
  for (const auto& entry : entries) listed.push_back(entry.get());
  ICGUIPageObject& page = *gui.GetPage(bag);
  page.SetBagItems(std::move(listed));
  page.Pick(nullptr, 0, 0, 0, 0, 0);  // its slots show the new ones, also when it takes no input
  std::swap(bags_[bag], entries);
  for (const auto& entry : entries) {
    if (entry != nullptr) replaced_.push_back(std::move(entry->texture));
  }
}

bool LentPictures::IsFilled(std::uint32_t bag) const {
  const auto found = bags_.find(bag);
  return found != bags_.end() && !found->second.empty();
}

void LentPictures::TakeBack(IGui& gui) {
  for (const auto& [widget, texture] : shown_) {
    if (FindLiving(gui, widget) != nullptr) widget->SetTexture(nullptr);
  }
  for (const auto& [bag, entries] : bags_) {
    ICGUIPageObject* page = gui.GetPage(bag);
    if (page == nullptr || page->kind != page_kind::kBag) continue;
    page->SetBagItems({});
    page->Pick(nullptr, 0, 0, 0, 0, 0);
  }
  shown_.clear();
  bags_.clear();
  replaced_.clear();
}

}  // namespace qen::host
