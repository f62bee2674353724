// Scenes with widgets that have all the parts that definitions can set.
#pragma once

#include "tests/module/gui_fixture.h"

namespace qen::test {

namespace detail {

inline void AddStates(base::SceneData& scene, std::int32_t node) {
  for (const StringView state : {u"normal", u"onmouse", u"disabled"}) {
    base::AddBox(scene, state, node, {}, {10.0F, 5.0F, 1.0F});
  }
  base::AddNode(scene, u"text", node);
}

inline void AddSlideBar(base::SceneData& scene, std::int32_t node, StringView bar) {
  const std::int32_t barNode = base::AddNode(scene, bar, node);
  base::AddBox(scene, u"normal", barNode, {}, {40.0F, 2.0F, 1.0F});
  const std::int32_t slider = base::AddNode(scene, u"slider", node);
  base::AddBox(scene, u"normal", slider, {}, {2.0F, 2.0F, 1.0F});
}

}  // namespace detail

// A node of that name ("~bOk") with the child nodes that its kind looks for.
inline void AddWidget(base::SceneData& scene, const String& name) {
  const Char letter = name.size() > 1 ? name[1] : u'\0';
  if (letter == u'p') {
    base::AddBox(scene, name, -1, {}, {10.0F, 10.0F, 1.0F});
    base::AddPicture(scene);
    return;
  }
  const std::int32_t node = base::AddNode(scene, name);
  switch (letter) {
    case u'b':
      return detail::AddStates(scene, node);
    case u'c':
      base::AddNode(scene, u"text", node);
      for (const StringView side : {u"checked", u"unchecked"}) {
        detail::AddStates(scene, base::AddNode(scene, side, node));
      }
      return;
    case u'l': {
      base::AddBox(scene, u"list", node, {}, {30.0F, 1.0F, 20.0F});
      return detail::AddSlideBar(scene, base::AddNode(scene, u"slidery", node), u"bary");
    }
    case u's':
      return detail::AddSlideBar(scene, node, u"barx");
    default:
      return;
  }
}

}  // namespace qen::test
