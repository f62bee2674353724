// Reads the root of all definitions: names of the language file, the pages, the bag page and the style.
#pragma once

#include "engine/types.h"

namespace qen {

class IGuiLoader {
 public:
  virtual bool LoadPageFile(const String& file) = 0;
  virtual bool LoadBagFile(const String& file) = 0;
  virtual bool LoadStyleFile(const String& file) = 0;

 protected:
  IGuiLoader() = default;
  ~IGuiLoader() = default;
  IGuiLoader(const IGuiLoader&) = default;
  IGuiLoader& operator=(const IGuiLoader&) = default;
};

// The last "lang" value of the description; `file` unchanged when there is none.
void ReadLanguageFileName(const String& text, String& file);

// Loads what the description names, in its order. The result of the last load, true when there was none.
bool LoadNamedFiles(const String& text, IGuiLoader& loader);

}  // namespace qen
