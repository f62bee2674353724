// The log service, and failures that are worth one line only.
#pragma once

#include <string>
#include <unordered_set>

#include "base/engine.h"
#include "base/utf.h"
#include "engine/output.h"

namespace qen::base {

// Gives whole lines to its sink; text without a line feed waits for the rest of its line.
class LogService final : public IOutput {
 public:
  LogService();
  ~LogService() override;
  LogService(const LogService&) = delete;
  LogService& operator=(const LogService&) = delete;

  void SetSink(LogSink sink);
  void Print(const Char* format, ...) override;
  void PrintError(const Char* format, ...) override;

  // Logs "Can't load <what> <file>" with the reason, if any; once for each file.
  void ReportMissing(StringView what, StringView file, StringView reason = {});

  // Logs where a text file is not UTF-8; once.
  void ReportWrongByte(StringView file, const WrongByte& wrong);

 private:
  void ReportOnce(const String& line);
  void Deliver(String& pending, bool error);
  void Flush(String& pending, bool error);

  LogSink sink_;
  String progress_;  // the unfinished lines
  String errors_;
  std::unordered_set<String> reported_;
};

}  // namespace qen::base
