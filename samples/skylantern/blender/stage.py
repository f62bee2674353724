"""The world of the game: the evening sky, floating islands and paper lanterns."""

import math
import random

import bmesh
import bpy
from mathutils import Vector, noise

import kit
import paint

SUN = Vector((0.35, 0.75, -0.05)).normalized()  # behind the scene, low
GRASS_LIGHT, GRASS_DARK = (0.30, 0.34, 0.16), (0.055, 0.075, 0.085)
ROCK_LIGHT, ROCK_DARK = (0.42, 0.20, 0.17), (0.035, 0.022, 0.06)
GLOW = (1.0, 0.55, 0.20)


def blend(a, b, t):
    t = min(max(t, 0.0), 1.0)
    return tuple(x + (y - x) * t for x, y in zip(a, b))


def shared_materials():
    """The surfaces that every page uses, by name."""
    light = kit.picture("lantern", paint.lantern_paper())
    return {
        "land": kit.material("land", roughness=0.95, vertex_colors=True),
        "wood": kit.material("wood", (0.10, 0.05, 0.045), roughness=0.8),
        "roof": kit.material("roof", (0.20, 0.045, 0.06), roughness=0.6),
        "window": kit.material("window", (0.2, 0.1, 0.03), emission=GLOW, strength=1.6),
        "lantern": kit.material("lantern", (0, 0, 0), roughness=1.0, emission=(1, 1, 1), emission_image=light),
        "glow": kit.material("glow", (1, 1, 1), roughness=1.0, image=kit.picture("glow", paint.glow()), blend=True,
                             emission=(0.42, 0.10, 0.0)),
        "brass": kit.material("brass", (0.62, 0.36, 0.12), metallic=0.6, roughness=0.35,
                              emission=(0.10, 0.045, 0.01)),
    }


def sky():
    """A backdrop far behind, wide enough for every window; the sun is a picture, so it needs no light."""
    image = kit.picture("sky", paint.dusk_sky(), jpeg=True)
    surface = kit.material("sky", (0, 0, 0), roughness=1.0, emission=(1, 1, 1), emission_image=image)
    kit.card("sky", 960, 480, surface, location=(0, 300, 20))


def mist(name, width, height, location, seed):
    image = kit.picture(name, paint.mist_bank(seed=seed))
    surface = kit.material(name, roughness=1.0, image=image, blend=True, emission=(0.12, 0.07, 0.08))
    return kit.card(name, width, height, surface, location=location)


def island_profile(radius, depth, rng):
    """Rings of (radius, height) from the grass down to the hanging tip."""
    rings = [(0.0, radius * 0.10), (radius * 0.55, radius * 0.08), (radius * 0.92, 0.02 * radius), (radius, -0.07 * radius)]
    steps = 7
    for step in range(1, steps):
        t = step / steps
        rings.append((radius * (1 - t) ** 0.85 * rng.uniform(0.82, 1.04), -0.07 * radius - depth * t))
    rings.append((0.0, -0.1 * radius - depth))
    return rings


def island(name, radius, depth, surfaces, location, seed, parent=None):
    """A floating rock with a meadow. Its light is painted on: warm from the sun behind, cool elsewhere."""
    rng = random.Random(seed)
    made = kit.lathe(name, list(reversed(island_profile(radius, depth, rng))), surfaces["land"], parent, location, 28)
    for vertex in made.data.vertices:
        point = vertex.co
        wobble = noise.noise(Vector(point) * (2.4 / radius) + Vector((seed, 0, 0)))
        below = max(0.0, -point.z / depth)
        point.x *= 1 + wobble * (0.16 + 0.35 * below)
        point.y *= 1 + wobble * (0.16 + 0.35 * below)
        point.z += wobble * radius * (0.05 + 0.16 * below)

    def color(point, normal):
        grass = normal.z > 0.45 and point.z > -0.12 * radius
        rim = max(0.0, normal.dot(SUN)) ** 1.5 + 0.30 * max(0.0, normal.x)
        fade = 1.0 + 0.7 * min(0.0, point.z / depth)
        if grass:
            return blend(GRASS_DARK, GRASS_LIGHT, 0.25 + rim)
        return blend(ROCK_DARK, ROCK_LIGHT, (0.18 + rim) * fade)

    kit.paint_vertices(made, color)
    return made


def tree(parent, location, size, surfaces):
    top = kit.lathe("tree", [(0.42 * size, 0), (0.34 * size, 0.35 * size), (0.20 * size, 0.75 * size), (0.0, 1.25 * size)],
                    surfaces["land"], parent, location, 9)

    def color(point, normal):
        return blend((0.03, 0.05, 0.07), (0.36, 0.26, 0.14), 0.15 + max(0.0, normal.dot(SUN)) + 0.25 * max(0.0, normal.x))

    kit.paint_vertices(top, color)


def box(name, size, surface, parent, location):
    shape = bmesh.new()
    bmesh.ops.create_cube(shape, size=1.0)
    bmesh.ops.scale(shape, vec=size, verts=shape.verts)
    bmesh.ops.bevel(shape, geom=shape.edges[:], offset=min(size) * 0.08, segments=1, affect="EDGES")
    return kit.from_bmesh(name, shape, parent, location, [surface])


def roof(parent, location, width, depth, height, surface):
    shape = bmesh.new()
    w, d = width / 2, depth / 2
    base = [shape.verts.new(c) for c in ((-w, -d, 0), (w, -d, 0), (w, d, 0), (-w, d, 0))]
    ridge = [shape.verts.new(c) for c in ((0, -d, height), (0, d, height))]
    for corners in ((base[0], base[1], ridge[0]), (base[2], base[3], ridge[1]), (base[1], base[2], ridge[1], ridge[0]),
                    (base[3], base[0], ridge[0], ridge[1]), (base[3], base[2], base[1], base[0])):
        shape.faces.new(corners)
    kit.from_bmesh("roof", shape, parent, location, [surface])


def house(parent, location, size, surfaces):
    x, y, z = location
    box("house", (size, size * 0.9, size * 0.9), surfaces["wood"], parent, (x, y, z + size * 0.45))
    roof(parent, (x, y, z + size * 0.9), size * 1.25, size * 1.15, size * 0.7, surfaces["roof"])
    for side in (-0.24, 0.24):
        box("window", (size * 0.2, 0.2, size * 0.3), surfaces["window"], parent,
            (x + side * size, y - size * 0.46, z + size * 0.5))


def lighthouse(parent, location, height, surfaces):
    """The tower that the game is about: its great lantern calls the small ones home."""
    x, y, z = location
    r = height * 0.13
    kit.lathe("tower", [(r * 1.25, 0), (r * 1.1, height * 0.1), (r * 0.82, height * 0.72), (r * 1.1, height * 0.76),
                        (r * 1.1, height * 0.79)], surfaces["wood"], parent, (x, y, z), 14)
    kit.lathe("great lantern", [(r * 0.7, 0), (r * 0.8, height * 0.07), (r * 0.7, height * 0.15)], surfaces["lantern"], parent,
              (x, y, z + height * 0.79), 14)
    kit.lathe("cap", [(r * 1.15, 0), (r * 0.5, height * 0.07), (0.0, height * 0.16)], surfaces["roof"], parent,
              (x, y, z + height * 0.94), 14)
    kit.card("halo", height * 1.3, height * 1.3, surfaces["glow"], parent, (x, y - r * 1.6, z + height * 0.865))


def paper_lantern(name, location, size, surfaces, parent=None):
    """A lantern of paper with its glow; hangs in the air on its own."""
    made = kit.empty(name, location, parent)
    kit.lathe("paper", [(0.34 * size, -0.5 * size), (0.52 * size, -0.12 * size), (0.50 * size, 0.25 * size),
                        (0.22 * size, 0.52 * size)], surfaces["lantern"], made, steps=12)
    kit.card("shine", 3.4 * size, 3.4 * size, surfaces["glow"], made, (0, -0.6 * size, -0.1 * size))
    return made


def drifting_lanterns(surfaces, places):
    """Lanterns in the air. Places are (x, y, z, size)."""
    return [paper_lantern(f"Lantern{i:02}", (x, y, z), size, surfaces) for i, (x, y, z, size) in enumerate(places, 1)]
