#include <analysis/printers.h>
#include <base/recording/fake_files.h>
#include <base/recording/fake_scenes.h>

#include <cstdio>

int main() {
  qen::base::FakeFiles files;
  qen::base::FakeScenes scenes;
  files.AddText(u"gui.txt", u"name menu.txt");
  const qen::analysis::Report report = qen::analysis::Check(u"gui.txt", {.files = files, .scenes = scenes});
  for (const qen::analysis::Finding& finding : report.findings) {
    std::printf("%s\n", qen::analysis::PrintLine(finding).c_str());
  }
  return report.findings.size() == 1 ? 0 : 1;
}
