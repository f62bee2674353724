// The rules of scenes, a file each.
#pragma once

#include "analysis/findings.h"
#include "analysis/gui_model.h"

namespace qen::analysis {

// Of a page.
void CheckTextPlanes(const Page& page, Findings& findings);
void CheckStateBoxes(const Page& page, Findings& findings);
void CheckListBoxes(const Page& page, Findings& findings);
void CheckCovered(const Page& page, const base::SceneData& scene, Findings& findings);
void CheckUndrawn(const Page& page, const base::SceneData& scene, Findings& findings);

// Of all pages.
void CheckCameras(const Gui& gui, Findings& findings);

}  // namespace qen::analysis
