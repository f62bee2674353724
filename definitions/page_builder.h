// What reading a page definition asks of the page.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/types.h"

namespace qen {

class ICGUIObject;

class IPageBuilder {
 public:
  virtual bool LoadScene(const String& file) = 0;
  virtual bool HasScene() const = 0;

  // Loads an animation into the scene; false when it cannot be loaded.
  virtual bool AddAnimation(const String& file) = 0;
  virtual void SetAnimIn(std::int32_t animation) = 0;
  virtual void SetAnimOut(std::int32_t animation) = 0;
  virtual void SetSound(std::int32_t kind, const String& file) = 0;  // sound_kind
  virtual void Build() = 0;                                          // the scene instance, then the widgets

  virtual const std::vector<ICGUIObject*>& Widgets() const = 0;

 protected:
  IPageBuilder() = default;
  ~IPageBuilder() = default;
  IPageBuilder(const IPageBuilder&) = default;
  IPageBuilder& operator=(const IPageBuilder&) = default;
};

}  // namespace qen
