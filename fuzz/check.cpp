// A file of a GUI that is sound but for it: what the checker tells, prints and mends.
#include "analysis/printers.h"
#include "base/utf.h"
#include "fuzz/bytes.h"
#include "tests/analysis/sound_gui.h"

namespace qen::fuzz {
namespace {

constexpr const char* kFiles[] = {analysis::kDescriptionFile, analysis::kTextsFile,   analysis::kStyleFile,
                                  analysis::kMenuFile,        analysis::kOptionsFile, analysis::kBagFile};

struct Sound {
  Sound() { gui.Fill(files, scenes); }

  const analysis::SoundGui gui;
  base::FakeFiles files;
  base::FakeScenes scenes;
  base::FakeFonts fonts;
};

}  // namespace

void Try(Input input) {
  static Sound sound;
  if (input.empty()) return;
  Bytes first(input.first(1));
  const char* file = first.OneOf(kFiles);
  const String name = base::ToUtf16(file);
  sound.files.Add(name, {input.begin() + 1, input.end()});
  const analysis::Report report = analysis::Check(base::ToUtf16(analysis::kDescriptionFile),
                                                  {.files = sound.files, .scenes = sound.scenes, .fonts = &sound.fonts},
                                                  {.script = base::ToUtf16(analysis::kScriptFile)});
  analysis::PrintText(report, true);
  analysis::PrintJson(report);
  analysis::PrintSarif(report, "1");
  analysis::ApplyFixes(file, report.findings, sound.files);
  const std::string& whole = sound.gui.files.at(file);
  sound.files.Add(name, {whole.begin(), whole.end()});
  sound.files.reads.clear();
}

}  // namespace qen::fuzz
