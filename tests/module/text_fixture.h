// A page with one text, and how it is drawn.
#pragma once

#include <sstream>

#include "tests/module/gui_fixture.h"
#include "tests/module/widget_scenes.h"

namespace qen::test {

class TextTest : public GuiTest {
 protected:
  // `properties` are those of the text's item block.
  void Open(base::SceneData scene, StringView properties = {}) {
    OpenScene(std::move(scene), u"item ~ttext { " + String(properties) + u" }");
    text = dynamic_cast<ICGUIText*>(Find(u"~ttext", gui->GetPageCount() - 1));
    MoveTo({1, 1});
  }

  void OpenBox(StringView properties = {}, const Vec3& place = {}) {
    base::SceneData scene;
    AddTextBox(scene, u"text", place);
    Open(std::move(scene), properties);
  }

  void OpenScrolling(StringView properties = {}) {
    base::SceneData scene;
    AddTextBox(scene, u"text", {}, true);
    Open(std::move(scene), properties);
  }

  // One line for each text of the next frame: translation, rectangle, format, colour, words.
  std::string Drawn() {
    Frame();
    engine.calls.clear();
    DrawPages();
    std::ostringstream drawn;
    for (const base::Call& call : engine.CallsOf("Drawing::DrawText3D")) {
      std::istringstream matrix(std::get<std::string>(call.arguments[0]));
      float numbers[16] = {};
      for (float& number : numbers) matrix >> number;
      drawn << numbers[12] << ' ' << numbers[13] << ' ' << numbers[14] << " | "
            << std::get<std::string>(call.arguments[1]) << " | " << std::hex
            << std::get<std::int64_t>(call.arguments[2]) << ' ' << std::get<std::int64_t>(call.arguments[3]) << std::dec
            << ' ' << std::get<std::string>(call.arguments[4]) << '\n';
    }
    return drawn.str();
  }

  // The words alone.
  std::string Words() {
    std::istringstream drawn(Drawn());
    std::string line;
    std::getline(drawn, line);
    std::size_t at = line.find('|', line.find('|') + 1);
    for (int blanks = 0; blanks < 3 && at != std::string::npos; ++blanks) at = line.find(' ', at + 1);
    return at == std::string::npos ? "nothing" : line.substr(at + 1);
  }

  ICGUIText* text = nullptr;
};

}  // namespace qen::test
