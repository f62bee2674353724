// The names under which a page's scene is known to the scene manager.
#pragma once

#include "engine/types.h"

namespace qen {

class ISceneUser {
 public:
  virtual void LoseScene() = 0;  // the scene manager's scene and its instances are gone

 protected:
  ISceneUser() = default;
  ~ISceneUser() = default;
  ISceneUser(const ISceneUser&) = default;
  ISceneUser& operator=(const ISceneUser&) = default;
};

// Pages whose scene files have the same base name share the names, and the last one loaded has the scene. Whoever had
// it before is told.
class SceneNames {
 public:
  // Takes the names from a scene file name and makes `user` their holder.
  void Claim(const String& file, ISceneUser& user);

  // Gives the names up, if `user` holds them.
  void Release(const ISceneUser& user);

  [[nodiscard]] bool AreAnothers(const ISceneUser& user) const;  // another page has taken them since

  [[nodiscard]] const String& BaseName() const { return baseName_; }  // behind the last backslash
  [[nodiscard]] const String& GuiScene() const { return guiScene_; }  // of the loaded scene
  [[nodiscard]] const String& Scene() const { return scene_; }        // of the scene that instance and light are put in

 private:
  String baseName_;
  String guiScene_ = u"_gui";
  String scene_ = u"_scene";
};

}  // namespace qen
