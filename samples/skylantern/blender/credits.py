"""Those who made the game, as three lanterns in frames. A click lights a lantern: the game shows its other picture."""

import math

import boards
import buttons
import controls
import kit
import portraits
import scenery
import stage

WIDTH, HEIGHT = 146, 96
LANTERNS = [(-84, 40, 56, 4.4), (84, 30, 58, 4.2), (-86, 60, -52, 4.4), (124, 120, 40, 4.8), (-120, 130, 60, 5.0),
            (116, 110, -8, 3.8), (6, 110, 88, 3.6)]
ISLANDS = [
    ("Workshop", (-156, 180, -14), 30, 38, 47, 0.25,
     [("house", (2, -8, 1.5), 10), ("house", (-14, -4, 1.5), 8), ("moss", (16, -6, 1), 10)]),
    ("Beacon", (154, 200, -16), 26, 34, 53, 0.35, [("lighthouse", (0, 0, 1), 42), ("amber", (-13, -8, 1), 10)]),
]
PICTURE_WIDTH, PICTURE_HEIGHT = 33, 42


def picture(name, x, surfaces):
    """A framed picture and its caption. The picture is the widget; the frame is decoration round it."""
    node = kit.empty(name.title() + " frame", (x, 0, 6))
    kit.plaque("frame", PICTURE_WIDTH + 4, PICTURE_HEIGHT + 4, 2.0, 3.0, surfaces["wood"], surfaces["brass"], node,
               (0, 2.2, 0), rim_width=1.7, bulge=-0.2)
    image = kit.picture(name, portraits.portrait(name, lit=False))
    surface = kit.material("portrait of " + name, roughness=1.0, image=image)
    shown = kit.card("~p" + name.title(), PICTURE_WIDTH, PICTURE_HEIGHT, surface, None, (x, 0, 6))
    caption = controls.caption("~t" + name.title(), (x, 0.5, -23.5), 46, 11)
    return [node, shown, caption]


def dance(lanterns):
    """The lanterns bow to the one that was lit: up and down again, one after the other."""
    for i, node in enumerate(lanterns):
        kit.move(node, (0, 0, 0), (0, 0, 9), 0.05 * i, 0.5, lambda t: math.sin(math.pi * t))


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    scenery.evening(surfaces, ISLANDS)
    ground = boards.board(surfaces, WIDTH, HEIGHT)
    heading = controls.caption("~tHeading", (0, 0.5, 38), 110, 10)
    looks = buttons.button_materials()
    framed = [node for i, name in enumerate(portraits.PORTRAITS) for node in picture(name, 46 * (i - 1), surfaces)]
    back = buttons.button("Back", (0, 0, -39), 42, 10.5, looks)
    lanterns = stage.drifting_lanterns(surfaces, LANTERNS)
    kit.export_scene("scenes/credits.glb")
    boards.export_hanging_animations("credits", [ground, heading, *framed, back], lanterns)
    kit.export_animation("anims/credits_dance.glb", [lambda: dance(lanterns)])
    for name in portraits.PORTRAITS:
        kit.save_picture(portraits.portrait(name, lit=False), f"textures/{name}.png")
        kit.save_picture(portraits.portrait(name, lit=True), f"textures/{name}_lit.png")
