#include <unordered_map>
#include <unordered_set>

#include "analysis/rules/rule_groups.h"
#include "analysis/words.h"
#include "base/resource_store.h"
#include "base/utf.h"
#include "formats/definition_words.h"

namespace qen::analysis {
namespace {

// What an animation file comes to on its page.
struct AnimationState {
  std::string fault = {};  // of the file, empty for none
  Rule rule = Rule::MissingFile;
  std::string unknown = {};  // of its channels, empty for none
};

class AnimationCheck {
 public:
  AnimationCheck(const Page& page, const Backends& backends, Findings& findings)
      : page_(page), backends_(backends), findings_(findings) {
    for (const Node& node : page.scene.nodes) {
      if (names_.insert(node.name).second) nameList_.push_back(node.name);
    }
  }

  void Check(const formats::Statement& statement) {
    const String file(page_.source->ValueOf(statement));
    const auto [place, isNew] = states_.try_emplace(base::FileKey(file));
    if (isNew) place->second = Load(file);
    const AnimationState& state = place->second;
    if (!state.fault.empty()) findings_.AddFault(state.rule, *page_.source, statement.value, state.fault);
    if (!state.unknown.empty()) findings_.Add(Rule::UnknownChannel, *page_.source, statement.value, state.unknown);
  }

 private:
  AnimationState Load(const String& file) {
    std::vector<std::uint8_t> bytes;
    if (!backends_.files.Read(file, bytes)) return {.fault = base::ToUtf8(file) + " cannot be read"};
    String error;
    const std::optional<base::AnimationData> animation = backends_.scenes.ParseAnimation(file, bytes, error);
    if (!animation) return {.fault = base::ToUtf8(file + u": " + error), .rule = Rule::UnreadableFile};
    return {.unknown = page_.hasScene ? UnknownChannels(*animation) : std::string()};
  }

  std::string UnknownChannels(const base::AnimationData& animation) {
    std::unordered_set<StringView> unknown;
    StringView first;
    for (const base::NodeTracks& tracks : animation.nodes) {
      if (names_.contains(tracks.node)) continue;
      if (unknown.empty()) first = tracks.node;
      unknown.insert(tracks.node);
    }
    if (unknown.empty()) return {};
    constexpr std::size_t kMost = 100;  // guesses
    std::string message = "it moves " + Quoted(first) + ", which the scene does not have";
    if (guesses_++ < kMost) message += Suggestion(first, nameList_);
    return unknown.size() == 1 ? message : message + " (and " + std::to_string(unknown.size() - 1) + " more)";
  }

  const Page& page_;
  const Backends& backends_;
  Findings& findings_;
  std::unordered_set<StringView> names_;
  std::vector<StringView> nameList_;
  std::unordered_map<String, AnimationState> states_;
  std::size_t guesses_ = 0;
};

}  // namespace

void CheckAnimations(const Page& page, const Backends& backends, Findings& findings) {
  AnimationCheck check(page, backends, findings);
  for (const formats::Statement& statement : page.source->Reading().statements) {
    const bool isAnimation = statement.keyword->value == formats::Value::Animation;
    if (isAnimation && statement.state == formats::ValueState::Read) check.Check(statement);
  }
}

}  // namespace qen::analysis
