"""The name of a new keeper, written on a plaque that two lanterns carry."""

import boards
import buttons
import controls
import kit
import scenery
import stage

LANTERNS = [(-74, 10, 51, 4.6), (80, 30, 54, 4.2), (-58, 40, -44, 3.8), (88, 60, -40, 4.6), (-124, 120, 62, 4.8),
            (122, 130, 70, 5.0), (10, 110, 84, 3.6), (-118, 120, -6, 3.8), (58, 90, 26, 3.4)]
ISLANDS = [
    ("Harbour", (-126, 170, -16), 34, 44, 31, 0.22,
     [("house", (6, -10, 1.5), 10), ("house", (-12, -6, 1.5), 8), ("amber", (-22, -4, 1), 10), ("crimson", (20, -8, 1), 9)]),
    ("Beacon", (138, 200, -6), 28, 36, 37, 0.35, [("lighthouse", (2, 0, 1), 46), ("blossom", (-14, -8, 1), 10)]),
]


def name_plaque(looks, surfaces):
    """The place to write in, with a flame at either end. The shape is decoration: a click counts on the text's box."""
    node = kit.empty("Plaque", (0, 4.5, -3))
    kit.plaque("plate", 100, 17, 4, 5, looks["page"], surfaces["brass"], node, rim_width=1.6, bulge=-0.2)
    for side in (-1, 1):
        stage.paper_lantern("Flame", (side * 54.5, -3, 0), 8.0, surfaces, node)
    return node


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    scenery.evening(surfaces, ISLANDS)
    ground = boards.board(surfaces, 132, 88, -1)
    kit.flourish("flourish", 60, surfaces["brass"], ground, (0, -3.4, 25))
    looks = controls.control_materials(buttons.button_materials())
    place = name_plaque(looks, surfaces)
    texts = [controls.caption("~tHeading", (0, 0.5, 31), 110, 10), controls.caption("~tPrompt", (0, 0.5, 14), 112, 7),
             controls.caption("~tName", (0, 0.8, -3.9), 91, 9)]
    made = [buttons.button("Start", (-26, 0, -25), 42, 11.5, looks), buttons.button("Back", (26, 0, -25), 42, 11.5, looks)]
    lanterns = stage.drifting_lanterns(surfaces, LANTERNS)
    kit.export_scene("scenes/name_entry.glb")
    boards.export_hanging_animations("name_entry", [ground, place, *texts, *made], lanterns)
