// Collects findings: with their severities, and without those that comments silence.
#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "analysis/check.h"
#include "analysis/source.h"

namespace qen::analysis {

class Findings {
 public:
  explicit Findings(const Settings& settings) : settings_(settings) {}

  // Files are told in the order in which they are announced. Comments `"check: off ID..."` silence what begins on their
  // line and on the next.
  void Announce(const Source& source);

  // At a range of a file's text, or at a token of it. Where nothing else is told there, what is to be done is a fix.
  void Add(Rule rule, const Source& source, formats::Range16 range, std::string message,
           const std::vector<formats::Edit>& fix = {});
  void Add(Rule rule, const Source& source, std::size_t token, std::string message,
           const std::vector<formats::Edit>& fix = {}) {
    Add(rule, source, source.RangeAt(token), std::move(message), fix);
  }

  // The same, of something without which the GUI is not loaded anew.
  void AddFault(Rule rule, const Source& source, formats::Range16 range, std::string message);
  void AddFault(Rule rule, const Source& source, std::size_t token, std::string message) {
    AddFault(rule, source, source.RangeAt(token), std::move(message));
  }

  // Of a file that could not be opened, so that it has no text.
  void AddFault(Rule rule, const String& file, std::string message);

  [[nodiscard]] Report Take();

 private:
  using Line = std::pair<const Source*, std::uint32_t>;

  [[nodiscard]] Severity SeverityOf(Rule rule) const;
  [[nodiscard]] bool IsSilenced(Rule rule, const Source& source, std::uint32_t line) const;
  void ReadSilencing(const Source& source, std::size_t token);

  const Settings& settings_;
  std::map<const Source*, std::size_t> order_;
  std::set<std::pair<Line, Rule>> silenced_;
  std::vector<std::pair<std::size_t, Finding>> found_;  // with the order of their files
  std::size_t silencedCount_ = 0;
};

}  // namespace qen::analysis
