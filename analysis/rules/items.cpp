#include "analysis/rules/name_guesser.h"
#include "analysis/rules/node_names.h"
#include "analysis/words.h"
#include "engine/string_converter.h"
#include "formats/definition_syntax.h"
#include "formats/widget_kinds.h"

namespace qen::analysis {
namespace {

using formats::kNone;

class ItemCheck {
 public:
  ItemCheck(const Page& page, Findings& findings) : page_(page), findings_(findings), guesser_(NodesOf(page)) {
    for (const StringView node : NodesOf(page)) nodes_.insert(ttolowercase(node));
  }

  void Run() {
    for (const std::size_t item : page_.items) {
      const std::size_t name = page_.source->Reading().blocks[item].name;
      if (name != kNone) OnBlock(name);
    }
    if (!page_.hasScene) return;
    for (const Widget& widget : page_.widgets) OnWidget(widget);
  }

 private:
  // Names in the scene that begin with the mark.
  static std::vector<StringView> NodesOf(const Page& page) {
    std::vector<StringView> names;
    for (const Node& node : page.scene.nodes) {
      if (node.name.starts_with(formats::kWidgetMark)) names.emplace_back(node.name);
    }
    return names;
  }

  void OnBlock(std::size_t token) {
    const formats::Token& name = page_.source->TokenAt(token);
    if (!name.isClosed || !name.value.starts_with(formats::kWidgetMark)) return;  // told of by the rules of reading
    const String lower = ttolowercase(name.value);
    if (page_.hasScene && !page_.widgetsByName.contains(lower)) {
      if (!nodes_.contains(lower)) OnUnknown(token);  // a node that makes no widget is told of itself
    } else if (!blocks_.insert(lower).second) {
      findings_.Add(Rule::RepeatedBlock, *page_.source, token, "a second block for " + Quoted(name.value));
    }
  }

  void OnUnknown(std::size_t token) {
    const StringView name = page_.source->ValueAt(token);
    const Guess guess = guesser_.Find(name);
    std::string message = "the scene has no node " + Quoted(name);
    std::vector<formats::Edit> fix;
    if (!guess.name.empty()) {
      message += ", did you mean " + Quoted(guess.name) + '?';
      const auto meant = page_.widgetsByName.find(ttolowercase(guess.name));
      const bool isFree = meant != page_.widgetsByName.end() && page_.widgets[meant->second].blocks.empty();
      if (isFree && meant_.insert(meant->first).second) fix = FixOf(token, guess.name);
    }
    findings_.Add(Rule::BlockWithoutNode, *page_.source, token, std::move(message), fix);
  }

  // The name is certain where it is no other number of a row: `~bSlot1` may not be `~bSlot2`.
  [[nodiscard]] std::vector<formats::Edit> FixOf(std::size_t token, StringView meant) const {
    const formats::Token& name = page_.source->TokenAt(token);
    const bool isPlain = !name.isQuoted && meant.find_first_of(formats::kSeparators) == StringView::npos;
    if (!isPlain || DigitsOf(name.value) != DigitsOf(meant)) return {};
    return {{name.range, String(meant)}};
  }

  static String DigitsOf(StringView name) {
    String digits;
    for (const Char c : name) {
      if (c >= u'0' && c <= u'9') digits += c;
    }
    return digits;
  }

  void OnWidget(const Widget& widget) {
    const bool isFirst = &page_.widgets[page_.widgetsByName.at(widget.name)] == &widget;
    if (!isFirst || !widget.blocks.empty() || meant_.contains(widget.name)) return;
    findings_.Add(Rule::WidgetWithoutBlock, *page_.source, page_.nameToken,
                  Quoted(page_.scene.nodes[widget.node].name) + " has no item block");
  }

  const Page& page_;
  Findings& findings_;
  NameGuesser guesser_;
  std::unordered_set<String> nodes_;
  std::unordered_set<String> blocks_;
  std::unordered_set<String> meant_;  // widgets that a block with a wrong name is most likely for
};

}  // namespace

void CheckItems(const Page& page, Findings& findings) { ItemCheck(page, findings).Run(); }

}  // namespace qen::analysis
