// The rules: what the checker tells of.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qen::analysis {

enum class Severity : std::uint8_t {
  Off,
  Note,     // worth knowing
  Warning,  // most likely not meant
  Error,    // the GUI will not do what is written
};

inline constexpr std::array<const char*, 4> kSeverityNames{"off", "note", "warning", "error"};

// In the order of the documents.
enum class Rule : std::uint8_t {
  // reading
  UnknownWord,
  MisplacedWord,
  WrongValue,
  OutOfRange,
  MinAboveMax,
  PositionOutside,
  MissingValue,
  UnclosedBlock,
  StrayBrace,
  GluedBrace,
  UnclosedQuote,
  QuoteOverLines,
  ItemWithoutMark,
  NoNameFirst,
  ValueAsKeyword,
  ByteOrderMark,
  WrongEncoding,
  WrongBytes,
  TextBehindEnd,
  ShortFile,
  UnknownRule,
  // names
  BlockWithoutNode,
  WidgetWithoutBlock,
  RepeatedBlock,
  RepeatedNode,
  UnknownKind,
  LetterCase,
  MissingChild,
  BlankInName,
  // scenes
  ScaledText,
  Covered,
  StateBoxes,
  ListOffNode,
  CameraOfOthers,
  SamePageName,
  UnknownChannel,
  ExitWithoutEntrance,
  NotDrawn,
  // commands
  UnknownPage,
  UnknownWidget,
  MissingArgument,
  BlankInCommand,
  ThirdPart,
  NothingToSet,
  OneSidedRadio,
  AlmostCommand,
  GameCommand,
  UnreachedPage,
  NoWayOut,
  // files
  MissingFile,
  UnreadableFile,
  MissingMedia,
  MissingFace,
  // texts
  MissingText,
  UntranslatedText,
  RepeatedText,
  UnusedText,
  TextTooLong,
  MissingLetters,
};

struct RuleInfo {
  Rule rule;
  const char* id;
  Severity severity;    // unless it is set otherwise
  const char* help;     // what it tells of, in one line
  const char* example;  // lines of a definition that it tells of
  const char* remedy;   // what to do, in one line
};

inline constexpr std::size_t kRuleCount = static_cast<std::size_t>(Rule::MissingLetters) + 1;

// One a rule, in their order.
const std::array<RuleInfo, kRuleCount>& Rules();
const RuleInfo& InfoOf(Rule rule);

// Null for none of that id.
const RuleInfo* FindRule(std::string_view id);

}  // namespace qen::analysis
