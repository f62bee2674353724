// Input, time and drawing.
#include "engine/messages.h"
#include "fuzz/steps.h"

namespace qen::fuzz {
namespace {

// What people and systems send as keys: arrows, editing keys, letters, what is no letter.
constexpr std::array<Char, 20> kKeys{u'\b', u'\t', u'\r', 0x1B, u' ',  0x25,   0x26,   0x27,   0x28,   0x24,
                                     0x23,  0x2D,  0x2E,  u'a', u'\n', 0x0301, 0xD83D, 0xDE00, 0x0645, 0xFFFF};

constexpr std::array<double, 6> kTimes{1.0 / 60, 0.3, 1.0, 60.0, 0.0, 1e9};

constexpr std::array<base::Point, 4> kWindowSizes{{{800, 600}, {1, 1}, {0, 0}, {3000, 200}}};

void Move(Play& play) {
  const std::int32_t x = play.bytes.Next() * 800 / 128;
  const std::int32_t y = play.bytes.Next() * 600 / 128;
  play.stage.MoveTo({x, y});
}

void MoveOntoWidget(Play& play) {
  if (ICGUIObject* widget = play.Widget()) play.stage.Hover(*widget);
}

void Click(Play& play) {
  if (ICGUIObject* widget = play.Widget()) play.stage.Click(*widget);
}

void Press(Play& play) { play.stage.Send(message::kButtonDown, play.bytes.Next() - '0'); }

void LetGo(Play& play) { play.stage.Send(message::kButtonUp, play.bytes.Next() - '0'); }

void Wheel(Play& play) { play.stage.Send(message::kWheel, static_cast<std::uint32_t>(play.bytes.Number())); }

void Key(Play& play) { play.stage.Send(message::kKey, play.bytes.OneOf(kKeys)); }

void AnyMessage(Play& play) {
  const std::uint32_t id = play.bytes.Next();
  play.stage.Send(message::kMouseMove + id, static_cast<std::uint32_t>(play.bytes.Number()));
}

void Frame(Play& play) { play.stage.Frame(play.bytes.OneOf(kTimes)); }

void Deliver(Play& play) { play.stage.Deliver(); }

void Draw(Play& play) { play.stage.Draw(); }

void UpdateWithAnything(Play& play) {
  const std::int32_t mouse = play.bytes.Number();
  play.gui.Update(static_cast<std::uint32_t>(mouse), play.bytes.Next(), play.bytes.Next());
}

void SetCursor(Play& play) {
  const std::int32_t x = play.bytes.Number();
  play.gui.SetCursor(x, play.bytes.Number());
}

void ResizeWindow(Play& play) {
  play.stage.engine.window.size = play.bytes.OneOf(kWindowSizes);
  const base::Point size = play.stage.engine.window.size;
  play.stage.engine.viewport.Resize(static_cast<std::uint32_t>(size.x), static_cast<std::uint32_t>(size.y));
}

void TakeViewport(Play& play) {
  play.gui.SetViewport(play.bytes.Next() == '0' ? nullptr : &play.stage.engine.viewport);
}

void Compose(Play& play) { play.stage.engine.ime.composition = String(play.bytes.Next() % 8, u'\u6F22'); }

constexpr std::array<Step, 16> kSteps{{
    {'m', Move},
    {'h', MoveOntoWidget},
    {'c', Click},
    {'d', Press},
    {'u', LetGo},
    {'w', Wheel},
    {'k', Key},
    {'?', AnyMessage},
    {'f', Frame},
    {'q', Deliver},
    {'r', Draw},
    {'U', UpdateWithAnything},
    {'M', SetCursor},
    {'z', ResizeWindow},
    {'v', TakeViewport},
    {'y', Compose},
}};

}  // namespace

std::span<const Step> InputSteps() { return kSteps; }

}  // namespace qen::fuzz
