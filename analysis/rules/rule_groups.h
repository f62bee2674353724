// The rules, by what they look at. Each group adds what it finds.
#pragma once

#include "analysis/check.h"
#include "analysis/findings.h"
#include "analysis/gui_model.h"

namespace qen::analysis {

// Of one definition file, whatever it names.
void CheckReading(const Source& source, Findings& findings);

// Of a page and the outline of its scene.
void CheckNames(const Page& page, Findings& findings);

// Of the animations of a page, and their channels.
void CheckAnimations(const Page& page, const Backends& backends, Findings& findings);

// Of a page's scene, with its meshes.
void CheckScene(const Page& page, const base::SceneData& scene, Findings& findings);

// Of all scenes together.
void CheckScenes(const Gui& gui, Findings& findings);

// Of the sounds and pictures that pages and the style name.
void CheckMedia(const Gui& gui, const Backends& backends, Findings& findings);

void CheckCommands(const Gui& gui, const Settings& settings, const Backends& backends, Findings& findings);
void CheckTexts(const Gui& gui, const Settings& settings, const Backends& backends, Findings& findings);

}  // namespace qen::analysis
