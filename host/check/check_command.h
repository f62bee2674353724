// The command `guihost check`.
#pragma once

#include "host/check/check_options.h"
#include "host/check/gui_check.h"

namespace qen::host {

// Looks over the GUI of those files, prints what it finds, and with --fix mends what is certain. 0, or 1 with errors,
// with --strict with warnings, too. Throws std::runtime_error, with one line, when it cannot.
int RunCheckCommand(const CheckOptions& options, GuiCheck& check, PhysfsFiles& files);

}  // namespace qen::host
