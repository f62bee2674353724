"""The world of the game: the evening sky, floating islands and paper lanterns."""

import math
import random

import bmesh
import bpy
from mathutils import Matrix, Vector, noise

import kit
import paint

SUN = Vector((0.35, 0.75, -0.05)).normalized()  # behind the scene, low
KEY = Vector((0.80, -0.30, 0.52)).normalized()  # the glow of the clouds, from the right
GRASS_LIGHT, GRASS_DARK = (0.46, 0.42, 0.13), (0.045, 0.085, 0.075)
ROCK_LIGHT, ROCK_DARK = (0.84, 0.36, 0.24), (0.048, 0.024, 0.085)
STONE_LIGHT, STONE_DARK = (0.86, 0.62, 0.46), (0.115, 0.07, 0.155)
BAND_LIGHT, BAND_DARK = (0.62, 0.16, 0.11), (0.12, 0.025, 0.07)
HAZE = (0.62, 0.27, 0.30)
LEAVES = {  # dark and light
    "amber": ((0.17, 0.035, 0.04), (0.95, 0.44, 0.10)),
    "crimson": ((0.11, 0.012, 0.055), (0.82, 0.14, 0.11)),
    "blossom": ((0.19, 0.05, 0.15), (0.98, 0.46, 0.42)),
    "moss": ((0.03, 0.06, 0.07), (0.42, 0.42, 0.15)),
}
GLOW = (1.0, 0.55, 0.20)


def blend(a, b, t):
    t = min(max(t, 0.0), 1.0)
    return tuple(x + (y - x) * t for x, y in zip(a, b))


def lit(dark, light, normal, shade=1.0):
    """Painted light: warm from the glowing clouds, a warm edge from the low sun behind, cool shadow elsewhere."""
    return blend(dark, light, (0.10 + 0.80 * max(0.0, normal.dot(KEY)) + 0.55 * max(0.0, normal.dot(SUN)) ** 2) * shade)


def fractal(point, octaves=4):
    total, size = 0.0, 1.0
    for _ in range(octaves):
        total += noise.noise(point / size) * size
        size *= 0.5
    return total


def shared_materials():
    """The surfaces that every page uses, by name."""
    light = kit.picture("lantern", paint.lantern_paper())
    return {
        "land": kit.material("land", roughness=0.95, vertex_colors=True),
        "wood": kit.material("wood", (0.10, 0.05, 0.045), roughness=0.8),
        "dark": kit.material("dark", (0.035, 0.018, 0.03), roughness=0.7),
        "roof": kit.material("roof", (0.34, 0.055, 0.06), roughness=0.6),
        "beam": kit.material("beam", roughness=1.0, image=kit.picture("beam", paint.beam()), blend=True,
                             emission=(0.25, 0.12, 0.03)),
        "window": kit.material("window", (0.2, 0.1, 0.03), emission=GLOW, strength=1.6),
        "lantern": kit.material("lantern", (0, 0, 0), roughness=1.0, emission=(1, 1, 1), emission_image=light),
        "outline": kit.material("outline", (0.022, 0.006, 0.03), roughness=1.0),
        "glow": kit.material("glow", (1, 1, 1), roughness=1.0, image=kit.picture("glow", paint.glow()), blend=True,
                             emission=(0.42, 0.10, 0.0)),
        "brass": kit.material("brass", (0.62, 0.36, 0.12), metallic=0.6, roughness=0.35,
                              emission=(0.10, 0.045, 0.01)),
    }


def sky():
    """A backdrop far behind, large enough for every window: its uppermost and lowest rows go on beyond the picture. The sun
    is a picture, so it needs no light."""
    image = kit.picture("sky", paint.dusk_sky(), jpeg=True)
    surface = kit.material("sky", (0, 0, 0), roughness=1.0, emission=(1, 1, 1), emission_image=image)
    made = kit.card("sky", 960, 480, surface, location=(0, 300, 20))

    def go_on(shape, _):
        layer = shape.loops.layers.uv.verify()
        for side, row in ((-1, 0.002), (1, 0.998)):
            corners = [(-480, 240), (480, 240), (480, 800), (-480, 800)]
            face = shape.faces.new([shape.verts.new((x, 0, side * z)) for x, z in (corners if side > 0 else corners[::-1])])
            for loop in face.loops:
                loop[layer].uv = (loop.vert.co.x / 960 + 0.5, row)

    kit.add_to(made, [], go_on)


def mist(name, width, height, location, mirrored=False):
    """A bank of mist. All banks show one picture, some of them mirrored, so that files stay small."""
    surface = bpy.data.materials.get("mist")
    if surface is None:
        image = kit.picture("mist", paint.mist_bank(seed=60))
        surface = kit.material("mist", roughness=1.0, image=image, blend=True, emission=(0.12, 0.07, 0.08))
    made = kit.card(name, width, height, surface, location=location)
    if mirrored:
        for corner in made.data.uv_layers[0].data:
            corner.uv.x = 1 - corner.uv.x
    return made


def island_profile(radius, depth, rng):
    """Rings of (radius, height) from the grass down to the hanging tip."""
    rings = [(radius * r, radius * (0.07 - 0.05 * r * r)) for r in (0.0, 0.3, 0.6, 0.82, 0.95)]
    rings += [(radius, -0.02 * radius), (radius * 0.97, -0.07 * radius), (radius * 0.88, -0.10 * radius)]
    steps = 12
    for step in range(1, steps):
        t = step / steps
        ledge = rng.uniform(0.90, 1.06) if step % 3 else rng.uniform(1.02, 1.16)
        rings.append((radius * 0.88 * (1 - t) ** 0.95 * ledge, -0.10 * radius - depth * t))
    rings.append((0.0, -0.14 * radius - depth))
    return rings


def island(name, radius, depth, surfaces, location, seed, parent=None, haze=0.0):
    """A floating rock with a meadow. Its light is painted on; `haze` lets the evening air veil distant ones."""
    rng = random.Random(seed)
    made = kit.lathe(name, list(reversed(island_profile(radius, depth, rng))), surfaces["land"], parent, location, 40)
    offset = Vector((seed * 3.7, 0, 0))
    for vertex in made.data.vertices:
        point = vertex.co
        below = min(max(0.0, -point.z / depth), 1.0)
        wide = noise.noise(Vector((point.x, point.y, 0)) * (1.5 / radius) + offset)
        rough = fractal(Vector(point) * (4.0 / radius) + offset)
        swell = 1 + 0.20 * wide + rough * (0.03 + 0.26 * min(1.0, below * 6))
        point.x, point.y = point.x * swell + radius * 0.10 * wide * below, point.y * swell
        point.z += rough * radius * (0.012 + 0.13 * below)

    def color(point, normal):
        edge = 0.06 * fractal(Vector((math.atan2(point.y, point.x) * 3.5, 0, seed)), 3)
        if point.z > (-0.055 + edge) * radius:
            meadow = 0.8 + 0.35 * noise.noise(Vector(point) * (7.0 / radius) + offset)
            painted = lit(GRASS_DARK, GRASS_LIGHT, normal, meadow)
        else:
            below = min(max(0.0, -point.z / depth), 1.0)
            strata = 0.82 + 0.24 * math.sin(point.z * 30 / radius + 2.5 * wide_of(point)) * (1 - below)
            shadow = 0.45 + 0.55 * min(1.0, max(0.0, -point.z / radius - 0.06) * 7)
            painted = lit(ROCK_DARK, ROCK_LIGHT, normal, strata * shadow * (1.0 - 0.45 * below))
        return blend(painted, HAZE, haze)

    def wide_of(point):
        return noise.noise(Vector(point) * (2.0 / radius) + offset)

    kit.paint_vertices(made, color)
    return made


def pebbles(parent, location, reach, count, surfaces, seed):
    """Small rocks that float beneath an island."""
    rng = random.Random(seed)
    shape = bmesh.new()
    for _ in range(count):
        size = rng.uniform(0.5, 1.5)
        place = Vector((rng.uniform(-reach, reach), rng.uniform(-6, 6), rng.uniform(-0.45, 0.25) * reach))
        made = bmesh.ops.create_icosphere(shape, subdivisions=1, radius=size, matrix=Matrix.Translation(place))
        for vertex in made["verts"]:
            vertex.co += (vertex.co - place) * rng.uniform(-0.35, 0.35)
            vertex.co.z -= 0.4 * max(0.0, place.z - vertex.co.z)
    rocks = kit.from_bmesh("pebbles", shape, parent, location, [surfaces["land"]])
    kit.paint_vertices(rocks, lambda point, normal: lit(ROCK_DARK, ROCK_LIGHT, normal), 0.3)


def tree(parent, location, size, surfaces, kind="amber", seed=1):
    """A round tree: a bent trunk and clouds of leaves."""
    rng = random.Random(seed)
    shape = bmesh.new()
    bmesh.ops.create_cone(shape, cap_ends=False, segments=7, radius1=0.09 * size, radius2=0.05 * size, depth=0.7 * size,
                          matrix=Matrix.Translation((0, 0, 0.35 * size)))
    bark = len(shape.verts)
    clumps = [(0.0, 0.86, 0.36), (-0.26, 0.66, 0.27), (0.27, 0.70, 0.28), (0.06, 0.58, 0.27), (0.08, 1.10, 0.22)]
    for x, z, radius in clumps:
        place = Vector((x + rng.uniform(-0.05, 0.05), rng.uniform(-0.16, 0.10), z)) * size
        made = bmesh.ops.create_icosphere(shape, subdivisions=2, radius=radius * size, matrix=Matrix.Translation(place))
        for vertex in made["verts"]:
            bump = noise.noise(vertex.co * (6.0 / size) + Vector((seed, 0, 0)))
            vertex.co += (vertex.co - place) * 0.30 * bump
    shape.verts.ensure_lookup_table()
    for vertex in shape.verts[:bark]:
        vertex.co.x += 0.06 * size * math.sin(vertex.co.z / size * 3)
    made = kit.from_bmesh("tree", shape, parent, location, [surfaces["land"]], smooth=True)
    trunk = {v.index for v in made.data.vertices[:bark]}
    spots = {tuple(round(c, 3) for c in made.data.vertices[i].co) for i in trunk}
    dark, light = LEAVES[kind]

    def color(point, normal):
        if tuple(round(c, 3) for c in point) in spots:
            return lit((0.03, 0.015, 0.03), (0.30, 0.14, 0.09), normal)
        height = min(max((point.z / size - 0.35) / 0.8, 0.0), 1.0)
        return lit(dark, light, normal, 0.45 + 0.75 * height)

    kit.paint_vertices(made, color)


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
    """A stone cottage with lit windows, a door and a chimney."""
    x, y, z = location
    walls = box("house", (size, size * 0.9, size * 0.9), surfaces["land"], parent, (x, y, z + size * 0.45))
    kit.paint_vertices(walls, lambda point, normal: lit(STONE_DARK, STONE_LIGHT, normal,
                                                        0.55 + 0.25 * (point.z / size + 0.5)), 0.6)
    roof(parent, (x, y, z + size * 0.86), size * 1.3, size * 1.2, size * 0.75, surfaces["roof"])
    box("chimney", (size * 0.16, size * 0.16, size * 0.5), surfaces["wood"], parent,
        (x + size * 0.32, y, z + size * 1.45))
    for side in (-0.28, 0.28):
        box("window", (size * 0.2, 0.3, size * 0.28), surfaces["window"], parent,
            (x + side * size, y - size * 0.46, z + size * 0.52))
    box("door", (size * 0.22, 0.4, size * 0.46), surfaces["wood"], parent, (x, y - size * 0.46, z + size * 0.23))
    kit.card("window light", size * 2.2, size * 1.6, surfaces["glow"], parent, (x, y - size * 0.9, z + size * 0.4))


def tower_color(height):
    """Pale stone with two painted bands."""

    def color(point, normal):
        part = point.z / height
        if 0.22 < part < 0.36 or 0.50 < part < 0.62:
            return lit(BAND_DARK, BAND_LIGHT, normal)
        return lit(STONE_DARK, STONE_LIGHT, normal, 0.75 + 0.35 * part)

    return color


def beams(parent, location, length, surfaces):
    """Two beams of the great lantern, towards the left and the right, thinning out in the air."""
    for side, lift in ((-1, 0.16), (1, 0.10)):
        beam = kit.card("beam", length, length * 0.30, surfaces["beam"], parent, location)
        for vertex in beam.data.vertices:
            along = vertex.co.x + length / 2
            vertex.co.x = side * along
            vertex.co.z += lift * along
            vertex.co.y = 0.04 * along


def lighthouse(parent, location, height, surfaces):
    """The tower that the game is about: its great lantern calls the small ones home."""
    x, y, z = location
    r = height * 0.12
    body = [(r * 1.32, 0), (r * 1.28, height * 0.04), (r * 1.12, height * 0.05)]
    for part in (0.219, 0.221, 0.359, 0.361, 0.499, 0.501, 0.619, 0.621, 0.70):  # rings on both sides of each band's edge
        body.append((r * (1.12 - 0.36 * (part - 0.05) / 0.65), height * part))
    body += [(r * 0.95, height * 0.73), (r * 1.25, height * 0.75), (r * 1.25, height * 0.78), (r * 0.8, height * 0.78)]
    tower = kit.lathe("tower", body, surfaces["land"], parent, (x, y, z), 20)
    kit.paint_vertices(tower, tower_color(height))
    for level, side in ((0.16, -0.1), (0.42, 0.12), (0.66, -0.05)):
        width = r * (1.12 - 0.5 * level)
        box("window", (r * 0.30, 0.5, r * 0.52), surfaces["window"], parent, (x + side * r, y - width, z + level * height))
    lamp = z + height * 0.865
    beams(parent, (x, y + r, lamp), height * 2.6, surfaces)
    kit.card("halo", height * 1.35, height * 1.35, surfaces["glow"], parent, (x, y + r * 0.9, lamp))
    kit.lathe("great lantern", [(r * 0.62, 0), (r * 0.72, height * 0.08), (r * 0.62, height * 0.16)], surfaces["lantern"],
              parent, (x, y, z + height * 0.78), 16)
    for step in range(8):
        angle = 2 * math.pi * (step + 0.5) / 8
        kit.lathe("bar", [(r * 0.06, 0), (r * 0.06, height * 0.165)], surfaces["dark"], parent,
                  (x + r * 0.80 * math.cos(angle), y + r * 0.80 * math.sin(angle), z + height * 0.78), 5)
    kit.lathe("rail", [(r * 1.20, 0), (r * 1.26, height * 0.008), (r * 1.20, height * 0.016)], surfaces["brass"], parent,
              (x, y, z + height * 0.825), 20)
    kit.lathe("cap", [(r * 1.10, 0), (r * 1.0, height * 0.015), (r * 0.55, height * 0.07), (r * 0.16, height * 0.12),
                      (r * 0.10, height * 0.14), (r * 0.17, height * 0.155), (0.0, height * 0.20)], surfaces["roof"], parent,
              (x, y, z + height * 0.945), 20)
    kit.card("flare", height * 0.46, height * 0.46, surfaces["glow"], parent, (x, y - r * 2.0, lamp))


def shared(name, make, size, parent, location=(0, 0, 0)):
    """A shape that many nodes show: made once in unit size, then only placed and sized."""
    mesh = bpy.data.meshes.get(name)
    made = kit.link(name, mesh, parent, location) if mesh else make(name)
    made.parent, made.location, made.scale = parent, location, (size, size, size)


def paper_lantern(name, location, size, surfaces, parent=None):
    """A lantern of paper with its glow behind and around it; hangs in the air on its own."""
    made = kit.empty(name, location, parent)
    belly = [(0.30, -0.50), (0.45, -0.32), (0.52, -0.05), (0.50, 0.20), (0.36, 0.42), (0.22, 0.50)]
    shared("shine", lambda n: kit.card(n, 4.2, 4.2, surfaces["glow"]), size, made, (0, 0.7 * size, -0.05 * size))
    shared("paper", lambda n: kit.lathe(n, belly, surfaces["lantern"], steps=12), size, made)
    for n, height, radius in (("lower ring", -0.54, 0.32), ("upper ring", 0.48, 0.24)):
        profile = [(radius, 0), (radius, 0.08)]
        shared(n, lambda n, profile=profile: kit.lathe(n, profile, surfaces["dark"], steps=10), size, made,
               (0, 0, height * size))
    return made


def hanging_lantern(parent, location, size, cord, surfaces):
    """A paper lantern on a cord; `location` is where the cord is tied."""
    x, y, z = location
    kit.lathe("cord", [(0.14, 0), (0.14, cord)], surfaces["dark"], parent, (x, y, z - cord), 5)
    return paper_lantern("hanging", (x, y, z - cord - 0.55 * size), size, surfaces, parent)


def drifting_lanterns(surfaces, places):
    """Lanterns in the air. Places are (x, y, z, size)."""
    return [paper_lantern(f"Lantern{i:02}", (x, y, z), size, surfaces) for i, (x, y, z, size) in enumerate(places, 1)]
