// An ordinary page.
#pragma once

#include <memory>

#include "engine/scene_instance.h"
#include "pages/page_base.h"
#include "pages/page_sounds.h"
#include "pages/pick_ray.h"
#include "pages/render_clients.h"

namespace qen {

// Lit by one light of its own, picked with a ray through the cursor, with four interface sounds.
class CGUIPage final : public PageBase {
 public:
  CGUIPage();
  ~CGUIPage() override;

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

  [[nodiscard]] bool IsUnloading() const override { return unloading_; }
  void SetSound(std::int32_t soundKind, const String& file) override { sounds_.Set(soundKind, file); }

 private:
  // Before the first pick: past everything, also where a line counts in both directions.
  static constexpr PickLine kNoRay{{1.0e5F, 1.0e5F, -1.0e5F}, {0.0F, 0.0F, -1.0F}};

  std::unique_ptr<ICGUIObject> MakeWidget(Char letter) override;
  void SceneLoaded() override;
  void InstanceCreated() override;
  void WidgetCreated(ICGUIObject& widget) override;
  void FinishUnloading();
  bool StepFocus(std::int32_t step);
  [[nodiscard]] ICGUIObject* Focused() const;
  void PlaceCursorOnFocus(bool mirrored) const;  // mirrored: with the widget's depth negated

  std::unique_ptr<Light> light_;
  LightList lights_;       // the light, for drawing sub-scenes
  PickLine ray_ = kNoRay;  // of the last pick
  PageSounds sounds_;
  RenderClients clients_{renderClients};
  bool unloading_ = false;
};

}  // namespace qen
