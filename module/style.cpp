#include "module/style.h"

#include <utility>

#include "definitions/definition_text.h"
#include "engine/font.h"
#include "engine/texture.h"
#include "widgets/interface_resources.h"

namespace qen {
namespace {

template <class Manager, class Kept>
void GiveBack(Kept*& resource) {
  Manager* manager = Manager::GetSingleton();
  if (resource != nullptr && manager != nullptr) manager->Destroy(resource);
  resource = nullptr;
}

}  // namespace

Style::~Style() {
  forgotten_.push_back(resources_);
  GiveBackForgotten();
}

void Style::GiveBackForgotten() {
  params_.RemoveTexture(TEXTURE_SLOT_1);
  for (Resources& resources : forgotten_) Destroy(resources);
  forgotten_.clear();
}

void Style::Destroy(Resources& resources) {
  GiveBack<FontManager>(resources.font);
  GiveBack<MaterialManager>(resources.material);
  GiveBack<TextureManager>(resources.texture);
}

void Style::DestroyFont() { GiveBack<FontManager>(resources_.font); }

void Style::ForgetFile() {
  fileName_.clear();
  if (resources_.font != nullptr) forgotten_.push_back({.font = std::exchange(resources_.font, nullptr)});
}

bool Style::Load(const Char* file) {
  forgotten_.push_back(std::exchange(resources_, {}));
  // Before the new ones are made, or the texture manager would give the old picture again.
  GiveBackForgotten();
  fileName_ = file != nullptr ? file : u"";
  settings_.font = DefaultStyleFont();
  bool tooShort = false;
  const std::optional<String> text = LoadMarkedDefinitionText(fileName_.c_str(), tooShort);
  if (tooShort) return false;
  if (text) ReadStyle(*text, settings_);
  CreateResources();
  return true;
}

void Style::CreateResources() {
  if (!IsNamed()) return;
  GiveBack<FontManager>(resources_.font);
  if (FontManager* fonts = FontManager::GetSingleton()) {
    const LOGFONTW& font = settings_.font;
    resources_.font =
        fonts->CreateEx(font.lfFaceName, font.lfHeight, font.lfWidth, font.lfWeight, font.IsItalic(), 1, kDefaultGroup);
  }
  GiveBack<MaterialManager>(resources_.material);
  if (MaterialManager* materials = MaterialManager::GetSingleton())
    resources_.material = materials->Create(interface_resources::kMaterial, kDefaultGroup);
  params_.RemoveTexture(TEXTURE_SLOT_1);
  GiveBack<TextureManager>(resources_.texture);
  TextureManager* textures = TextureManager::GetSingleton();
  if (textures != nullptr)
    resources_.texture = textures->Load(settings_.texture, kDefaultGroup, 0, interface_resources::kTextureFlags);
  if (resources_.texture != nullptr) params_.AddTexture(TEXTURE_SLOT_1, resources_.texture);
}

}  // namespace qen
