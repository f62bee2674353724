"""Boards that pages hang their controls on, and how they come and go."""

import kit
import paint
import stage

SHUT_BEFORE = -9.0  # shutters pass in front of everything on the board
ASIDE = 260.0  # out of sight in every window


def board(surfaces, width=104, height=84, middle=0.0):
    """The ground of the choices: a dark plate in a brass frame, hung on two ropes."""
    image = kit.picture("slate", paint.plate((0.06, 0.05, 0.17), (0.17, 0.12, 0.36), 256, 256, 21))
    slate = kit.material("slate", roughness=1.0, image=image)
    node = kit.empty("Board", (0, 8, middle))
    kit.plaque("plate", width, height, 4, 7, slate, surfaces["brass"], node, rim_width=2.0, bulge=-0.2)
    for side in (-1, 1):
        stage.hanging_lantern(node, (side * width * 0.33, -2, -height / 2), 6.0, 4, surfaces)
        x = side * width * 0.365
        kit.lathe("rope", [(0.5, 0), (0.5, 60)], surfaces["wood"], node, (x, 2, height / 2 - 2), 6)
        kit.lathe("knob", [(0, -2), (2.0, -1), (2.2, 0), (2.0, 1), (0, 2)], surfaces["brass"], node,
                  (x, -1, height / 2 - 2), 12)
        for end in (-1, 1):
            kit.flourish("corner", 9, surfaces["brass"], node, (side * (width / 2 - 11), -3.4, end * (height / 2 - 7.5)))
    return node


def shutters(surfaces, width, height, middle=0.0):
    """Two doors, left and right; they rest aside, out of sight. Pages with slide bars open them instead of moving what is
    behind them: the GUI holds sliders at their places while a page comes in."""
    image = kit.picture("shutter", paint.plate((0.05, 0.07, 0.20), (0.12, 0.20, 0.42), 256, 256, 27))
    enamel = kit.material("shutter", roughness=0.6, image=image)
    doors = []
    for side in (-1, 1):
        node = kit.empty("Left shutter" if side < 0 else "Right shutter", (side * ASIDE, SHUT_BEFORE, middle))
        kit.plaque("door", width / 2, height, 2.5, 5, enamel, surfaces["brass"], node, rim_width=1.8, bulge=0.2)
        kit.plaque("inlay", width / 2 - 14, height - 18, 1.6, 4, enamel, surfaces["brass"], node, (0, -1.4, 0),
                   rim_width=1.0, bulge=0.2)
        for end in (-1, 0, 1):
            kit.flourish("hinge", width / 5, surfaces["brass"], node, (0, -3.6, end * (height / 2 - 14)))
        stage.paper_lantern("Handle", (-side * (width / 4 - 10), -6, 0), 7.0, surfaces, node)
        doors.append((node, side * width / 4))
    return doors


def rise_lanterns(lanterns):
    for i, node in enumerate(lanterns):
        kit.move(node, (0, 0, -30 - 4 * i), (0, 0, 0), 0.0, 0.8, lambda t: 1 - (1 - t) ** 3)


def export_hanging_animations(page, hung, lanterns):
    """What hangs on the ropes swings down from above and is drawn up again; lanterns rise."""

    def enter():
        for node in hung:
            kit.move(node, (0, 0, 115), (0, 0, 0), 0.0, 0.6, kit.ease_out_back)
        rise_lanterns(lanterns)

    def leave():
        for node in hung:
            kit.move(node, (0, 0, 0), (0, 0, 120), 0.0, 0.32, kit.ease_in)

    kit.export_animation(f"anims/{page}_in.glb", [enter])
    kit.export_animation(f"anims/{page}_out.glb", [leave])


def export_shutter_animations(page, doors, made, lanterns):
    """The doors open and close; buttons follow from below, lanterns rise."""

    def enter():
        for node, shut in doors:
            kit.move(node, (shut - node.location.x, 0, 0), (0, 0, 0), 0.05, 0.85, lambda t: t**2.4)
        for node in made:
            kit.move(node, (0, 0, -40), (0, 0, 0), 0.2, 0.5, kit.ease_out_back)
        rise_lanterns(lanterns)

    def leave():
        for node, shut in doors:
            kit.move(node, (0, 0, 0), (shut - node.location.x, 0, 0), 0.0, 0.4, lambda t: 1 - (1 - t) ** 2)

    kit.export_animation(f"anims/{page}_in.glb", [enter])
    kit.export_animation(f"anims/{page}_out.glb", [leave])
