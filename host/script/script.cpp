#include "host/script/script.h"

#include "host/script/script_state.h"
#include "host/script/script_world.h"

namespace qen::host {

Script::Script(Stage& stage, const ScriptOptions& options)
    : world_(std::make_unique<ScriptWorld>(stage, options)),
      game_(std::make_unique<ScriptState>(*world_, options.trustsGame ? Trust::Named : Trust::Found, options.timeout)),
      own_(std::make_unique<ScriptState>(*world_, Trust::Named, options.timeout)) {
  RunGame();
  // A change of pages that a script posted before the first page is there would know nothing of that one.
  stage.Deliver();
}

void Script::RunGame() {
  const std::filesystem::path& file = world_->GetStage().GameScript();
  if (!file.empty()) game_->Run(file);
}

std::optional<std::string> Script::TakeFailure() { return world_->TakeFailure(); }

Script::~Script() = default;

void Script::Run(const std::filesystem::path& file) { own_->Run(file); }

}  // namespace qen::host
