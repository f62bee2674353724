// The inventory page: a ring of slots that shows the game's entries.
#pragma once

#include <array>

#include "pages/page_base.h"

namespace qen {

class ICGUIDummy;

// Without light, sounds, picking and render clients. All its widgets are quads. The entry at the focus index is shown
// in the first active slot, the others in the slots behind it, round the ring; without an active slot, none is.
class CGUIBagPage final : public PageBase {
 public:
  CGUIBagPage();

  SimpleScene* LoadPage(const Char* file, std::uint32_t kind) override;
  PickResult* Pick(Viewport* viewport, std::uint32_t x, std::uint32_t y, std::uint32_t buttonA, std::uint32_t buttonB,
                   Char key) override;
  void Render(Viewport* viewport) override;
  bool Save(const Char* file) override;
  void Unload() override;
  bool FocusNext() override;
  bool FocusPrev() override;
  void SetBagItems(std::vector<IBagEntry*> entries) override;
  IBagEntry* GetSelectedBagItem() override;
  void PlaySound(const void* object, std::int32_t kind) override;
  void RegisterRenderObject(RenderClient* client) override;
  void UnregisterRenderObject(RenderClient* client) override;
  void SetSound(std::int32_t kind, const String& file) override;

 private:
  std::unique_ptr<ICGUIObject> MakeWidget(Char letter) override;
  void WidgetCreated(ICGUIObject& widget) override;
  void SortSlots();
  void CountSlots();
  void LayOutEntries();
  bool StepFocus(std::int32_t step);
  [[nodiscard]] std::int64_t FirstActiveSlot() const;  // -1 when there is none
  [[nodiscard]] IBagEntry* EntryAt(std::int64_t index) const;

  std::vector<IBagEntry*> entries_;  // the game's; may hold nulls
  std::array<float, 2> slotHalfSize_{4.0F, 4.0F};
};

}  // namespace qen
