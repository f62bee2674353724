#include "base/log.h"

#include <cstdarg>
#include <cstdio>
#include <utility>

#include "base/format.h"
#include "base/record.h"
#include "base/utf.h"

namespace qen::base {
namespace {

void PrintToConsole(StringView line, bool error) {
  const std::string text = ToUtf8(line) + '\n';
  std::fwrite(text.data(), 1, text.size(), error ? stderr : stdout);
}

}  // namespace

LogService::LogService() : sink_(PrintToConsole) {}

LogService::~LogService() {
  Flush(progress_, false);
  Flush(errors_, true);
}

void LogService::SetSink(LogSink sink) { sink_ = sink == nullptr ? LogSink(PrintToConsole) : std::move(sink); }

void LogService::Print(const Char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::size_t start = progress_.size();
  AppendFormat(progress_, format, arguments);
  va_end(arguments);
  Record("IOutput::Print", StringView(progress_).substr(start));
  Deliver(progress_, false);
}

void LogService::PrintError(const Char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::size_t start = errors_.size();
  AppendFormat(errors_, format, arguments);
  va_end(arguments);
  Record("IOutput::PrintError", StringView(errors_).substr(start));
  Deliver(errors_, true);
}

void LogService::ReportMissing(StringView what, StringView file, StringView reason) {
  String line = u"Can't load " + String(what) + u' ' + String(file);
  if (!reason.empty()) line += u": " + String(reason);
  ReportOnce(line);
}

void LogService::ReportWrongByte(StringView file, const WrongByte& wrong) {
  constexpr StringView kDigits = u"0123456789ABCDEF";
  const auto number = [](std::uint32_t value) { return ToUtf16(std::to_string(value)); };
  const String byte{u'0', u'x', kDigits[wrong.byte >> 4], kDigits[wrong.byte & 15]};
  ReportOnce(u"Can't read byte " + byte + u" of " + String(file) + u" at " + number(wrong.line) + u':' +
             number(wrong.column) + u": not UTF-8");
}

void LogService::ReportOnce(const String& line) {
  if (!reported_.insert(line).second) return;
  Flush(errors_, true);
  sink_(line, true);
}

void LogService::Deliver(String& pending, bool error) {
  // A line leaves `pending` before the sink sees it: the sink may print as well.
  for (auto end = pending.find(u'\n'); end != String::npos; end = pending.find(u'\n')) {
    String line = pending.substr(0, end);
    pending.erase(0, end + 1);
    if (line.ends_with(u'\r')) line.pop_back();
    sink_(line, error);
  }
}

void LogService::Flush(String& pending, bool error) {
  if (pending.empty()) return;
  sink_(std::exchange(pending, {}), error);
}

}  // namespace qen::base
