"""What surrounds the bag page, which has no texts or buttons of its own: sky, heading, a hint and the way back."""

import buttons
import controls
import kit
import paint
import scenery
import stage

LANTERNS = [(-74, 30, 44, 4.6), (76, 40, 40, 4.4), (-84, 60, -34, 4.2), (90, 70, -30, 4.6), (-126, 130, 20, 4.8),
            (124, 120, 66, 5.0), (-118, 120, 78, 4.4), (30, 150, 60, 3.6)]
ISLANDS = [
    ("Left", (-136, 190, -34), 30, 38, 61, 0.28, [("house", (4, -10, 1.5), 9), ("amber", (-12, -6, 1), 11)]),
    ("Right", (142, 200, 0), 26, 34, 67, 0.36, [("lighthouse", (-2, 0, 1), 40), ("crimson", (12, -8, 1), 9)]),
]


def sign(name, width, height, z, surfaces, slate):
    """A hanging plate behind a text."""
    node = kit.empty(name, (0, 4, z))
    kit.plaque("plate", width, height, 2.4, min(4, height * 0.4), slate, surfaces["brass"], node, rim_width=1.1, bulge=-0.2)
    return node


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    scenery.evening(surfaces, ISLANDS)
    image = kit.picture("slate", paint.plate((0.06, 0.05, 0.17), (0.17, 0.12, 0.36), 64, 256, 21))
    slate = kit.material("slate", roughness=1.0, image=image)
    heading = sign("Sign", 84, 13, 50, surfaces, slate)
    for side in (-1, 1):
        kit.chain("chain", 26, 5.6, side * 32, surfaces["brass"], heading)
    hint = sign("Hint", 112, 7.6, -39.5, surfaces, slate)
    texts = [controls.caption("~tHeading", (0, 0.5, 49.6), 78, 9), controls.caption("~tHint", (0, 0.5, -39.3), 108, 6)]
    back = buttons.button("Back", (0, 0, -51), 42, 10.5, buttons.button_materials())
    lanterns = stage.drifting_lanterns(surfaces, LANTERNS)
    kit.export_scene("scenes/inventory_frame.glb")

    def enter():
        for node in (heading, texts[0]):
            kit.move(node, (0, 0, 40), (0, 0, 0), 0.1, 0.6, kit.ease_out_back)
        for node in (hint, texts[1], back):
            kit.move(node, (0, 0, -40), (0, 0, 0), 0.35, 0.55, kit.ease_out_back)
        for i, node in enumerate(lanterns):
            kit.move(node, (0, 0, -30 - 4 * i), (0, 0, 0), 0.0, 0.9, lambda t: 1 - (1 - t) ** 3)

    def leave():
        for node in (heading, texts[0]):
            kit.move(node, (0, 0, 0), (0, 0, 40), 0.0, 0.38, kit.ease_in)
        for node in (hint, texts[1], back):
            kit.move(node, (0, 0, 0), (0, 0, -40), 0.0, 0.38, kit.ease_in)

    kit.export_animation("anims/inventory_frame_in.glb", [enter])
    kit.export_animation("anims/inventory_frame_out.glb", [leave])
