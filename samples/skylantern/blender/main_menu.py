"""The first page: the name of the game, its menu, and the world behind it."""

import bpy

import buttons
import kit
import stage

MENU = ["Continue", "NewGame", "Options", "Quit"]
LANTERNS = [(-70, 40, 34, 3.4), (-14, 30, 40, 3.0), (8, 70, 26, 3.6), (70, 10, 44, 4.6), (30, 120, 8, 3.8), (92, 90, 20, 4.6),
            (-98, 80, 6, 4.2), (66, -6, -26, 3.6), (14, 50, -22, 2.8), (-8, 160, 60, 4.2), (118, 150, 66, 5.0),
            (-128, 150, 62, 5.2), (-84, 20, -40, 3.6)]


def world(surfaces):
    stage.sky()
    stage.mist("far mist", 620, 90, (30, 240, -95), 60)
    stage.island("far island", 22, 30, surfaces, (118, 210, 22), 3)
    stage.island("left island", 26, 34, surfaces, (-132, 190, -6), 5)
    stage.mist("middle mist", 420, 70, (-40, 150, -70), 71)
    isle = kit.empty("Isle", (42, 40, -10))
    stage.island("meadow", 34, 40, surfaces, (0, 0, 0), 9, isle)
    stage.lighthouse(isle, (-5, 2, 3), 46, surfaces)
    stage.house(isle, (14, -6, 2.6), 9, surfaces)
    stage.house(isle, (23, 3, 2.2), 7, surfaces)
    for x, y, size in ((-19, -6, 7), (-23, 2, 9), (-15, 8, 8), (6, 9, 8), (29, -1, 6), (2, -13, 5)):
        stage.tree(isle, (x, y, 2), size, surfaces)
    stage.mist("near mist", 300, 46, (30, 8, -62), 83)
    return isle


def title(surfaces):
    """The name of the game in solid brass, on a node of its own so that it can move."""
    node = kit.empty("Title", (-33, 0, 41))
    gold = kit.material("gold", (0.85, 0.52, 0.16), metallic=0.7, roughness=0.28, emission=(0.20, 0.09, 0.015))
    kit.letters("Sky", "SKY", 15, 1.0, gold, node, (0, 0, 6.2), spacing=1.14)
    kit.letters("Lantern", "LANTERN", 12.4, 1.0, gold, node, (0, 0, -6.4), spacing=1.02)
    stage.paper_lantern("Emblem", (30.5, -2, 8), 5.2, surfaces, node)
    return node


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    isle = world(surfaces)
    name = title(surfaces)
    looks = buttons.button_materials()
    made = [buttons.button(word, (-33, 0, 17 - 14.5 * i), 52, 11.5, looks) for i, word in enumerate(MENU)]
    lanterns = stage.drifting_lanterns(surfaces, LANTERNS)
    kit.export_scene("scenes/main_menu.glb")

    def enter():
        for i, node in enumerate(made):
            kit.move(node, (-110, -30, 0), (0, 0, 0), 0.15 + 0.09 * i, 0.55, kit.ease_out_back)
        kit.move(name, (0, -20, 40), (0, 0, 0), 0.0, 0.7, kit.ease_out_back, rise=(0.6, 1.0))
        kit.move(isle, (60, 30, -30), (0, 0, 0), 0.0, 0.9, lambda t: 1 - (1 - t) ** 3)
        for i, node in enumerate(lanterns):
            kit.move(node, (0, 0, -40 - 3 * i), (0, 0, 0), 0.0, 0.95, lambda t: 1 - (1 - t) ** 3)

    def leave():
        for i, node in enumerate(made):
            kit.move(node, (0, 0, 0), (-120, 0, 0), 0.04 * i, 0.26, kit.ease_in)
        kit.move(name, (0, 0, 0), (0, 0, 45), 0.0, 0.34, kit.ease_in)

    kit.export_animation("anims/main_menu_in.glb", [enter])
    kit.export_animation("anims/main_menu_out.glb", [leave])
