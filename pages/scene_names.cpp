#include "pages/scene_names.h"

#include <unordered_map>

namespace qen {
namespace {

std::unordered_map<String, ISceneUser*>& Holders() {
  static std::unordered_map<String, ISceneUser*> holders;
  return holders;
}

}  // namespace

void SceneNames::Claim(const String& file, ISceneUser& user) {
  baseName_ = file.substr(file.rfind(u'\\') + 1);
  guiScene_ = baseName_ + u"_gui";
  scene_ = baseName_ + u"_scene";
  ISceneUser*& holder = Holders()[baseName_];
  if (holder != nullptr && holder != &user) holder->LoseScene();
  holder = &user;
}

void SceneNames::Release(const ISceneUser& user) {
  const auto found = Holders().find(baseName_);
  if (found != Holders().end() && found->second == &user) Holders().erase(found);
}

bool SceneNames::AreAnothers(const ISceneUser& user) const {
  const auto found = Holders().find(baseName_);
  return found != Holders().end() && found->second != &user;
}

}  // namespace qen
