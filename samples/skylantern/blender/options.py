"""The second page: a board of choices that hangs before the evening sky."""

import buttons
import kit
import paint
import stage

LANGUAGES = ["English", "Deutsch", "Arabic", "Japanese"]
LANTERNS = [(-66, 20, 30, 5.0), (66, 20, 12, 4.6), (-82, 70, -36, 4.0), (86, 60, -44, 4.6), (-122, 120, 70, 4.8),
            (120, 130, 66, 5.0), (8, 110, 84, 3.6), (-118, 120, 6, 3.8)]


def board(surfaces):
    """The ground of the choices: a dark plate in a brass frame, hung on two ropes."""
    image = kit.picture("slate", paint.plate((0.06, 0.05, 0.17), (0.17, 0.12, 0.36), 256, 256, 21))
    slate = kit.material("slate", roughness=1.0, image=image)
    node = kit.empty("Board", (0, 8, 0))
    kit.plaque("plate", 104, 84, 4, 7, slate, surfaces["brass"], node, rim_width=2.0, bulge=-0.2)
    stage.hanging_lantern(node, (-34, -2, -42), 6.0, 4, surfaces)
    stage.hanging_lantern(node, (34, -2, -42), 6.0, 4, surfaces)
    kit.flourish("flourish", 46, surfaces["brass"], node, (0, -3.4, 24))
    for x, z in ((-1, -1), (1, -1), (-1, 1), (1, 1)):
        kit.flourish("corner", 9, surfaces["brass"], node, (x * 41, -3.4, z * 34.5))
    for x in (-38, 38):
        kit.lathe("rope", [(0.5, 0), (0.5, 60)], surfaces["wood"], node, (x, 2, 40), 6)
        kit.lathe("knob", [(0, -2), (2.0, -1), (2.2, 0), (2.0, 1), (0, 2)], surfaces["brass"], node, (x, -1, 40), 12)
    return node


def heading(board_node):
    """A text of its own, so that it follows the language."""
    node = kit.empty("~tHeading", (0, 0.5, 31))
    kit.card("normal", 90, 10, None, node)
    return node


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    stage.sky()
    stage.mist("far mist", 620, 90, (-20, 240, -95))
    far = kit.empty("Far", (-142, 200, 10))
    stage.island("far island", 26, 32, surfaces, (0, 0, 0), 13, far, haze=0.42)
    stage.house(far, (2, -8, 1.5), 8, surfaces)
    stage.tree(far, (-10, -6, 1), 10, surfaces, "crimson", 3)
    right = kit.empty("Right", (148, 170, -26))
    stage.island("right island", 30, 38, surfaces, (0, 0, 0), 17, right, haze=0.28)
    stage.lighthouse(right, (-2, 0, 1), 40, surfaces)
    stage.tree(right, (-15, -6, 1), 11, surfaces, "amber", 6)
    stage.tree(right, (12, -8, 1), 9, surfaces, "blossom", 7)
    stage.mist("middle mist", 420, 60, (30, 150, -72), mirrored=True)
    ground = board(surfaces)
    text = heading(ground)
    looks = buttons.button_materials()
    made = [buttons.button(word, (-24 + 48 * (i % 2), 0, 11 - 15 * (i // 2)), 42, 11.5, looks)
            for i, word in enumerate(LANGUAGES)]
    made.append(buttons.button("Back", (0, 0, -26), 42, 11.5, looks))
    lanterns = stage.drifting_lanterns(surfaces, LANTERNS)
    kit.export_scene("scenes/options.glb")

    def enter():
        for node in (ground, text, *made):
            kit.move(node, (0, 0, 110), (0, 0, 0), 0.0, 0.6, kit.ease_out_back)
        for i, node in enumerate(lanterns):
            kit.move(node, (0, 0, -30 - 4 * i), (0, 0, 0), 0.0, 0.8, lambda t: 1 - (1 - t) ** 3)

    def leave():
        for node in (ground, text, *made):
            kit.move(node, (0, 0, 0), (0, 0, 115), 0.0, 0.32, kit.ease_in)

    kit.export_animation("anims/options_in.glb", [enter])
    kit.export_animation("anims/options_out.glb", [leave])
