// The groups of rules of reading. They look at a file one after the other, and mark of which tokens something is told.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "analysis/findings.h"

namespace qen::analysis {

struct ReadingPass {
  ReadingPass(const Source& file, Findings& all) : source(file), findings(all), told(file.Reading().tokens.size()) {}

  void Tell(Rule rule, std::size_t token, std::string message, const std::vector<formats::Edit>& fix = {}) {
    findings.Add(rule, source, token, std::move(message), fix);
    told[token] = true;
  }

  const Source& source;
  Findings& findings;
  std::vector<bool> told;  // tokens of which something is told, or that are part of such a mistake
};

// Of a file's bytes. False where they are no text of its kind, so that nothing else is worth telling.
bool CheckBytes(const Source& source, Findings& findings);

// Of quotes, and of braces that are glued to words.
void CheckSigns(ReadingPass& pass);

// Of a page's first word and its item blocks, and of values that are taken for keywords.
void CheckForm(ReadingPass& pass);

// Of keywords that their item's kind of widget does not have.
void CheckKinds(ReadingPass& pass);

void CheckValues(ReadingPass& pass);

// Of the ranges of slide bars.
void CheckBars(ReadingPass& pass);

void CheckBlocks(ReadingPass& pass);

// Of words that nobody reads. The last one: it passes over what belongs to a mistake that is told.
void CheckStrays(ReadingPass& pass);

}  // namespace qen::analysis
