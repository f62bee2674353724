// Page and bag definitions: read onto widgets of a scene that stays, and written out.
#include <map>

#include "definitions/definition_text.h"
#include "definitions/page_builder.h"
#include "definitions/page_reader.h"
#include "definitions/page_writer.h"
#include "engine/string_converter.h"
#include "fuzz/stage.h"
#include "pages/node_index.h"
#include "widgets/button.h"
#include "widgets/check_button.h"
#include "widgets/list.h"
#include "widgets/picture.h"
#include "widgets/quad.h"
#include "widgets/slide_bar.h"
#include "widgets/text.h"

#ifndef FUZZ_FORMAT
#error "the build says which format the program tries: Page or Bag"
#endif

namespace qen::fuzz {
namespace {

constexpr PageFormat kFormat = PageFormat::FUZZ_FORMAT;
constexpr bool kIsBag = kFormat == PageFormat::Bag;

template <class Widget>
std::unique_ptr<ICGUIObject> Make(const IChildNodes& nodes) {
  return std::make_unique<Widget>(nodes);
}

const std::map<std::uint32_t, std::unique_ptr<ICGUIObject> (*)(const IChildNodes& nodes)> kMakers{
    {widget_type::kButton, Make<CGUIButton>},     {widget_type::kCheckButton, Make<CGUICheckButton>},
    {widget_type::kList, Make<CGUIList>},         {widget_type::kPicture, Make<CGUIPicture>},
    {widget_type::kSlideBar, Make<CGUISlideBar>}, {widget_type::kText, Make<CGUIText>},
    {widget_type::kQuad, Make<CGUIQuad>},
};

// Stands for the page: every scene is that of the page that is loaded, and only widgets that the definition names are
// made, since it cannot change others.
class DefinitionStage final : public Stage, private IPageBuilder {
 public:
  DefinitionStage();

  void Read(Input input);

 private:
  bool LoadScene(const String& file) override;
  bool HasScene() const override { return loaded_; }
  bool AddAnimation(const String& file) override { return !file.starts_with(u"none"); }
  void SetAnimIn(std::int32_t animation) override { page_->animIn = animation; }
  void SetAnimOut(std::int32_t animation) override { page_->animOut = animation; }
  void SetSound(std::int32_t kind, const String& file) override;
  void Build() override;
  const std::vector<ICGUIObject*>& Widgets() const override { return page_->items; }

  void Clear();

  ICGUIPageObject* page_;
  std::vector<ICGUIObject*> own_;  // the page's widgets, which tell of what kind there are some
  NodeIndex nodes_;
  String text_;  // of the definition, in lower case
  bool loaded_ = false;
  PageSoundFiles sounds_;
  std::vector<std::unique_ptr<ItemInfo>> records_;
  std::vector<std::unique_ptr<ICGUIObject>> widgets_;
};

DefinitionStage::DefinitionStage() {
  AddFiles(kIsBag ? u"bagname bag.txt" : u"name page.txt");
  Load();
  page_ = gui->GetPage(0);
  own_.swap(page_->items);
  nodes_.Build(*page_->scene);
  if (kIsBag) FillBags(2);
  Clear();
}

void DefinitionStage::Read(Input input) {
  SetFile(kPageFile, input);
  bool tooShort = false;
  const std::optional<String> text = LoadMarkedDefinitionText(kPageFile.data(), tooShort);
  if (text) {
    text_ = ttolowercase(*text);
    ReadPageHeader(*text, kFormat, *this);
    ReadPageItems(*text, *this);
    if (kIsBag) page_->Pick(nullptr, 0, 0, 0, 0, 0);
    kIsBag ? WriteBag(*page_) : WritePage(*page_, sounds_);
  }
  Clear();
}

bool DefinitionStage::LoadScene(const String& file) {
  page_->name = file;
  loaded_ = !file.empty();
  return loaded_;
}

void DefinitionStage::SetSound(std::int32_t kind, const String& file) {
  constexpr std::array kFields{&PageSoundFiles::click, &PageSoundFiles::mouse, &PageSoundFiles::animIn,
                               &PageSoundFiles::animOut};  // by sound_kind
  sounds_.*kFields.at(static_cast<std::size_t>(kind)) = file;
}

void DefinitionStage::Build() {
  if (!loaded_) return;
  for (ICGUIObject* own : own_) {
    if (text_.find(own->info->name) == String::npos) continue;
    ItemInfo& info = *records_.emplace_back(std::make_unique<ItemInfo>());
    info.name = own->info->name;
    info.type = own->info->type;
    info.visible = 1;
    ICGUIObject& widget = *widgets_.emplace_back(kMakers.at(info.type)(nodes_));
    widget.Create(page_, &info, &own->node);
    widget.GetId() = static_cast<std::int32_t>(page_->items.size());
    page_->items.push_back(&widget);
  }
}

void DefinitionStage::Clear() {
  for (const std::unique_ptr<ICGUIObject>& widget : widgets_) widget->Release();
  page_->items.clear();
  page_->animIn = page_->animOut = -1;
  page_->name.clear();
  widgets_.clear();
  records_.clear();
  sounds_ = {};
  text_.clear();
  loaded_ = false;
  ForgetRecords();
}

}  // namespace

void Try(Input input) { Kept<DefinitionStage>().Read(input); }

}  // namespace qen::fuzz
