// Whether windows can be opened.
#pragma once

namespace qen::host {

bool HasDisplay();

}  // namespace qen::host
