"""The second page: a board of choices that hangs before the evening sky."""

import buttons
import kit
import paint
import stage

LANGUAGES = ["English", "Deutsch", "Arabic", "Japanese"]
LANTERNS = [(-66, 20, 30, 4.6), (66, 20, 22, 4.2), (-78, 70, -16, 3.8), (84, 60, -24, 4.4), (-104, 120, 40, 4.8),
            (112, 130, 46, 5.0), (40, 110, 50, 3.4), (-30, 130, 54, 3.8)]


def board(surfaces):
    """The ground of the choices: a dark plate in a brass frame, hung on two ropes."""
    image = kit.picture("slate", paint.plate((0.06, 0.05, 0.17), (0.17, 0.12, 0.36), 256, 256, 21))
    slate = kit.material("slate", roughness=1.0, image=image)
    node = kit.empty("Board", (0, 8, 0))
    kit.plaque("plate", 104, 84, 4, 7, slate, surfaces["brass"], node, rim_width=2.0, bulge=-0.2)
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
    stage.mist("far mist", 620, 90, (-20, 240, -95), 64)
    stage.island("far island", 24, 32, surfaces, (-128, 200, 4), 13)
    stage.island("right island", 28, 36, surfaces, (136, 190, -14), 17)
    stage.mist("middle mist", 420, 60, (30, 150, -72), 77)
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
