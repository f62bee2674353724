// The GUI as the engine and its other modules see it.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "engine/font_desc.h"
#include "engine/object.h"
#include "engine/types.h"

namespace qen {

class Camera;
class ICGUIAnim;
class ICGUIObject;
class ICGUIPageObject;
class Viewport;
struct Matrix4x4;

// Text id (unsigned order) to words.
using TextTable = std::map<std::uint32_t, String>;

// Operations in a fixed order. A page index out of range, -1 included, finds nothing: null, empty, false. References
// and pointers stay valid as long as the GUI is; names and files are zero-terminated, null counts as empty.
class IGui : public Object {
 public:
  // False when the file cannot be read. False, too, when the last page, bag or style that it names is a style file too
  // short to be read (LoadStyle): all else is loaded then.
  virtual bool Load(const Char* descriptionFile, Camera* camera) = 0;
  virtual bool AddPage(const Char* pageFile, Camera* camera) = 0;  // true, also for a page that does not load
  virtual bool AddBagPage(const Char* bagFile, Camera* camera) = 0;
  virtual bool Update(std::uint32_t mouseState, Char key, std::uint32_t secondState) = 0;  // false without a viewport
  virtual bool FocusNext() = 0;                                                            // always true
  virtual bool FocusPrev() = 0;
  virtual void ClearUndo() = 0;
  virtual bool AddRenderPage(std::uint32_t page) = 0;  // these post page commands; always true
  virtual bool RemRenderPage(std::uint32_t page) = 0;
  virtual bool Render(Viewport* viewport) = 0;  // false without a viewport
  virtual bool SavePage(const Char* file, std::uint32_t page) = 0;
  virtual void Release() = 0;                                  // unloads every page; the GUI can be loaded again
  virtual void SetCursor(std::int32_t x, std::int32_t y) = 0;  // client pixels
  virtual void SetViewport(Viewport* viewport) = 0;            // not owned
  virtual void AddActivePage(std::uint32_t page) = 0;
  virtual void RemActivePage(std::uint32_t page) = 0;
  virtual void SetPage(std::uint32_t page) = 0;
  virtual std::vector<std::uint32_t>& GetActivePages() = 0;  // in the order of input
  virtual std::vector<std::uint32_t>& GetRenderPages() = 0;  // in the order of drawing
  virtual String GetPageName(std::uint32_t page) = 0;
  virtual String GetPageFile(std::uint32_t page) = 0;
  virtual std::uint32_t GetPageCount() = 0;
  virtual ICGUIPageObject* GetPage(std::uint32_t page) = 0;
  virtual std::vector<ICGUIObject*> GetPageItems(std::uint32_t page) = 0;
  virtual std::int32_t FindPage(String name) = 0;                  // first of exactly that name; -1 when none
  virtual std::vector<ICGUIObject*> FindObjects(String name) = 0;  // on all pages, in page and widget order
  virtual std::uint8_t SetQuiet(std::uint8_t quiet) = 0;           // page changes without animation and sound
  virtual std::vector<String> GetLanguages() = 0;
  virtual void SetLanguage(String language) = 0;
  virtual String GetLanguage() = 0;
  virtual TextTable GetTexts() = 0;
  virtual void SaveLanguage(String sourceFile) = 0;
  virtual bool IsTextTableEmpty() = 0;
  virtual String GetText(std::int32_t id) = 0;                             // "N/A" for an id without words
  virtual bool SetLanguageText(std::int32_t id, const String& words) = 0;  // false for an id without words
  virtual bool LoadStyle(const Char* file) = 0;
  virtual void SetTooltip(std::int32_t textId) = 0;
  virtual void CreateStyleResources() = 0;
  virtual void DrawTooltip(Viewport* viewport) = 0;
  virtual void SaveStyle() = 0;
  virtual std::uint32_t& GetStyleColor() = 0;  // 0xAABBGGRR
  virtual LOGFONTW& GetStyleFont() = 0;
  virtual String& GetStyleTexture() = 0;
  virtual std::vector<ICGUIAnim*>* GetPageAnims(std::uint32_t page) = 0;
  virtual double& GetFrameTime() = 0;  // seconds between the last two updates
  virtual bool IsActivePage(std::uint32_t page) = 0;
  virtual bool IsRenderPage(std::uint32_t page) = 0;
  virtual Matrix4x4* GetNodeMatrix(std::uint32_t page, const Char* node) = 0;
  virtual ICGUIObject* FindObject(std::uint32_t page, const Char* name) = 0;  // logs when the page has no such widget
  virtual void Reset() = 0;  // drops waiting commands and empties both page lists
  virtual Viewport* GetViewport() = 0;
};

}  // namespace qen
