#include <algorithm>
#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string_view>

#include "analysis/printers.h"

namespace qen::analysis {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kSchema = "https://json.schemastore.org/sarif-2.1.0.json";
constexpr std::array<const char*, 4> kLevels{"none", "note", "warning", "error"};  // of severities

const char* LevelOf(Severity severity) { return kLevels[static_cast<std::size_t>(severity)]; }

Json TextOf(std::string text) { return {{"text", std::move(text)}}; }

// With slashes; bytes that stand for something else in a URI, or are none of its characters, are escaped.
std::string UriOf(std::string_view file) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/!$&'()*+,=@";
  std::string uri;
  for (const char c : file) {
    if (c == '\\') {
      uri += '/';
    } else if (kPlain.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      std::array<char, 4> escape{};
      std::snprintf(escape.data(), escape.size(), "%%%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
      uri += escape.data();
    }
  }
  return uri;
}

Json RegionOf(const Span& span) {
  return {{"startLine", span.begin.line},
          {"startColumn", span.begin.column},
          {"endLine", span.end.line},
          {"endColumn", span.end.column}};
}

Json ArtifactOf(const Finding& finding) { return {{"uri", UriOf(finding.file)}}; }

Json RuleToJson(const RuleInfo& rule) {
  const bool isOn = rule.severity != Severity::Off;
  return {{"id", rule.id},
          {"shortDescription", TextOf(rule.help)},
          {"help", TextOf(std::string(rule.remedy) + "\n\nFor example:\n\n" + rule.example)},
          {"defaultConfiguration", {{"enabled", isOn}, {"level", LevelOf(rule.severity)}}}};
}

Json FixToJson(const Finding& finding) {
  Json replacements = Json::array();
  for (const Replacement& part : finding.fix) {
    replacements.push_back({{"deletedRegion", RegionOf(part.span)}, {"insertedContent", TextOf(part.text)}});
  }
  const Json change{{"artifactLocation", ArtifactOf(finding)}, {"replacements", std::move(replacements)}};
  return {{"artifactChanges", Json::array({change})}};
}

Json ResultOf(const Finding& finding) {
  const Json place{{"artifactLocation", ArtifactOf(finding)}, {"region", RegionOf(finding.span)}};
  Json result{{"ruleId", InfoOf(finding.rule).id},
              {"ruleIndex", static_cast<std::size_t>(finding.rule)},
              {"level", LevelOf(finding.severity)},
              {"message", TextOf(finding.message)},
              {"locations", Json::array({Json{{"physicalLocation", place}}})}};
  if (!finding.fix.empty()) result["fixes"] = Json::array({FixToJson(finding)});
  return result;
}

}  // namespace

std::string PrintSarif(const Report& report, const std::string& version) {
  Json rules = Json::array();
  for (const RuleInfo& rule : Rules()) rules.push_back(RuleToJson(rule));
  Json results = Json::array();
  for (const Finding& finding : report.findings) results.push_back(ResultOf(finding));
  const Json driver{{"name", "guihost check"}, {"version", version}, {"rules", std::move(rules)}};
  const Json run{{"tool", {{"driver", driver}}}, {"columnKind", "utf16CodeUnits"}, {"results", std::move(results)}};
  return Json{{"$schema", kSchema}, {"version", "2.1.0"}, {"runs", Json::array({run})}}.dump(
             2, ' ', false, Json::error_handler_t::replace) +
         '\n';
}

}  // namespace qen::analysis
