"""A long text about the game that scrolls in its frame."""

import boards
import buttons
import controls
import kit
import scenery
import stage

WIDTH, HEIGHT = 146, 100
LANTERNS = [(-72, 20, 60, 4.2), (-84, 60, -50, 4.4), (84, 70, -44, 4.2), (122, 120, 64, 4.8), (-122, 130, 70, 5.0),
            (116, 110, 8, 3.8), (-114, 110, -4, 3.6)]
ISLANDS = [
    ("Beacon", (-152, 180, -20), 28, 36, 41, 0.25, [("lighthouse", (2, 0, 1), 46), ("crimson", (-14, -8, 1), 10)]),
    ("Grove", (158, 190, -10), 28, 34, 43, 0.35,
     [("amber", (-10, -8, 1), 12), ("moss", (2, -8, 1), 9), ("blossom", (13, -6, 1), 11)]),
]


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    scenery.evening(surfaces, ISLANDS)
    ground = boards.board(surfaces, WIDTH, HEIGHT)
    kit.flourish("flourish", 60, surfaces["brass"], ground, (0, -3.4, 33))
    controls.caption("~tHeading", (0, 0.5, 39), 110, 10)
    looks = controls.control_materials(buttons.button_materials())
    # Hardly more than twelve lines of its font, 57.1 units, so that no part of another one shows.
    controls.long_text("Guide", (-4.5, 0, -1.5), 118, 57.3, looks, surfaces)
    back = buttons.button("Back", (0, 0, -41.5), 42, 10.5, looks)
    doors = boards.shutters(surfaces, WIDTH + 2, HEIGHT + 2)
    lanterns = stage.drifting_lanterns(surfaces, LANTERNS)
    kit.export_scene("scenes/help.glb")
    boards.export_shutter_animations("help", doors, [back], lanterns)
