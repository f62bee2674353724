#include "analysis/rules/command_list.h"
#include "analysis/rules/rule_groups.h"

namespace qen::analysis {

void CheckCommands(const Gui& gui, const Settings& settings, const Backends& backends, Findings& findings) {
  const ScriptWords script(backends.files, settings.script);
  std::vector<Command> commands = CollectCommands(gui);
  CheckCommandWords(gui, script, commands, findings);
  CheckCommandTargets(gui, commands, findings);
  CheckTextSetting(gui, commands, findings);
  CheckRadioGroups(gui, commands, findings);
  CheckPageWays(gui, script, commands, findings);
}

}  // namespace qen::analysis
