"""The first page: the name of the game, its menu, and the world behind it."""

import buttons
import kit
import stage

MENU = ["Continue", "NewGame", "Options", "Quit"]
LANTERNS = [(-92, 40, 46, 4.0), (-128, 100, 14, 4.4), (4, 70, 30, 3.4), (74, 10, 44, 5.0), (30, 120, 22, 3.2),
            (96, 90, 16, 4.4), (-104, 80, 8, 4.2), (70, -6, -34, 4.2), (6, 50, -30, 3.0), (2, 160, 72, 4.0),
            (128, 150, 70, 5.0), (-150, 150, 104, 5.2), (-84, 20, -40, 4.2), (130, 120, -50, 4.6)]
COLUMN = -33  # where the menu stands
SMALL = [("Inventory", 2), ("Credits", 32), ("Help", 62)]  # below the isle: name, place
TREES = [(-26, -3, 8, "crimson"), (-20, 7, 11, "amber"), (-15, -9, 6, "blossom"), (5, 10, 10, "moss"), (29, 2, 7, "amber"),
         (7, -12, 5, "crimson"), (24, 9, 10, "blossom")]


def world(surfaces):
    stage.sky()
    stage.mist("far mist", 620, 90, (30, 240, -95))
    far = kit.empty("Far", (152, 230, 40))
    stage.island("far island", 24, 30, surfaces, (0, 0, 0), 3, far, haze=0.45)
    stage.house(far, (-4, -8, 1.5), 7, surfaces)
    left = kit.empty("Left", (-128, 190, -22))
    stage.island("left island", 30, 38, surfaces, (0, 0, 0), 5, left, haze=0.30)
    stage.house(left, (-6, -10, 2), 8, surfaces)
    stage.tree(left, (7, -8, 1), 11, surfaces, "blossom", 4)
    stage.tree(left, (-17, -4, 1), 9, surfaces, "amber", 5)
    stage.mist("middle mist", 420, 70, (-40, 150, -70), mirrored=True)
    isle = kit.empty("Isle", (42, 40, -14))
    isle.rotation_euler = (0.20, 0, 0)  # shows a little of the meadow
    stage.island("meadow", 35, 40, surfaces, (0, 0, 0), 9, isle)
    stage.lighthouse(isle, (-5, 2, 2), 48, surfaces)
    stage.house(isle, (17, -8, 1.6), 9.5, surfaces)
    for i, (x, y, size, kind) in enumerate(TREES):
        stage.tree(isle, (x, y, 1.2), size, surfaces, kind, i + 2)
    stage.pebbles(isle, (0, 0, -40), 32, 14, surfaces, 6)
    stage.mist("near mist", 300, 46, (30, 8, -64))
    return isle


def letter_color(point, normal):
    """Gold that darkens downwards; bright edges, dark sides."""
    if normal.y < -0.95:
        return stage.blend((0.78, 0.17, 0.015), (1.0, 0.80, 0.32), 0.5 + point.z / 10)
    if normal.y < -0.15:
        return stage.blend((0.85, 0.42, 0.12), (1.0, 0.92, 0.66), 0.5 + 0.5 * normal.z)
    return (0.20, 0.055, 0.035)


def title(surfaces):
    """The name of the game in solid gold, on a node of its own so that it can move."""
    node = kit.empty("Title", (COLUMN, 0, 41))
    gold = kit.material("gold", metallic=0.2, roughness=0.45, emission=(0.03, 0.01, 0.0), vertex_colors=True)
    for word, size, height, spacing in (("SKY", 18.5, 8.2, 1.16), ("LANTERN", 14.4, -6.4, 1.02)):
        made = kit.letters(word.title(), word, size, 1.0, gold, node, (0, 0, height), spacing=spacing)
        kit.paint_vertices(made, letter_color, 0.25)
        kit.letters(word.title() + " outline", word, size, 0.3, surfaces["outline"], node, (0, 2.0, height), bevel=0.95,
                    spacing=spacing, rounds=0)
    for side in (-1, 1):
        stage.paper_lantern("Emblem", (side * 23.5, 0, 8.2), 6.4, surfaces, node)
    kit.flourish("Flourish", 38, surfaces["brass"], node, (0, -1, -15.6))
    return node


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    isle = world(surfaces)
    name = title(surfaces)
    looks = buttons.button_materials()
    made = [buttons.button(word, (COLUMN, 0, 15.5 - 15 * i), 52, 11.5, looks, hung_by=3.9) for i, word in enumerate(MENU)]
    small = [buttons.button(word, (x, 0, -51), 27, 9.5, looks, margin=4) for word, x in SMALL]
    stage.hanging_lantern(made[-1], (0, 0.5, -5.2), 4.6, 3.5, surfaces)
    lanterns = stage.drifting_lanterns(surfaces, LANTERNS)
    kit.export_scene("scenes/main_menu.glb")

    def enter():
        for i, node in enumerate(made):
            kit.move(node, (-110, -30, 0), (0, 0, 0), 0.15 + 0.09 * i, 0.55, kit.ease_out_back)
        for i, node in enumerate(small):
            kit.move(node, (0, -10, -40), (0, 0, 0), 0.35 + 0.08 * i, 0.5, kit.ease_out_back)
        kit.move(name, (0, -20, 40), (0, 0, 0), 0.0, 0.7, kit.ease_out_back, rise=(0.6, 1.0))
        kit.move(isle, (60, 30, -30), (0, 0, 0), 0.0, 0.9, lambda t: 1 - (1 - t) ** 3)
        for i, node in enumerate(lanterns):
            kit.move(node, (0, 0, -40 - 3 * i), (0, 0, 0), 0.0, 0.95, lambda t: 1 - (1 - t) ** 3)

    def leave():
        for i, node in enumerate(made):
            kit.move(node, (0, 0, 0), (-120, 0, 0), 0.04 * i, 0.26, kit.ease_in)
        for node in small:
            kit.move(node, (0, 0, 0), (0, 0, -40), 0.0, 0.3, kit.ease_in)
        kit.move(name, (0, 0, 0), (0, 0, 45), 0.0, 0.34, kit.ease_in)

    kit.export_animation("anims/main_menu_in.glb", [enter])
    kit.export_animation("anims/main_menu_out.glb", [leave])
