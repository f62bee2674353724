// A text: words drawn in the plane of a node.
#pragma once

#include <memory>

#include "commands/live_objects.h"
#include "engine/color.h"
#include "engine/gui_widgets.h"
#include "engine/matrix.h"
#include "widgets/node_hook.h"

namespace qen {

class CGUISlideBar;
class Drawing;
class IChildNodes;
struct Rect;

// Drawn in the box of its child "normal", or unclipped at its own node. With a child "slidery" it scrolls; editable, it
// shows and edits its own buffer. Without a node it only holds a font and colours, for lists.
class CGUIText : public ICGUIText {
 public:
  explicit CGUIText(const IChildNodes& nodes);
  ~CGUIText() override;

  void Create(ICGUIPageObject* page, ItemInfo* info, TMNode* const* node) override;
  PickResult* Update(const Ray& ray) override;
  void Render(const Matrix4x4& world, const AABB& box) override;
  void Release() override;
  void ShowNodes(std::uint32_t shown) override;

  void RecreateFont() override;
  Colors& GetColors() override { return colors_; }
  Font* GetFont() override { return font_; }
  LOGFONTW& GetFontDesc() override { return fontDesc_; }
  std::int32_t& GetTextId() override { return textId_; }
  void SetTextId(std::int32_t newId) override { textId_ = newId; }
  void SetNumber(std::int32_t number) override;
  void SetText(const Char* words) override;
  void SetText(const char* words) override;  // one character a byte
  std::uint32_t& GetCentered() override { return centered_; }
  std::uint32_t& GetEditable() override { return editable_; }
  String& GetEditText() override { return Edited().text; }
  std::int32_t& GetMaxChars() override { return maxChars_; }
  float& GetShadowOffset() override { return shadowOffset_; }
  void SetAlpha(std::uint32_t alpha) override { alpha_ = alpha << 24U; }

  // Height of a line in world units; 0 without a font.
  [[nodiscard]] float LineHeight() const;

  [[nodiscard]] bool HasShadow() const;
  // Where the shadow of words on that matrix lies.
  [[nodiscard]] Matrix4x4 ShadowMatrix(const Matrix4x4& words) const;

 private:
  struct EditedText {
    String text;
    String shown;  // the same with its caret
  };

  // Where the words begin, in the plane of the node: a matrix that moves there.
  struct Origin {
    float x = 0.0F;
    float y = 0.0F;

    operator Matrix4x4() const {  // NOLINT(google-explicit-constructor): it stands for the matrix
      Matrix4x4 matrix = Matrix4x4::Identity;
      matrix.SetTranslation({x, y, 0.0F});
      return matrix;
    }
  };

  EditedText& Edited();
  void BindLayoutBox();
  void DestroyFont();
  void StoreText(const String& words);
  void TakeKey();
  const String& ShownText();
  void DrawWords(Drawing& drawing, const Matrix4x4& matrix, const Rect& area, std::uint32_t format,
                 const String& words) const;
  void UpdateScrollRange(Drawing& drawing, const AABB& box, std::uint32_t format, const String& words);
  [[nodiscard]] Color Opaque(std::uint32_t abgr) const;

  LiveMark alive_{static_cast<ICGUIObject*>(this)};
  const IChildNodes& nodes_;
  NodeHook hook_;
  Colors colors_{};
  LOGFONTW fontDesc_;
  std::uint32_t alpha_ = 0xFF000000U;
  Font* font_ = nullptr;  // a use of the font manager's
  std::int32_t textId_ = -1;
  std::uint32_t format_ = 0;
  std::uint32_t centered_ = 0;
  std::uint32_t editable_ = 0;
  String ownText_;
  std::unique_ptr<EditedText> edited_;  // made when it is asked for: most texts are not edited
  std::int32_t maxChars_ = 16;
  float shadowOffset_ = 0.0F;
  std::unique_ptr<CGUISlideBar> slideBar_;
  Origin textMatrix_;
};

}  // namespace qen
