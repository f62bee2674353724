"""The satchel and the ring of what lies in it: the scene of the bag page. It is shown without light, so light and shade are
painted on."""

import math
import os

import bmesh
import bpy

import belongings
import kit
import stage

LEATHER_LIGHT, LEATHER_DARK = (0.60, 0.19, 0.06), (0.075, 0.016, 0.022)
FLAP_LIGHT, FLAP_DARK = (0.80, 0.31, 0.10), (0.12, 0.028, 0.026)
BRASS_LIGHT, BRASS_DARK = (1.0, 0.72, 0.30), (0.24, 0.09, 0.03)
WELL = (0.018, 0.014, 0.05)
MIDDLE = 4.5  # height of the ring's middle
RING_WIDTH, RING_HEIGHT = 52, 29
SLOT_SIZE = 1.7  # the GUI draws a slot as a square of 8 units on its node, times the node's size


def paint_over(made, color):
    """Gives every part of a shape one surface, whose colours are its vertices'."""
    made.data.materials.clear()
    made.data.materials.append(bpy.data.materials["land"])
    for polygon in made.data.polygons:
        polygon.material_index = 0
    kit.paint_vertices(made, color)
    return made


def painted(made, light, dark, shade=1.0):
    return paint_over(made, lambda point, normal: stage.lit(dark, light, normal, shade))


def strap(parent, width, height, half, surfaces):
    """A band in an arch from one side of the bag to the other."""
    shape = bmesh.new()
    steps, rings = 24, []
    for i in range(steps + 1):
        angle = math.pi * i / steps
        x, z = width * math.cos(angle), height * math.sin(angle)
        out = (math.cos(angle), math.sin(angle))
        rings.append([shape.verts.new((x + out[0] * side, front, z + out[1] * side))
                      for side, front in ((-half, 0), (-half * 0.7, -0.9), (half * 0.7, -0.9), (half, 0))])
    for lower, upper in zip(rings, rings[1:]):
        for a, b in zip(range(3), range(1, 4)):
            shape.faces.new([lower[a], lower[b], upper[b], upper[a]])
    bmesh.ops.recalc_face_normals(shape, faces=shape.faces)
    for face in shape.faces:
        if face.normal.y > 0:
            face.normal_flip()
    made = kit.from_bmesh("strap", shape, parent, (0, 4, 8), [surfaces["land"]], smooth=True)
    return painted(made, LEATHER_LIGHT, LEATHER_DARK, 0.9)


def stitches(parent, width, height, radius, inset, front, bottom_only):
    """Dashes of thread along the edge of a piece of leather."""
    outline = kit.rounded_outline(width - 2 * inset, height - 2 * inset, radius - inset, 10)
    shape = bmesh.new()
    for (x, z), (x2, z2) in zip(outline, outline[1:] + outline[:1]):
        length = math.hypot(x2 - x, z2 - z)
        count = max(1, round(length / 2.2))
        for i in range(count):
            t = (i + 0.5) / count
            px, pz = x + (x2 - x) * t, z + (z2 - z) * t
            if length < 0.3 or (bottom_only and pz > height * 0.30):
                continue
            ux, uz = (x2 - x) / length, (z2 - z) / length
            corners = [(-0.6, -0.16), (0.6, -0.16), (0.6, 0.16), (-0.6, 0.16)]
            shape.faces.new([shape.verts.new((px + ux * a - uz * b, -front, pz + uz * a + ux * b)) for a, b in corners])
    made = kit.from_bmesh("stitches", shape, parent)
    return painted(made, (0.95, 0.72, 0.42), (0.80, 0.52, 0.28))


def satchel(surfaces):
    node = kit.empty("Satchel", (0, 14, MIDDLE - 4))
    kit.card("shine", 110, 90, surfaces["glow"], node, (0, 8, 2))
    strap(node, 17, 21, 1.9, surfaces)
    land = surfaces["land"]
    body = kit.plaque("body", 50, 33, 7, 8, land, land, node, (0, 0, -1), rim_width=2.4, bulge=0.5)
    painted(body, LEATHER_LIGHT, LEATHER_DARK)
    pocket = kit.empty("pocket", (0, -7, -1), node)
    stitches(pocket, 50, 33, 8, 3.6, -0.2, False)
    flap = kit.plaque("flap", 52, 22, 4, 9, land, land, node, (0, -6.2, 6), rim_width=1.6, bulge=0.5)
    painted(flap, FLAP_LIGHT, FLAP_DARK)
    stitched = kit.empty("seam", (0, -10.4, 6), node)
    stitches(stitched, 52, 22, 9, 2.8, 0.1, True)
    for side in (-1, 1):
        band = kit.plaque("band", 4.4, 17, 1.2, 1.4, land, land, node, (side * 13, -10, -2), rim_width=0.6)
        painted(band, LEATHER_LIGHT, LEATHER_DARK)
        buckle = kit.plaque("buckle", 7.2, 6.2, 1.4, 1.6, land, land, node, (side * 13, -11, -5), rim_width=1.0, bulge=-0.3)
        painted(buckle, BRASS_LIGHT, BRASS_DARK)
    clasp = kit.flourish("clasp", 14, land, node, (0, -10.6, 5))
    painted(clasp, BRASS_LIGHT, BRASS_DARK)
    return node


def place(number, x, z, surfaces):
    """A brass bowl with a slot of the ring before it."""
    node = kit.empty(f"Place{number}", (x, 0, z))
    bowl = kit.plaque("bowl", 18, 18, 2.2, 8.9, surfaces["land"], surfaces["land"], node, (0, 2.6, 0),
                      rim_width=1.3, bulge=-0.2)

    def color(point, normal):
        if math.hypot(point.x, point.z) < 7.6:
            return stage.blend(WELL, (0.06, 0.05, 0.16), 0.5 + point.z / 16)
        return stage.lit(BRASS_DARK, BRASS_LIGHT, normal)

    paint_over(bowl, color)
    slot = kit.card(f"~qSlot{number}", 8, 8, None, node)
    slot.scale = (SLOT_SIZE, SLOT_SIZE, SLOT_SIZE)
    return node


def build():
    kit.new_scene()
    surfaces = stage.shared_materials()
    bag = satchel(surfaces)
    count = len(belongings.THINGS)
    places = []
    for i in range(count):
        angle = -math.pi / 2 + 2 * math.pi * i / count  # the first at the bottom, the next on its right
        places.append(place(i + 1, RING_WIDTH * math.cos(angle), MIDDLE + RING_HEIGHT * math.sin(angle), surfaces))
    kit.export_scene("scenes/inventory.glb")

    def enter():
        kit.move(bag, (0, -30, -90), (0, 0, 0), 0.0, 0.55, kit.ease_out_back)
        for i, node in enumerate(places):
            home = node.location
            kit.move(node, (-home.x, 20, MIDDLE - 3 - home.z), (0, 0, 0), 0.25 + 0.05 * i, 0.45, kit.ease_out_back,
                     rise=(0.05, 1.0))

    def leave():
        for node in places:
            home = node.location
            kit.move(node, (0, 0, 0), (-home.x, 20, MIDDLE - 3 - home.z), 0.0, 0.2, kit.ease_in, rise=(1.0, 0.05))
        kit.move(bag, (0, 0, 0), (0, -30, -95), 0.1, 0.26, kit.ease_in)

    kit.export_animation("anims/inventory_in.glb", [enter])
    kit.export_animation("anims/inventory_out.glb", [leave])
    for paint_it in belongings.THINGS:
        kit.save_picture(belongings.thing(paint_it), f"textures/{paint_it.__name__}.png")
    # What the GUI shows in a slot that is given no picture of its own.
    os.makedirs(os.path.join(kit.SAMPLE, "textures/guitex"), exist_ok=True)
    kit.save_picture(belongings.thing(belongings.nothing), "textures/guitex/default_bag.png")
