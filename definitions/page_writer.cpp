#include "definitions/page_writer.h"

#include "definitions/item_writer.h"
#include "definitions/line_writer.h"
#include "definitions/style_reader.h"
#include "engine/gui_page_object.h"
#include "engine/gui_widgets.h"
#include "engine/item_info.h"

namespace qen {
namespace {

void WriteAnim(LineWriter& out, StringView keyword, const ICGUIPageObject& page, std::int32_t index) {
  const auto position = static_cast<std::size_t>(index);
  if (index >= 0 && position < page.anims.size()) out.Line(keyword, page.anims[position]->name);
}

void WriteSceneAndTransitions(LineWriter& out, const ICGUIPageObject& page) {
  out.Line(u"name ", page.name);
  WriteAnim(out, u"anim_in ", page, page.animIn);
  WriteAnim(out, u"anim_out ", page, page.animOut);
}

void WriteSounds(LineWriter& out, const PageSoundFiles& sounds) {
  struct Row {
    StringView keyword;
    const String& file;
  };
  for (const Row& row : {Row{u"onmousewav ", sounds.mouse}, Row{u"onclickwav ", sounds.click},
                         Row{u"onaniminwav ", sounds.animIn}, Row{u"onanimoutwav ", sounds.animOut}}) {
    if (!row.file.empty()) out.Line(row.keyword, row.file);
  }
}

void WriteOtherAnims(LineWriter& out, const ICGUIPageObject& page) {
  for (const ICGUIAnim* anim : page.anims) {
    const bool transition = anim->animationIndex == page.animIn || anim->animationIndex == page.animOut;
    if (!transition) out.Line(u"anim ", anim->name, u"\r\n");
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
  out.Line(u"texture ", style.texture);
  out.Line(u"color_normal  ", Hex{style.color});
  out.Add(u"\n");
  WriteFont(out, style.font, u"");
  return out.Text();
}

}  // namespace qen
