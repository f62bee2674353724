"""Choices of sound, picture, language and difficulty, on a board that hangs before the evening sky."""

import boards
import buttons
import controls
import kit
import scenery
import stage

WIDTH, HEIGHT = 146, 100
LANTERNS = [(-66, 20, 60, 4.0), (-82, 70, -46, 4.0), (86, 60, -50, 4.6), (-122, 120, 70, 4.8), (120, 130, 66, 5.0),
            (8, 110, 84, 3.6), (-118, 120, 6, 3.8)]
ISLANDS = [
    ("Far", (-152, 200, 10), 26, 32, 13, 0.42, [("house", (2, -8, 1.5), 8), ("crimson", (-10, -6, 1), 10)]),
    ("Right", (158, 170, -26), 30, 38, 17, 0.28,
     [("lighthouse", (-2, 0, 1), 40), ("amber", (-15, -6, 1), 11), ("blossom", (12, -8, 1), 9)]),
]
LEFT, RIGHT = -34, 34
# Two captions at one place: the second says that nothing is to be heard.
CAPTIONS = [("Music", LEFT, 27), ("MusicOff", LEFT, 27), ("Sound", LEFT, 12.5), ("SoundOff", LEFT, 12.5),
            ("Language", RIGHT, 27), ("Difficulty", RIGHT, -4)]
MARKS = [("Audible", False), ("Subtitles", False), ("Fullscreen", True), ("Windowed", True)]


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    scenery.evening(surfaces, ISLANDS)
    ground = boards.board(surfaces, WIDTH, HEIGHT)
    kit.flourish("flourish", 60, surfaces["brass"], ground, (0, -3.4, 33))
    controls.caption("~tHeading", (0, 0.5, 39), 100, 10)
    for name, x, z in CAPTIONS:
        controls.caption("~t" + name, (x, 0.5, z), 56, 6)
    looks = controls.control_materials(buttons.button_materials())
    for name, z in (("Music", 20), ("Sound", 5.5)):
        controls.slide_bar("~s" + name, (LEFT, 0, z), 58, looks, surfaces)
    for i, (name, round_mark) in enumerate(MARKS):
        controls.check_button(name, (LEFT, 0, -4 - 8.6 * i), 58, 7.8, looks, round_mark, own_labels=name == "Audible")
    for i, name in enumerate(("Gentle", "Bold", "Fearless")):
        controls.check_button(name, (RIGHT, 0, -11.5 - 9.2 * i), 58, 8.2, looks, round_mark=True)
    controls.choice_list("Language", (RIGHT - 4.5, 0, 11.6), 45, 19, looks, surfaces)
    back = buttons.button("Back", (0, 0, -41.5), 42, 10.5, looks)
    doors = boards.shutters(surfaces, WIDTH + 2, HEIGHT + 2)
    lanterns = stage.drifting_lanterns(surfaces, LANTERNS)
    kit.export_scene("scenes/options.glb")
    boards.export_shutter_animations("options", doors, [back], lanterns)
