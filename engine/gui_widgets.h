// The kinds of widgets, each with the operations it adds, in a fixed order.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "engine/font_desc.h"
#include "engine/gui_object.h"
#include "engine/types.h"

namespace qen {

class Font;
class Texture;
struct BagRecord;

class QEN_API ICGUIButton : public ICGUIObject {};

class QEN_API ICGUICheckButton : public ICGUIObject {
 public:
  virtual ICGUIButton* GetCheckedButton() = 0;  // null when the widget has no such node
  virtual ICGUIButton* GetUncheckedButton() = 0;
};

class QEN_API ICGUISlideBar : public ICGUIObject {
 public:
  std::uint32_t wrap = 0;  // the step buttons go round at the ends
};

class QEN_API ICGUIText : public ICGUIObject {
 public:
  enum ColorIndex : std::uint8_t { kNormal, kSelect, kOnMouse, kDisabled, kShadow, kShadowOnMouse, kColorCount };
  using Colors = std::array<std::uint32_t, kColorCount>;  // 0x00BBGGRR

  virtual void RecreateFont() = 0;  // after a change of the font description
  virtual Colors& GetColors() = 0;
  virtual Font* GetFont() = 0;  // null when it could not be made
  virtual LOGFONTW& GetFontDesc() = 0;
  virtual std::int32_t& GetTextId() = 0;  // -1: the text's own string is shown
  virtual void SetTextId(std::int32_t id) = 0;
  virtual void SetNumber(std::int32_t number) = 0;

  // Both set the words: of the text's id in the language table when it has one, else its own string. Null is empty.
  // (Compilers that group overloads in the table of operations see them adjacent, so the order is the same everywhere
  // but between the two.)
  virtual void SetText(const Char* words) = 0;
  virtual void SetText(const char* words) = 0;

  virtual std::uint32_t& GetCentered() = 0;
  virtual std::uint32_t& GetEditable() = 0;
  virtual String& GetEditText() = 0;
  virtual std::int32_t& GetMaxChars() = 0;
  virtual float& GetShadowOffset() = 0;
  virtual void SetAlpha(std::uint32_t alpha) = 0;  // 0 to 255
};

// The 32 bits that say whether a list entry is selected. Assigning a new value to any of them is counted, so that a
// list knows without looking through its entries that nobody has selected another one.
class SelectedFlag {
 public:
  SelectedFlag() = default;
  SelectedFlag(const SelectedFlag&) = default;
  SelectedFlag& operator=(std::uint32_t value) {
    if (value != value_) CountChange();
    value_ = value;
    return *this;
  }
  SelectedFlag& operator=(const SelectedFlag& other) { return *this = other.value_; }
  operator std::uint32_t() const { return value_; }  // NOLINT(google-explicit-constructor): it is read as a number

  QEN_API static std::uint64_t ChangeCount();  // of all flags; never 0

 private:
  QEN_API static void CountChange();

  std::uint32_t value_ = 0;
};

static_assert(sizeof(SelectedFlag) == sizeof(std::uint32_t));

class QEN_API ICGUIItem : public ICGUIObject {
 public:
  // Copies what a list entry shows: name, display text, text id, comment id. Not its selection, owner or commands.
  ICGUIItem& operator=(const ICGUIItem& other);

  String name;
  String displayText;  // shown while the text id is -1
  std::int32_t textId = -1;
  std::int32_t commentId = -1;
  SelectedFlag selected;
  std::uint32_t userFlag = 0;  // for the game, like the next two
  std::array<String, 4> userTexts;
  std::array<std::uint32_t, 4> userNumbers{};
  ICGUIObject* owner = nullptr;  // the list
};

class QEN_API ICGUIList : public ICGUIObject {
 public:
  virtual void Clear() = 0;
  virtual void SelectItem(ICGUIItem* item) = 0;  // selects it alone and scrolls to it; dispatches nothing
  virtual std::vector<std::uint32_t>& GetSelectedIndices(std::vector<std::uint32_t>& indices) = 0;
  virtual std::uint32_t GetItemCount() = 0;
  virtual ICGUIItem* AddItem() = 0;  // new entries stay the list's
  virtual ICGUIItem* AddItemCopy(const ICGUIItem* source) = 0;
  virtual void RemoveItem(ICGUIItem* item) = 0;  // nothing for an item of another list
  virtual void RemoveItemAt(std::uint32_t index) = 0;
  virtual ICGUIItem* GetItem(std::uint32_t index) = 0;  // null out of range
};

class QEN_API ICGUIPicture : public ICGUIObject {
 public:
  virtual void SetTexture(Texture* texture) = 0;  // null: the picture's first texture again
};

class QEN_API ICGUIDummy : public ICGUIObject {
 public:
  virtual void LoadTexture() = 0;                              // after a change of the bag record's file name
  virtual void SetQuadTexture(Texture* texture) = 0;           // null: the loaded one
  virtual void SetColor(std::uint32_t color, bool reset) = 0;  // 0x00RRGGBB; reset: the default
  virtual BagRecord& GetBagRecord() = 0;
  virtual float& GetScale() = 0;
  virtual std::int32_t& GetAlpha() = 0;
  virtual std::int32_t& GetActive() = 0;
};

class QEN_API ICGUIAnim : public ICGUIObject {
 public:
  // `instance` refers to the page's field, so that the animation may be made before the instance is.
  virtual void Init(SimpleSceneInstance* const& instance, std::int32_t index, const String& name) = 0;
  virtual void Play(bool loop) = 0;
  virtual void SetFrame(float frame) = 0;
  virtual bool IsPlaying() = 0;
  virtual void Stop() = 0;
  virtual float GetProgress() = 0;  // 0 to 1; -1 when it cannot be said

  String name;
  std::int32_t animationIndex = -1;
  std::uint32_t playing = 0;  // asked to play, and not asked to stop since
};

}  // namespace qen
