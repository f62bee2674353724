// A check of GUIs of many pages, with glTF scenes and the installed fonts: the time and the memory that it takes.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <string>

#include "analysis/check.h"
#include "base/utf.h"
#include "host/check/measuring_fonts.h"
#include "host/scenes/gltf_scenes.h"
#include "tests/host/gltf_builder.h"

namespace qen::bench {
namespace {

constexpr int kWidgets = 100;  // of a page
constexpr int kPerRow = 10;

// A page of buttons, each with three faces and a label's box.
host::Bytes MakeScene() {
  std::string nodes;
  std::string roots;
  for (int i = 0; i < kWidgets; ++i) {
    const int first = 6 * i;
    const std::string at = std::to_string(15 * (i % kPerRow) - 67) + ',' + std::to_string(10 * (i / kPerRow) - 45);
    const auto child = [first](int n) { return std::to_string(first + n); };
    roots += (i == 0 ? "" : ",") + child(0);
    nodes += std::string(i == 0 ? "" : ",") + R"({"name":"~bButton)" + std::to_string(i) + R"(","translation":[)" + at +
             R"(,0],"children":[)" + child(1) + ',' + child(2) + ',' + child(3) + ',' + child(4) + "]}";
    for (const char* state : {"normal", "onmouse", "disabled"}) {
      nodes += std::string(R"(,{"name":")") + state + R"(","mesh":0})";
    }
    nodes +=
        R"(,{"name":"text","translation":[0,0,0.5],"children":[)" + child(5) + "]}" + R"(,{"name":"normal","mesh":0})";
  }
  return host::MakeGlb(
      R"("scenes":[{"nodes":[)" + roots + R"(]}],"nodes":[)" + nodes +
      R"(],"meshes":[{"primitives":[{"attributes":{"POSITION":<float3 -7 -4 0 7 -4 0 7 4 0 -7 4 0>},)" +
      R"("indices":<ushort1 0 1 2 0 2 3>}]}])");
}

class ManyPages final : public base::IFileBackend {
 public:
  explicit ManyPages(int pages) : scene_(MakeScene()) {
    description_ = "lang texts.txt\n";
    for (int page = 0; page < pages; ++page) description_ += "name pages\\" + std::to_string(page) + ".txt\n";
    for (const char* language : {"english", "german"}) {
      texts_ += std::string("lang ") + language + "\n{\n";
      for (int i = 0; i < kWidgets; ++i)
        texts_ += "\tstr" + std::to_string(i) + " \"Word " + std::to_string(i) + "\"\n";
      texts_ += "}\n";
    }
    for (int i = 0; i < kWidgets; ++i) {
      items_ += "\nitem ~bButton" + std::to_string(i) + "\n{\n\tmessage undopage:\n\ttextid " + std::to_string(i) +
                "\n\tfont \"DejaVu Sans\" { height -21 weight 700 }\n\tcolor_normal d8f0ff\n}\n";
    }
  }

  bool Read(StringView name, std::vector<std::uint8_t>& bytes) override {
    const std::string file = base::ToUtf8(name);
    if (file.ends_with(".glb")) {
      bytes = scene_;
      return true;
    }
    const std::size_t page = file.find('\\') + 1;
    const std::string number = file.substr(page, file.find('.') - page);
    const std::string text = file == "gui.txt"     ? description_
                             : file == "texts.txt" ? texts_
                                                   : "name scenes\\" + number + ".glb\n" + items_;
    bytes.assign(text.begin(), text.end());
    return true;
  }

 private:
  host::Bytes scene_;
  std::string description_;
  std::string texts_;
  std::string items_;
};

void CheckPages(benchmark::State& state) {
  ManyPages files(static_cast<int>(state.range(0)));
  host::GltfScenes scenes(files, [](StringView) {});
  host::MeasuringFonts fonts;
  std::size_t problems = 0;
  for (auto _ : state) {
    const analysis::Report report =
        analysis::Check(u"gui.txt", {.files = files, .scenes = scenes, .fonts = &fonts.Backend()});
    problems = report.Count(analysis::Severity::Error) + report.Count(analysis::Severity::Warning);
  }
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["problems"] = static_cast<double>(problems);
  state.counters["MiB at most"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
  state.SetComplexityN(state.range(0));
}
BENCHMARK(CheckPages)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(1)->Complexity();

}  // namespace
}  // namespace qen::bench

BENCHMARK_MAIN();
