"""A question that is asked over another page, which stays in sight behind it."""

import buttons
import kit
import paint
import stage


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    veil = kit.material("veil", (0.01, 0.005, 0.03), roughness=1.0,
                        image=kit.picture("veil", paint.with_alpha(paint.np.zeros((8, 8, 3)) + 0.02,
                                                                   paint.np.full((8, 8), 0.62))), blend=True)
    kit.card("veil", 600, 300, veil, location=(0, 40, 0))
    image = kit.picture("parchment", paint.plate((0.16, 0.08, 0.10), (0.28, 0.15, 0.16), 256, 256, 31))
    ground = kit.empty("Board", (0, 6, 0))
    kit.plaque("plate", 96, 46, 4, 7, kit.material("parchment", roughness=0.8, image=image), surfaces["brass"], ground,
               rim_width=1.8, bulge=-0.2)
    text = kit.empty("~tQuestion", (0, 0, 7))
    kit.card("normal", 86, 16, None, text)
    looks = buttons.button_materials()
    made = [buttons.button("Yes", (-22, 0, -11), 38, 11.5, looks), buttons.button("No", (22, 0, -11), 38, 11.5, looks)]
    kit.export_scene("scenes/quit_dialog.glb")

    def enter():
        for node in (ground, text, *made):
            kit.move(node, (0, 30, 0), (0, 0, 0), 0.0, 0.3, kit.ease_out_back)

    def leave():
        for node in (ground, text, *made):
            kit.move(node, (0, 0, 0), (0, 0, -110), 0.0, 0.25, kit.ease_in)

    kit.export_animation("anims/quit_dialog_in.glb", [enter])
    kit.export_animation("anims/quit_dialog_out.glb", [leave])
