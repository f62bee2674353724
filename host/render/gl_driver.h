// What the driver is.
#pragma once

namespace qen::host {

// Whether the processor draws, since there is no graphics card: Mesa's. A context must be current.
bool IsSoftwareDriver();

}  // namespace qen::host
