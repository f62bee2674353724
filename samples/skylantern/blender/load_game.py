"""Saved journeys to go on with: a long list, companions to take along and the year to start in."""

import boards
import buttons
import controls
import kit
import scenery
import stage

WIDTH, HEIGHT = 146, 100
LANTERNS = [(70, 20, 60, 4.0), (84, 70, -46, 4.2), (-86, 60, -52, 4.6), (124, 120, 66, 4.8), (-120, 130, 72, 5.0),
            (118, 110, 2, 3.8), (-112, 110, 30, 3.6)]
ISLANDS = [
    ("Near", (-160, 170, -34), 32, 40, 23, 0.25,
     [("house", (4, -8, 1.5), 9), ("amber", (-14, -6, 1), 11), ("moss", (16, -8, 1), 8)]),
    ("Far", (156, 210, 26), 24, 30, 29, 0.45, [("house", (-4, -8, 1.5), 7), ("blossom", (8, -6, 1), 10)]),
]
LEFT, RIGHT = -36, 34.2
RIGHT_MIDDLE = RIGHT + 4.5  # of the list and its slide bar


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    scenery.evening(surfaces, ISLANDS)
    ground = boards.board(surfaces, WIDTH, HEIGHT)
    kit.flourish("flourish", 60, surfaces["brass"], ground, (0, -3.4, 33))
    controls.caption("~tHeading", (0, 0.5, 39), 110, 10)
    controls.caption("~tCompanions", (RIGHT_MIDDLE, 0.5, 26.5), 58, 6)
    controls.caption("~tYear", (RIGHT_MIDDLE, 0.5, -9.5), 58, 6)
    controls.caption("~tStory", (RIGHT_MIDDLE, 0.5, -30), 62, 9.6)
    looks = controls.control_materials(buttons.button_materials())
    controls.choice_list("Journeys", (LEFT, 0, -1), 58, 56, looks, surfaces)
    controls.choice_list("Companions", (RIGHT, 0, 8), 44, 24, looks, surfaces)
    controls.spinner("Year", (RIGHT_MIDDLE, 0, -18), 38, 6, looks, surfaces)
    below = [buttons.button("Load", (-26, 0, -41.5), 42, 10.5, looks),
             buttons.button("Back", (26, 0, -41.5), 42, 10.5, looks)]
    doors = boards.shutters(surfaces, WIDTH + 2, HEIGHT + 2)
    lanterns = stage.drifting_lanterns(surfaces, LANTERNS)
    kit.export_scene("scenes/load_game.glb")
    boards.export_shutter_animations("load_game", doors, below, lanterns)
