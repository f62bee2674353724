// The GUI book: the registry of pages, and the one object through which the engine reaches the GUI.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "commands/page_lists.h"
#include "commands/undo.h"
#include "definitions/gui_description.h"
#include "engine/gui.h"
#include "engine/gui_message.h"
#include "engine/singleton.h"
#include "module/style.h"

namespace qen {

class PageBase;
class SimpleScene;

class CGUIBook final : public IGui, public Singleton<CGUIBook>, private IPageLists, private IGuiLoader {
 public:
  CGUIBook();
  ~CGUIBook() override;
  CGUIBook(const CGUIBook&) = delete;
  CGUIBook& operator=(const CGUIBook&) = delete;

  std::int32_t OnMessage(const Msg& message) override;
  bool Load(const Char* descriptionFile, Camera* camera) override;
  bool AddPage(const Char* pageFile, Camera* camera) override;
  bool AddBagPage(const Char* bagFile, Camera* camera) override;
  bool Update(std::uint32_t mouseState, Char key, std::uint32_t secondState) override;
  bool FocusNext() override;
  bool FocusPrev() override;
  void ClearUndo() override { undoStack_.clear(); }
  bool AddRenderPage(std::uint32_t page) override;
  bool RemRenderPage(std::uint32_t page) override;
  bool Render(Viewport* viewport) override;
  bool SavePage(const Char* file, std::uint32_t page) override;
  void Release() override;
  void SetCursor(std::int32_t x, std::int32_t y) override { cursor_ = {x, y}; }
  void SetViewport(Viewport* viewport) override { viewport_ = viewport; }
  void AddActivePage(std::uint32_t page) override;
  void RemActivePage(std::uint32_t page) override;
  void SetPage(std::uint32_t page) override;
  std::vector<std::uint32_t>& GetActivePages() override { return activePages_; }
  std::vector<std::uint32_t>& GetRenderPages() override { return renderPages_; }
  String GetPageName(std::uint32_t page) override { return PageName(page); }
  String GetPageFile(std::uint32_t page) override;
  std::uint32_t GetPageCount() override;
  ICGUIPageObject* GetPage(std::uint32_t page) override;
  std::vector<ICGUIObject*> GetPageItems(std::uint32_t page) override;
  std::int32_t FindPage(String name) override;
  std::vector<ICGUIObject*> FindObjects(String name) override;
  std::uint8_t SetQuiet(std::uint8_t quiet) override;
  std::vector<String> GetLanguages() override;
  void SetLanguage(String language) override;
  String GetLanguage() override { return language_; }
  TextTable GetTexts() override;
  void SaveLanguage(String sourceFile) override;
  bool IsTextTableEmpty() override;
  String GetText(std::int32_t id) override;
  bool SetLanguageText(std::int32_t id, const String& words) override;
  bool LoadStyle(const Char* file) override;
  void SetTooltip(std::int32_t textId) override;
  void CreateStyleResources() override;
  void DrawTooltip(Viewport* viewport) override;
  void SaveStyle() override;
  std::uint32_t& GetStyleColor() override { return style_.Settings().color; }
  LOGFONTW& GetStyleFont() override { return style_.Settings().font; }
  String& GetStyleTexture() override { return style_.Settings().texture; }
  std::vector<ICGUIAnim*>* GetPageAnims(std::uint32_t page) override;
  double& GetFrameTime() override { return frameTime_; }
  bool IsActivePage(std::uint32_t page) override;
  bool IsRenderPage(std::uint32_t page) override;
  Matrix4x4* GetNodeMatrix(std::uint32_t page, const Char* node) override;
  ICGUIObject* FindObject(std::uint32_t page, const Char* name) override;
  void Reset() override;
  Viewport* GetViewport() override { return viewport_; }

  [[nodiscard]] bool IsBusy() const;  // its code runs, or a page's, or a delivery that it began

 private:
  struct Cursor {
    std::int32_t x = 0;
    std::int32_t y = 0;
    friend bool operator==(const Cursor&, const Cursor&) = default;
  };

  // Keeps pages alive while their code runs, whatever it calls.
  class Busy;

  enum PageOperation : std::uint8_t { kSetPage, kAddRender, kRemRender, kAddActive, kRemActive };

  // Messages (book_messages.cpp).
  void HandleMessage(const Msg& message);
  void TakeCursor();
  void TakeWheel(std::int16_t amount);
  void TakeKey(Char key);
  void TakeFrame();
  void TakeRender(const Viewport* viewport);

  // Commands (book_commands.cpp).
  void CarryOut(GuiMessage& record);
  void AddRenderPageNamed(const String& name);
  void RemRenderPageNamed(const String& name);
  void AddActivePageNamed(const String& name);
  void RemActivePageNamed(const String& name);
  void CarryOutOnWidgets(GuiMessage& record);

  // Pages (book_pages.cpp).
  void Register(std::unique_ptr<PageBase> page, const Char* file, std::uint32_t kind, Camera* camera);
  [[nodiscard]] PageBase* PageAt(std::int64_t page) const;  // null out of range
  void PostPageCommand(PageOperation operation, std::uint32_t page);
  void DeleteRetired();
  std::vector<std::unique_ptr<PageBase>> TakeRetired();

  const std::vector<std::uint32_t>& ActivePages() const override { return activePages_; }
  String PageName(std::uint32_t page) const override;
  std::vector<CGuiUndo>& UndoStack() override { return undoStack_; }

  // Loading (book_loading.cpp).
  bool LoadPageFile(const String& file) override { return AddPage(file.c_str(), loadCamera_); }
  bool LoadBagFile(const String& file) override { return AddBagPage(file.c_str(), loadCamera_); }
  bool LoadStyleFile(const String& file) override { return LoadStyle(file.c_str()); }
  std::optional<String> LoadLanguage(const Char* descriptionFile);

  double frameTime_ = 0.0;  // seconds
  double lastTime_ = 0.0;
  bool ready_ = false;      // messages are handled
  double hoverTime_ = 0.0;  // seconds that the cursor has stayed still
  String tooltip_;
  String languageFile_;
  String language_;
  std::vector<SimpleScene*> scenes_;  // of the loaded pages
  std::vector<std::unique_ptr<PageBase>> pages_;
  std::vector<std::unique_ptr<PageBase>> retired_;  // released while busy, deleted afterwards
  std::vector<std::uint32_t> renderPages_;
  std::vector<std::uint32_t> activePages_;
  std::vector<CGuiUndo> undoStack_;
  Cursor cursor_;
  Cursor previousCursor_;
  Viewport* viewport_ = nullptr;
  Style style_;
  bool quiet_ = false;
  std::array<GuiMessage, 8> pageOperations_;  // scratch, one an operation
  Camera* loadCamera_ = nullptr;              // during Load
  int busy_ = 0;
};

}  // namespace qen
