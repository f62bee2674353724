#include "definitions/page_reader.h"

#include <array>
#include <optional>
#include <span>
#include <unordered_map>

#include "definitions/definition_text.h"
#include "definitions/item_reader.h"
#include "definitions/page_builder.h"
#include "definitions/stopwatch.h"
#include "engine/gui_object.h"
#include "engine/gui_page_object.h"
#include "engine/item_info.h"
#include "engine/output.h"
#include "engine/string_converter.h"
#include "engine/system.h"
#include "formats/definition_words.h"

namespace qen {
namespace {

namespace word = formats::word;

// A header being read.
struct Header {
  IPageBuilder& page;
  std::int32_t animations = 0;
};

// Gives the position of the animation, or -1 when it was not loaded.
std::int32_t AddAnimation(Header& header, const String& file) {
  if (!header.page.HasScene() || !header.page.AddAnimation(file)) return -1;
  return header.animations++;
}

struct HeaderKey {
  StringView word;
  void (*take)(Header& header, const String& value);
};

constexpr std::array<HeaderKey, 7> kHeaderKeys{{
    {word::kAnimIn,
     [](Header& header, const String& file) {
       if (const std::int32_t animation = AddAnimation(header, file); animation >= 0) header.page.SetAnimIn(animation);
     }},
    {word::kAnimOut,
     [](Header& header, const String& file) {
       if (const std::int32_t animation = AddAnimation(header, file); animation >= 0) header.page.SetAnimOut(animation);
     }},
    {word::kAnim, [](Header& header, const String& file) { AddAnimation(header, file); }},
    {word::kOnMouseWav, [](Header& header, const String& file) { header.page.SetSound(sound_kind::kMouse, file); }},
    {word::kOnClickWav, [](Header& header, const String& file) { header.page.SetSound(sound_kind::kClick, file); }},
    {word::kOnAnimInWav, [](Header& header, const String& file) { header.page.SetSound(sound_kind::kAnimIn, file); }},
    {word::kOnAnimOutWav, [](Header& header, const String& file) { header.page.SetSound(sound_kind::kAnimOut, file); }},
}};
static_assert(formats::AreRowsOf(kHeaderKeys, formats::kPageKeys));

void ReadKeys(CGUIParser& parser, std::span<const HeaderKey> keys, Header& header) {
  for (String token = parser.NextToken(); !token.empty(); token = parser.NextToken()) {
    // The value takes the token's place, so that the keys further down are tried on it.
    for (const HeaderKey& key : keys) {
      if (token != key.word) continue;
      token = parser.ReadString();
      key.take(header, token);
    }
  }
}

using WidgetsByName = std::unordered_map<StringView, ICGUIObject*>;  // by the names of their records

// The first widget of each name.
WidgetsByName IndexByName(const std::vector<ICGUIObject*>& widgets) {
  WidgetsByName index;
  index.reserve(widgets.size());
  for (ICGUIObject* widget : widgets) index.try_emplace(widget->info->name, widget);
  return index;
}

}  // namespace

bool ReadPageHeader(const String& text, PageFormat format, IPageBuilder& page) {
  DefinitionPass pass(text);
  CGUIParser& parser = pass.parser;
  const String first = parser.NextToken();
  std::optional<Stopwatch> stopwatch;
  if (format == PageFormat::Page) stopwatch.emplace();
  bool named = true;
  if (first == word::kName) {
    const String scene = parser.NextToken();
    named = !scene.empty();
    if (!page.LoadScene(scene)) return false;
  }
  page.SetAnimIn(-1);
  page.SetAnimOut(-1);
  Header header{page};
  const std::span<const HeaderKey> keys(kHeaderKeys);
  ReadKeys(parser, format == PageFormat::Bag ? keys.first(formats::kBagKeys.size()) : keys, header);
  page.Build();
  if (stopwatch && System::output != nullptr) {
    System::output->Print(u"... [%1.1f sec]\n", stopwatch->Seconds());
  }
  return parser.ok && named;
}

bool ReadPageItems(const String& text, IPageBuilder& page) {
  const WidgetsByName widgets = IndexByName(page.Widgets());
  DefinitionPass pass(text);
  CGUIParser& parser = pass.parser;
  parser.NextToken();
  for (String token = parser.NextToken(); !token.empty(); token = parser.NextToken()) {
    if (token != word::kItem) continue;
    const auto found = widgets.find(ttolowercase(parser.NextToken()));
    ReadItemBlock(parser, found != widgets.end() ? found->second : nullptr);
  }
  return parser.ok;
}

}  // namespace qen
