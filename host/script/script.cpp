#include "host/script/script.h"

#include "host/script/script_state.h"
#include "host/script/script_world.h"

namespace qen::host {

Script::Script(Stage& stage, const ScriptOptions& options)
    : namedGame_(options.game),
      world_(std::make_unique<ScriptWorld>(stage, options)),
      game_(
          std::make_unique<ScriptState>(*world_, options.game.empty() ? Trust::Found : Trust::Named, options.timeout)),
      own_(std::make_unique<ScriptState>(*world_, Trust::Named, options.timeout)) {
  RunGame();
  // A change of pages that a script posted before the first page is there would know nothing of that one.
  stage.Deliver();
}

void Script::RunGame() {
  if (!namedGame_.empty()) {
    game_->Run(namedGame_);
  } else if (const auto found = world_->GetStage().FindGameScript()) {
    game_->RunText(found->name, found->text);
  }
}

std::optional<std::string> Script::TakeFailure() { return world_->TakeFailure(); }

Script::~Script() = default;

void Script::Run(const std::filesystem::path& file) { own_->Run(file); }

}  // namespace qen::host
