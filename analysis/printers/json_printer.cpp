#include <nlohmann/json.hpp>

#include "analysis/printers.h"

namespace qen::analysis {
namespace {

using Json = nlohmann::ordered_json;

Json SpanToJson(const Span& span) {
  return {{"line", span.begin.line},
          {"column", span.begin.column},
          {"endLine", span.end.line},
          {"endColumn", span.end.column}};
}

Json FixToJson(const std::vector<Replacement>& fix) {
  if (fix.empty()) return nullptr;
  Json parts = Json::array();
  for (const Replacement& part : fix) {
    Json json = SpanToJson(part.span);
    json["text"] = part.text;
    parts.push_back(std::move(json));
  }
  return parts;
}

Json FindingToJson(const Finding& finding) {
  Json json{{"file", finding.file}};
  json.update(SpanToJson(finding.span));
  json["severity"] = kSeverityNames[static_cast<std::size_t>(finding.severity)];
  json["rule"] = InfoOf(finding.rule).id;
  json["message"] = finding.message;
  json["fix"] = FixToJson(finding.fix);
  return json;
}

}  // namespace

std::string PrintJson(const Report& report) {
  Json findings = Json::array();
  for (const Finding& finding : report.findings) findings.push_back(FindingToJson(finding));
  return Json{{"findings", std::move(findings)}}.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace qen::analysis
