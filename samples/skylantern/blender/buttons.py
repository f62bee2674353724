"""Buttons as the GUI wants them: a node "~b..." with one child a state and a box for its label."""

import kit
import paint

DEPTH = 3.0
RAISED = 1.5  # how much a lit button comes towards the viewer; it dips back while it is held


def button_materials():
    def face(name, low, high, glow):
        image = kit.picture(name, paint.plate(low, high))
        return kit.material(name, roughness=0.45, image=image, emission=glow)

    def rim(name, color, glow, metallic=0.6):
        return kit.material(name, color, metallic=metallic, roughness=0.32, emission=glow)

    def stone(name, color, glow):
        return kit.material(name, color, metallic=0.0, roughness=0.5, emission=glow)

    return {
        "normal": (face("enamel", (0.05, 0.07, 0.20), (0.12, 0.20, 0.42), (0.005, 0.01, 0.03)),
                   rim("rim", (0.58, 0.34, 0.12), (0.06, 0.028, 0.006)),
                   stone("ruby", (0.45, 0.03, 0.05), (0.14, 0.004, 0.01))),
        "onmouse": (face("lit enamel", (0.55, 0.20, 0.05), (0.95, 0.58, 0.20), (0.30, 0.11, 0.02)),
                    rim("lit rim", (0.95, 0.70, 0.30), (0.45, 0.22, 0.06)),
                    stone("lit ruby", (1.0, 0.75, 0.40), (0.9, 0.45, 0.12))),
        "disabled": (face("dull enamel", (0.09, 0.09, 0.12), (0.17, 0.17, 0.21), (0, 0, 0)),
                     rim("dull rim", (0.22, 0.20, 0.20), (0, 0, 0), metallic=0.2),
                     stone("dull ruby", (0.12, 0.10, 0.11), (0, 0, 0))),
    }


def set_stones(made, width, surface):
    """Two stones in brass settings at the ends of a button; they glow with it."""

    def draw(shape, stone):
        for side in (-1, 1):
            kit.gem(shape, (side * width / 2, -1.2, 0), 4.2, 5.2, 1.5, 1)
            kit.gem(shape, (side * width / 2, -2.4, 0), 2.7, 3.5, 1.5, stone)

    kit.add_to(made, [surface], draw)


def body(state, width, height, raised, materials, parent):
    """One state of a button."""
    face, rim, stone = materials
    made = kit.plaque(state, width, height, DEPTH, min(4.2, height * 0.42), face, rim, parent)
    set_stones(made, width, stone)
    for vertex in made.data.vertices:
        # The back stays, so that the box of every state begins at the same depth.
        if vertex.co.y < -0.1:
            vertex.co.y -= raised
    return made


def label(parent, width, height, front, gap):
    """The box that the label is written into; only its measures count, it is never drawn. It hovers before the face by a
    gap, and stands a little nearer the middle of the view, so that it is seen in the middle of the face."""
    x, _, z = (parent.parent or parent).location
    nearer = gap / kit.EYE
    node = kit.empty("text", (-x * nearer, -front, -z * nearer), parent)
    kit.card("normal", width, height, None, node)
    return node


def button(name, location, width, height, materials, label_height=7.0, hung_by=0.0, margin=9):
    """All states have the same outline; the pointer is tested against the normal one. `hung_by` is the length of the two
    chains that the button hangs on."""
    node = kit.empty("~b" + name, location)
    for state, raised in (("normal", 0.0), ("onmouse", RAISED), ("disabled", 0.0)):
        # Buttons of one size share their meshes.
        kit.shown(f"{state} {width:g} x {height:g}", state, node,
                  lambda s=state, r=raised: body(s, width, height, r, materials[s], node))
    if hung_by:
        for side in (-1, 1):
            kit.chain("chain", height / 2 + hung_by, height / 2 - 0.4, side * width * 0.34, materials["normal"][1], node)
    label(node, width - margin, label_height, DEPTH + RAISED + 0.6, RAISED + 0.6)
    return node
