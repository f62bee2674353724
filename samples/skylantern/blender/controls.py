"""Widgets with more than one part: slide bars, lists, check buttons and long texts, as the GUI wants them.

Boxes that the GUI reads are centred on their nodes, so that texts, rows and sliders land where the shapes are.
"""

import math

import buttons
import kit

STATES = ("normal", "onmouse", "disabled")
STEP = 5.6  # a step button's side
KNOB_LONG, KNOB_WIDE = 3.8, 6.2  # a slider, along its bar and across
TRACK = 2.6  # a bar's width
PADDING = 2.0  # between a list's or long text's box and its frame
BAR_ROOM = 9.0  # what an upright bar takes beside a frame


def control_materials(looks):
    """Surfaces of controls, beside those of buttons."""
    dark = kit.material("groove", (0.020, 0.018, 0.055), roughness=0.8)
    return {
        "groove": {"normal": dark, "disabled": dark,
                   "onmouse": kit.material("lit groove", (0.30, 0.13, 0.03), roughness=0.8, emission=(0.16, 0.06, 0.01))},
        "page": kit.material("page", (0.024, 0.022, 0.072), roughness=1.0),
        "flame": kit.material("flame", (0.85, 0.26, 0.03), roughness=0.4, emission=(0.62, 0.17, 0.015)),
        "unlit": kit.material("unlit", (0.05, 0.03, 0.05), roughness=0.6),
        **looks,
    }


def caption(name, location, width, height, parent=None):
    """A text that follows the language; its box is never drawn."""
    node = kit.empty(name, location, parent)
    kit.card("normal", width, height, None, node)
    return node


def step_button(name, location, towards, looks, parent):
    """A small button with an arrow. `towards` is the angle that it points to, 0 to the right."""
    node = kit.empty(name, location, parent)

    def body(state):
        face, rim, stone = looks[state]
        made = kit.plaque(state, STEP, STEP, 2.2, 1.6, face, rim, node, rim_width=0.7)
        kit.add_to(made, [stone if state != "normal" else rim], lambda shape, first: kit.gem(
            shape, (-0.2 * math.cos(towards), -2.1, -0.2 * math.sin(towards)), 3.2, 3.2, 0.9, first, 3, towards))
        return made

    for state in STATES:
        kit.shown(f"step {state} {towards:.2f}", state, node, lambda s=state: body(s))
    return node


def bar(name, track, upright, looks, parent):
    """The groove that can be dragged along."""
    node = kit.empty(name, (0, 0, 0), parent)
    width, height = (TRACK, track) if upright else (track, TRACK)
    for state in STATES:
        _, rim, _ = looks[state]
        kit.plaque(state, width, height, 0.9, 0.6, looks["groove"][state], rim, node, rim_width=0.45, bulge=-0.3)


def slider(along, track, upright, looks, parent):
    """The knob that shows the position. The GUI moves it from its rest place by the bar's length, less half its size on
    the right of its middle (upright: before its middle): the rest place makes up for that."""
    node = kit.empty("slider", (0, -0.6, 0), parent)
    width, height = (KNOB_WIDE, KNOB_LONG) if upright else (KNOB_LONG, KNOB_WIDE)

    def body(state):
        face, rim, stone = looks[state]
        made = kit.plaque(state, width, height, 2.0, 1.2, face, rim, node, rim_width=0.6)
        kit.add_to(made, [stone], lambda shape, first: kit.gem(shape, (0, -2.0, 0), 2.2, 2.2, 1.1, first))
        return made

    shapes = [kit.shown(f"slider {state} {upright}", state, node, lambda s=state: body(s)) for state in STATES]
    reach = max((-v.co.y if upright else v.co.x) for v in shapes[0].data.vertices)
    first = along(track / 2) if upright else along(-track / 2)
    shift = along(-0.5 * reach) if upright else along(0.5 * reach)
    node.location = (first[0] + shift[0], node.location.y, first[2] + shift[2])


def slide_bar(name, location, length, looks, surfaces, upright=False, parent=None):
    """`length` is that of the whole, step buttons included. An upright bar's first position is at its top."""
    node = kit.empty(name, location, parent)

    def along(distance):
        return (0, 0, distance) if upright else (distance, 0, 0)

    end = (length - STEP) / 2
    rail = length - 2 * STEP - 0.8
    track = rail - KNOB_LONG
    width, height = (TRACK + 1.8, rail) if upright else (rail, TRACK + 1.8)
    kit.plaque("rail", width, height, 0.8, 1.0, surfaces["wood"], surfaces["brass"], node, (0, 0.7, 0), rim_width=0.5,
               bulge=-0.3)
    bar("bary" if upright else "barx", track, upright, looks, node)
    slider(along, track, upright, looks, node)
    backwards = math.pi / 2 if upright else math.pi
    step_button("down", along(end if upright else -end), backwards, looks, node)
    step_button("up", along(-end if upright else end), backwards + math.pi, looks, node)
    return node


def frame(width, height, looks, surfaces, parent):
    """What surrounds the box of a list or a long text."""
    return kit.plaque("frame", width + 2 * PADDING, height + 2 * PADDING, 1.6, 2.4, looks["page"], surfaces["brass"], parent,
                      (0, 2.0, 0), rim_width=0.9, bulge=-0.3)


def box(name, width, height, surface, parent):
    """A layout box: rows and lines are written on its node's plane, a little before the shape."""
    made = kit.card(name, width, height, surface, parent)
    for vertex in made.data.vertices:
        vertex.co.y += 0.5
    return made


def choice_list(name, location, width, height, looks, surfaces):
    """A framed list with an upright slide bar on its right."""
    node = kit.empty("~l" + name, location)
    frame(width, height, looks, surfaces, node)
    box("list", width, height, looks["page"], node)
    slide_bar("slidery", (width / 2 + PADDING + BAR_ROOM / 2, 0, 0), height + 2 * PADDING, looks, surfaces, True, node)
    return node


def spinner(name, location, width, height, looks, surfaces):
    """A list of one row between two step buttons: what it shows is what is chosen."""
    node = kit.empty("~l" + name, location)
    frame(width, height, looks, surfaces, node)
    box("list", width, height, looks["page"], node)
    steps = kit.empty("slidery", (0, 0, 0), node)
    end = width / 2 + PADDING + STEP / 2 + 0.8
    step_button("down", (-end, 0, 0), math.pi, looks, steps)
    step_button("up", (end, 0, 0), 0, looks, steps)
    return node


def long_text(name, location, width, height, looks, surfaces):
    """A framed text that scrolls."""
    node = kit.empty("~t" + name, location)
    frame(width, height, looks, surfaces, node)
    box("normal", width, height, None, node)
    slide_bar("slidery", (width / 2 + PADDING + BAR_ROOM / 2, 0, 0), height + 2 * PADDING, looks, surfaces, True, node)
    return node


def check_button(name, location, width, height, looks, round_mark=False, label_height=6.0, own_labels=False):
    """A row with a mark that lights up. Round marks are for choices of one among several. With labels of their own the
    checked and the unchecked button say different things."""
    node = kit.empty("~c" + name, location)
    mark = -width / 2 + height / 2 + 0.6
    size, sides, turn = (height * 0.50, 8, math.pi / 8) if round_mark else (height * 0.62, 4, math.pi / 4)

    def body(choice, state, parent):
        face, rim, _ = looks[state]
        made = kit.plaque(state, width, height, 2.0, 1.8, face, rim, parent, rim_width=0.8)
        # Flames would not be seen on a face that is lit as well.
        stone = looks["unlit"] if choice == "unchecked" else looks["normal"][2] if state == "onmouse" else looks["flame"]

        def draw(shape, first):
            kit.gem(shape, (mark, -1.7, 0), size * 1.3, size * 1.3, 1.1, 1, sides, turn)
            kit.gem(shape, (mark, -2.6, 0), size, size, 1.0, first, sides, turn)

        kit.add_to(made, [stone], draw)
        return made

    left, right = mark + size * 0.5 + 2.0, width / 2 - 1.6
    halves = [kit.empty(choice, (0, 0, 0), node) for choice in ("checked", "unchecked")]
    for choice, half in zip(("checked", "unchecked"), halves):
        for state in STATES:
            kit.shown(f"{choice} {state} {width:g} x {height:g} {sides}", state, half,
                      lambda c=choice, s=state, h=half: body(c, s, h))
    for parent in halves if own_labels else [node]:
        label = buttons.label(parent, right - left, label_height, 4.0, 1.8)
        label.location.x += (left + right) / 2
    return node
