#include "definitions/page_writer.h"

#include "definitions/item_writer.h"
#include "definitions/line_writer.h"
#include "definitions/style_reader.h"
#include "engine/gui_page_object.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"
#include "formats/definition_words.h"

namespace qen {
namespace {

namespace word = formats::word;

void WriteAnim(LineWriter& out, StringView keyword, const ICGUIPageObject& page, std::int32_t index) {
  const auto position = static_cast<std::size_t>(index);
  if (index >= 0 && position < page.anims.size()) out.Line(keyword, u" ", page.anims[position]->name);
}

void WriteSceneAndTransitions(LineWriter& out, const ICGUIPageObject& page) {
  out.Line(word::kName, u" ", page.name);
  WriteAnim(out, word::kAnimIn, page, page.animIn);
  WriteAnim(out, word::kAnimOut, page, page.animOut);
}

void WriteSounds(LineWriter& out, const PageSoundFiles& sounds) {
  struct Row {
    StringView keyword;
    const String& file;
  };
  for (const Row& row : {Row{word::kOnMouseWav, sounds.mouse}, Row{word::kOnClickWav, sounds.click},
                         Row{word::kOnAnimInWav, sounds.animIn}, Row{word::kOnAnimOutWav, sounds.animOut}}) {
    if (!row.file.empty()) out.Line(row.keyword, u" ", row.file);
  }
}

void WriteOtherAnims(LineWriter& out, const ICGUIPageObject& page) {
  for (const ICGUIAnim* anim : page.anims) {
    const bool transition = anim->animationIndex == page.animIn || anim->animationIndex == page.animOut;
    if (!transition) out.Line(word::kAnim, u" ", anim->name, u"\r\n");
  }
}

}  // namespace

String WritePage(ICGUIPageObject& page, const PageSoundFiles& sounds) {
  LineWriter out;
  WriteSceneAndTransitions(out, page);
  WriteSounds(out, sounds);
  WriteOtherAnims(out, page);
  for (ICGUIObject* widget : page.items) WriteItem(out, *widget);
  return out.Text();
}

String WriteBag(ICGUIPageObject& page) {
  LineWriter out;
  WriteSceneAndTransitions(out, page);
  WriteOtherAnims(out, page);
  for (ICGUIObject* widget : page.items) {
    auto* quad = dynamic_cast<ICGUIDummy*>(widget);
    if (quad != nullptr && widget->info->type == widget_type::kQuad) WriteSlot(out, *quad);
  }
  return out.Text();
}

String WriteStyle(const StyleSettings& style) {
  LineWriter out;
  out.Line(word::kTexture, u" ", style.texture);
  out.Line(word::kColorNormal, u"  ", Hex{style.color});
  out.Add(u"\n");
  WriteFont(out, style.font, u"");
  return out.Text();
}

}  // namespace qen
