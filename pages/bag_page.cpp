#include "pages/bag_page.h"

#include <algorithm>
#include <utility>

#include "definitions/definition_file.h"
#include "definitions/definition_text.h"
#include "definitions/page_reader.h"
#include "definitions/page_writer.h"
#include "engine/bag_entry.h"
#include "engine/ray.h"
#include "engine/viewport.h"
#include "formats/backup.h"
#include "pages/page_renderer.h"
#include "widgets/quad.h"

namespace qen {
namespace {

constexpr std::int32_t kSceneLine = 196;  // of this class in the engine's log

std::int32_t nextQuadId = 0;  // shared by all bag pages, never reset

ICGUIDummy& Slot(ICGUIObject* widget) { return *static_cast<ICGUIDummy*>(widget); }

void ShowDefaults(ICGUIObject* widget) {
  Slot(widget).SetColor(0, true);
  Slot(widget).SetQuadTexture(nullptr);
}

bool HasLowerId(ICGUIObject* a, ICGUIObject* b) { return a->GetId() < b->GetId(); }

// Every pair that is out of order changes places. Where quads that share an id then stand differs from what other ways
// of sorting give, and is what bags are laid out by.
void ExchangePairs(std::vector<ICGUIObject*>& slots) {
  for (auto slot = slots.begin(); slot != slots.end(); ++slot) {
    for (auto later = slot + 1; later != slots.end(); ++later) {
      if (HasLowerId(*later, *slot)) std::swap(*later, *slot);
    }
  }
}

}  // namespace

CGUIBagPage::CGUIBagPage() : PageBase("CGUIBagPage", kSceneLine) {}

SimpleScene* CGUIBagPage::LoadPage(const Char* file, std::uint32_t newKind) {
  ResetForLoading(file, newKind);
  bool tooShort = false;
  const std::optional<String> text = LoadMarkedDefinitionText(fileName.c_str(), tooShort);
  if (!text && !tooShort) return scene;
  if (scene != nullptr) Unload();
  if (tooShort) return nullptr;
  ReadPageHeader(*text, PageFormat::Bag, *this);
  ReadPageItems(*text, *this);
  return scene;
}

std::unique_ptr<ICGUIObject> CGUIBagPage::MakeWidget(Char letter) {
  return letter == widget_type::kQuad ? std::make_unique<CGUIQuad>(Nodes()) : nullptr;
}

void CGUIBagPage::WidgetCreated(ICGUIObject& widget) {
  Slot(&widget).GetBagRecord().size = slotHalfSize_.data();
  widget.GetId() = nextQuadId++;
}

PickResult* CGUIBagPage::Pick(Viewport* /*viewport*/, std::uint32_t /*x*/, std::uint32_t /*y*/,
                              std::uint32_t /*buttonA*/, std::uint32_t /*buttonB*/, Char /*key*/) {
  if (!entries_.empty()) {
    SortSlots();
    CountSlots();
  }
  LayOutEntries();
  for (ICGUIObject* slot : items) slot->Update(Ray{});
  return nullptr;
}

void CGUIBagPage::SortSlots() {
  if (std::is_sorted(items.begin(), items.end(), HasLowerId)) return;
  const std::vector<ICGUIObject*> unsorted = items;
  std::sort(items.begin(), items.end(), HasLowerId);
  const auto sameId = [](ICGUIObject* a, ICGUIObject* b) { return a->GetId() == b->GetId(); };
  if (std::adjacent_find(items.begin(), items.end(), sameId) != items.end()) {
    items = unsorted;
    ExchangePairs(items);
  }
}

void CGUIBagPage::CountSlots() { slotCount = static_cast<std::int32_t>(std::max(items.size(), entries_.size())); }

std::int64_t CGUIBagPage::FirstActiveSlot() const {
  const auto found =
      std::find_if(items.begin(), items.end(), [](ICGUIObject* slot) { return Slot(slot).GetActive() != 0; });
  return found != items.end() ? found - items.begin() : -1;
}

IBagEntry* CGUIBagPage::EntryAt(std::int64_t index) const {
  const auto position = static_cast<std::size_t>(index);
  return index >= 0 && position < entries_.size() ? entries_[position] : nullptr;
}

// The game's entries are asked for what they show and may change the list or the page by that.
void CGUIBagPage::LayOutEntries() {
  const std::int64_t first = FirstActiveSlot();
  std::int64_t shown = focusIndex - first;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (shown >= slotCount) shown -= slotCount;
    if (shown < 0) shown += slotCount;
    ShowDefaults(items[i]);
    if (IBagEntry* entry = first >= 0 ? EntryAt(shown) : nullptr) {
      const std::uint32_t color = entry->GetColor();
      Texture* texture = entry->GetTexture();
      if (i >= items.size()) return;
      Slot(items[i]).SetColor(color, false);
      Slot(items[i]).SetQuadTexture(texture);
    }
    ++shown;
  }
}

void CGUIBagPage::Render(Viewport* viewport) {
  if (viewport != nullptr) PageRenderer(*this, *viewport, WidgetDrawing::ByWidget, {}).Draw();
}

bool CGUIBagPage::Save(const Char* file) {
  const String path = ResolvePath(file != nullptr ? file : u"");
  formats::MakeBackup(path);
  return WriteDefinitionFile(path, WriteBag(*this));
}

void CGUIBagPage::Unload() {
  ReleaseWidgets();
  ReleaseAnimations();
  DestroySceneEntries();
  DeleteScene();
}

void CGUIBagPage::SetBagItems(std::vector<IBagEntry*> entries) {
  entries_ = std::move(entries);
  CountSlots();
  focusIndex = entries_.empty() ? 0 : focusIndex % static_cast<std::int32_t>(entries_.size());
}

IBagEntry* CGUIBagPage::GetSelectedBagItem() { return EntryAt(focusIndex); }

bool CGUIBagPage::StepFocus(std::int32_t step) {
  const auto count = static_cast<std::int64_t>(entries_.size());
  if (count > 0) focusIndex = static_cast<std::int32_t>((focusIndex + step + count) % count);
  return true;
}

bool CGUIBagPage::FocusNext() { return StepFocus(-1); }

bool CGUIBagPage::FocusPrev() { return StepFocus(1); }

void CGUIBagPage::PlaySound(const void* /*object*/, std::int32_t /*kind*/) {}

void CGUIBagPage::RegisterRenderObject(RenderClient* /*client*/) {}

void CGUIBagPage::UnregisterRenderObject(RenderClient* /*client*/) {}

void CGUIBagPage::SetSound(std::int32_t /*kind*/, const String& /*file*/) {}

}  // namespace qen
