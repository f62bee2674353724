"""What every page is built with: materials, shapes, buttons, animation and export.

Pages are modelled in the front view: x to the right, z up, -y towards the viewer. The plane y = 0 shows about 159 x 119
units in a 4:3 window, and more to the sides in a wider one.
"""

import math
import os

import bmesh
import bpy
import numpy as np
from mathutils import Matrix, Vector

import paint

SAMPLE = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSerif-Bold.ttf"
FRAMES_PER_SECOND = 30
EYE = 144.1  # how far the camera is from the plane y = 0


def new_scene():
    bpy.ops.wm.read_factory_settings(use_empty=True)
    bpy.context.scene.render.fps = FRAMES_PER_SECOND


# Pictures and materials.


def picture(name, pixels, jpeg=False):
    """A Blender picture of an array made by `paint`."""
    height, width, _ = pixels.shape
    image = bpy.data.images.new(name, width, height, alpha=True)
    image.pixels = pixels.astype(np.float32).ravel()
    image.file_format = "JPEG" if jpeg else "PNG"
    image.pack()
    return image


def save_picture(pixels, path):
    image = picture(os.path.basename(path), pixels)
    image.filepath_raw = os.path.join(SAMPLE, path)
    image.save()


def material(name, color=(1, 1, 1), metallic=0.0, roughness=0.6, emission=(0, 0, 0), strength=1.0, image=None,
             emission_image=None, blend=False, vertex_colors=False):
    """A surface. Colours are linear; pictures are multiplied with them."""
    made = bpy.data.materials.new(name)
    made.use_nodes = True
    nodes, links = made.node_tree.nodes, made.node_tree.links
    shader = nodes["Principled BSDF"]
    shader.inputs["Base Color"].default_value = (*color, 1)
    shader.inputs["Metallic"].default_value = metallic
    shader.inputs["Roughness"].default_value = roughness
    shader.inputs["Emission"].default_value = (*emission, 1)
    shader.inputs["Emission Strength"].default_value = strength

    def texture(source):
        node = nodes.new("ShaderNodeTexImage")
        node.image = source
        return node

    if image is not None:
        node = texture(image)
        links.new(node.outputs["Color"], shader.inputs["Base Color"])
        if blend:
            links.new(node.outputs["Alpha"], shader.inputs["Alpha"])
    elif vertex_colors:
        node = nodes.new("ShaderNodeVertexColor")
        node.layer_name = "Color"
        links.new(node.outputs["Color"], shader.inputs["Base Color"])
    if emission_image is not None:
        links.new(texture(emission_image).outputs["Color"], shader.inputs["Emission"])
    if blend:
        made.blend_method = "BLEND"
    made.use_backface_culling = not blend
    return made


# Shapes. All return the new object.


def link(name, mesh, parent=None, location=(0, 0, 0), materials=()):
    made = bpy.data.objects.new(name, mesh)
    bpy.context.collection.objects.link(made)
    made.parent = parent
    made.location = location
    for surface in materials:
        mesh.materials.append(surface)
    return made


def empty(name, location=(0, 0, 0), parent=None):
    return link(name, None, parent, location)


def from_bmesh(name, shape, parent=None, location=(0, 0, 0), materials=(), smooth=False):
    mesh = bpy.data.meshes.new(name)
    shape.to_mesh(mesh)
    shape.free()
    for polygon in mesh.polygons:
        polygon.use_smooth = smooth
    return link(name, mesh, parent, location, materials)


def card(name, width, height, surface, parent=None, location=(0, 0, 0)):
    """A rectangle that faces the viewer, with the picture upright on it."""
    shape = bmesh.new()
    layer = shape.loops.layers.uv.new("UVMap")
    corners = [(-0.5, -0.5), (0.5, -0.5), (0.5, 0.5), (-0.5, 0.5)]
    face = shape.faces.new([shape.verts.new((x * width, 0, z * height)) for x, z in corners])
    for loop, (x, z) in zip(face.loops, corners):
        loop[layer].uv = (x + 0.5, z + 0.5)
    return from_bmesh(name, shape, parent, location, [surface] if surface else [])


def rounded_outline(width, height, radius, steps=6):
    """Corners of a rectangle with round corners, counter-clockwise from the lower right."""
    points = []
    for quarter, (sx, sz) in enumerate([(1, -1), (1, 1), (-1, 1), (-1, -1)]):
        center = (sx * (width / 2 - radius), sz * (height / 2 - radius))
        for step in range(steps + 1):
            angle = math.pi / 2 * (quarter - 1 + step / steps)
            points.append((center[0] + radius * math.cos(angle), center[1] + radius * math.sin(angle)))
    return points


def plaque(name, width, height, depth, radius, face, rim, parent=None, location=(0, 0, 0), rim_width=1.1, bulge=0.5):
    """A button's body: a rounded rim, a groove and a slightly raised face. `depth` is towards the viewer."""
    # Each ring: how far it lies inside the outline, how far towards the viewer, and the surface of the band behind it.
    rings = [
        (0.0, 0.0, 1),
        (0.0, 0.55 * depth, 1),
        (0.25 * rim_width, 0.86 * depth, 1),
        (0.55 * rim_width, 0.95 * depth, 1),
        (0.80 * rim_width, 0.86 * depth, 1),
        (1.00 * rim_width, 0.52 * depth, 1),
        (1.25 * rim_width, 0.55 * depth, 0),
        (1.9 * rim_width, (0.55 + 0.7 * bulge) * depth, 0),
        (2.9 * rim_width, (0.55 + bulge) * depth, 0),
    ]
    shape = bmesh.new()
    layer = shape.loops.layers.uv.new("UVMap")
    loops = []
    for inset, front, _ in rings:
        outline = rounded_outline(width - 2 * inset, height - 2 * inset, max(radius - inset, 0.2))
        loops.append([shape.verts.new((x, -front, z)) for x, z in outline])
    for lower, upper, (_, _, surface) in zip(loops, loops[1:], rings[1:]):
        count = len(lower)
        for i in range(count):
            face_made = shape.faces.new([lower[i], lower[(i + 1) % count], upper[(i + 1) % count], upper[i]])
            face_made.material_index = surface
            face_made.smooth = True
    cap = shape.faces.new(loops[-1])
    cap.material_index = 0
    for face_made in shape.faces:
        for loop in face_made.loops:
            loop[layer].uv = (loop.vert.co.x / width + 0.5, loop.vert.co.z / height + 0.5)
    bmesh.ops.recalc_face_normals(shape, faces=shape.faces)
    return from_bmesh(name, shape, parent, location, [face, rim], smooth=True)


def letters(name, text, size, depth, surface, parent=None, location=(0, 0, 0), bevel=0.35, spacing=1.0, rounds=1):
    """Solid letters, centred, facing the viewer. The bevel goes outwards, in `rounds` + 1 steps."""
    curve = bpy.data.curves.new(name, "FONT")
    curve.body = text
    curve.size = size
    curve.extrude = depth
    curve.bevel_depth = bevel
    curve.bevel_resolution = rounds
    curve.resolution_u = 4
    curve.align_x = "CENTER"
    curve.align_y = "CENTER"
    curve.space_character = spacing
    curve.font = bpy.data.fonts.load(FONT)
    flat = bpy.data.objects.new("letters", curve)
    bpy.context.collection.objects.link(flat)
    bpy.context.view_layer.update()
    mesh = bpy.data.meshes.new_from_object(flat.evaluated_get(bpy.context.evaluated_depsgraph_get()))
    mesh.transform(Matrix.Rotation(math.pi / 2, 4, "X"))
    mesh.materials.clear()
    for polygon in mesh.polygons:
        polygon.use_smooth = False
    bpy.data.objects.remove(flat)
    return link(name, mesh, parent, location, [surface])


def gem(shape, center, width, height, front, surface, sides=8, turn=0.0):
    """Adds a cut stone to a shape: facets and a flat table. `turn` is where its first corner stands, 0 on the right."""
    rings = [(1.0, 0.0), (0.92, 0.45), (0.5, 1.0)]
    x, y, z = center
    angles = [turn + 2 * math.pi / sides * i for i in range(sides)]
    corners = [(math.cos(angle), math.sin(angle)) for angle in angles]
    loops = [[shape.verts.new((x + c * width / 2 * size, y - front * depth, z + s * height / 2 * size)) for c, s in corners]
             for size, depth in rings]
    faces = [shape.faces.new([lower[i], lower[(i + 1) % sides], upper[(i + 1) % sides], upper[i]])
             for lower, upper in zip(loops, loops[1:]) for i in range(sides)]
    faces.append(shape.faces.new(loops[-1]))
    for face in faces:
        face.material_index = surface
        face.smooth = False


def add_to(made, surfaces, draw):
    """Extends an object's mesh: draw(shape, first) adds faces, whose surfaces are numbered from `first` on."""
    first = len(made.data.materials)
    for surface in surfaces:
        made.data.materials.append(surface)
    shape = bmesh.new()
    shape.from_mesh(made.data)
    draw(shape, first)
    bmesh.ops.recalc_face_normals(shape, faces=shape.faces)
    shape.to_mesh(made.data)
    shape.free()


def shown(mesh_name, name, parent, make):
    """A node that shows the mesh of that name; make() builds the node and its mesh where none has it yet."""
    mesh = bpy.data.meshes.get(mesh_name)
    if mesh:
        return link(name, mesh, parent)
    made = make()
    made.data.name = mesh_name
    return made


def chain(name, top, bottom, x, surface, parent, y=-0.8, link_height=1.9):
    """Chain links from `top` down to `bottom`, each turned against the one before."""
    shape = bmesh.new()
    count = max(1, round((top - bottom) / (link_height * 0.72)))
    sides, around = 10, 5
    for i in range(count):
        middle = top - (top - bottom) * (i + 0.5) / count
        turn = 0.25 if i % 2 else 1.25
        loops = []
        for a in (2 * math.pi * n / sides for n in range(sides)):
            ring = []
            for b in (2 * math.pi * n / around for n in range(around)):
                out = 1.0 + 0.34 * math.cos(b)
                px, py, pz = 0.55 * out * math.cos(a), 0.20 * math.sin(b), link_height / 2 * out * math.sin(a) * 0.78
                ring.append(shape.verts.new((x + px * math.cos(turn) - py * math.sin(turn),
                                             y + px * math.sin(turn) + py * math.cos(turn), middle + pz)))
            loops.append(ring)
        for n, ring in enumerate(loops):
            after = loops[(n + 1) % sides]
            for m in range(around):
                shape.faces.new([ring[m], ring[(m + 1) % around], after[(m + 1) % around], after[m]])
    bmesh.ops.recalc_face_normals(shape, faces=shape.faces)
    return from_bmesh(name, shape, parent, (0, 0, 0), [surface], smooth=True)


def flourish(name, width, surface, parent=None, location=(0, 0, 0)):
    """An ornament: a diamond between two tapering bars."""
    shape = bmesh.new()
    for x, half, thick in ((0.0, 1.5, 1.5), (-width / 4 - 1.2, width / 4, 0.42), (width / 4 + 1.2, width / 4, 0.42),
                           (-width / 2 - 2.2, 0.7, 0.7), (width / 2 + 2.2, 0.7, 0.7)):
        tips = [(half, 0, 0), (0, 0, thick), (-half, 0, 0), (0, 0, -thick)]
        outline = [shape.verts.new((x + px, py, pz)) for px, py, pz in tips]
        peak = shape.verts.new((x, -thick * 0.8, 0))
        for i in range(4):
            shape.faces.new([outline[i], peak, outline[(i + 1) % 4]])
    bmesh.ops.recalc_face_normals(shape, faces=shape.faces)
    for face in shape.faces:
        if face.normal.y > 0:
            face.normal_flip()
    return from_bmesh(name, shape, parent, location, [surface])


def lathe(name, profile, surface, parent=None, location=(0, 0, 0), steps=16, smooth=True):
    """Turns a profile of (radius, height) round the vertical axis."""
    shape = bmesh.new()
    layer = shape.loops.layers.uv.new("UVMap")
    rings = []
    for radius, height in profile:
        rings.append([
            shape.verts.new((radius * math.cos(2 * math.pi * i / steps), radius * math.sin(2 * math.pi * i / steps), height))
            for i in range(steps)
        ])
    for row, (lower, upper) in enumerate(zip(rings, rings[1:])):
        for i in range(steps):
            face = shape.faces.new([lower[i], lower[(i + 1) % steps], upper[(i + 1) % steps], upper[i]])
            along = [(i / steps, row), ((i + 1) / steps, row), ((i + 1) / steps, row + 1), (i / steps, row + 1)]
            for loop, (u, v) in zip(face.loops, along):
                loop[layer].uv = (u, v / (len(rings) - 1))
    shape.faces.new(list(reversed(rings[0])))
    shape.faces.new(rings[-1])
    bmesh.ops.remove_doubles(shape, verts=shape.verts, dist=1e-4)
    return from_bmesh(name, shape, parent, location, [surface], smooth)


def paint_vertices(made, color_of, sharp=None):
    """Gives each vertex the colour color_of(position, normal), linear. Edges sharper than `sharp` (radians) part the colours
    of their sides: the exporter knows colours of vertices, not of corners."""
    mesh = made.data
    if sharp is not None:
        shape = bmesh.new()
        shape.from_mesh(mesh)
        shape.normal_update()
        bmesh.ops.split_edges(shape, edges=[e for e in shape.edges if e.calc_face_angle(math.pi) > sharp])
        shape.to_mesh(mesh)
        shape.free()
    mesh.update()
    while mesh.uv_layers:
        mesh.uv_layers.remove(mesh.uv_layers[0])
    layer = mesh.color_attributes.new("Color", "FLOAT_COLOR", "POINT")
    for vertex in mesh.vertices:
        layer.data[vertex.index].color = (*color_of(vertex.co, vertex.normal), 1)


# Animation and export.


def ease_out_back(t):
    s = 1.4
    return 1 + (s + 1) * (t - 1) ** 3 + s * (t - 1) ** 2


def ease_in(t):
    return t * t


def move(made, start, end, delay, length, ease, rise=None):
    """Keys every frame from one offset of its place to another; `rise` scales it from and to the given sizes."""
    rest = Vector(made.location)
    frames = int((delay + length) * FRAMES_PER_SECOND) + 1
    for frame in range(frames):
        t = min(max((frame / FRAMES_PER_SECOND - delay) / length, 0.0), 1.0)
        if frame == frames - 1:
            t = 1.0
        eased = ease(t)
        made.location = rest + Vector(start).lerp(Vector(end), eased)
        made.keyframe_insert("location", frame=frame)
        if rise is not None:
            size = rise[0] + (rise[1] - rise[0]) * eased
            made.scale = (size, size, size)
            made.keyframe_insert("scale", frame=frame)
    bpy.context.scene.frame_end = max(bpy.context.scene.frame_end, frames - 1)


def export_scene(path):
    bpy.ops.export_scene.gltf(
        filepath=os.path.join(SAMPLE, path), export_format="GLB", export_animations=False, export_yup=True)


def export_animation(path, moves):
    """Writes the keys that `moves` (a list of functions without arguments) makes, as a file of the moved nodes alone."""
    scene = bpy.context.scene
    scene.frame_start, scene.frame_end = 0, 1
    before = {made: (made.location.copy(), made.scale.copy()) for made in scene.objects}
    for make in moves:
        make()
    moved = [made for made in scene.objects if made.animation_data]
    copies = []
    for made in moved:
        name, action = made.name, made.animation_data.action
        made.name = name + ".kept"
        copy = empty(name, before[made][0])
        copy.rotation_euler = made.rotation_euler
        copy.animation_data_create().action = action
        copies.append((made, copy, name))
    bpy.ops.object.select_all(action="DESELECT")
    for _, copy, _ in copies:
        copy.select_set(True)
    bpy.ops.export_scene.gltf(
        filepath=os.path.join(SAMPLE, path), export_format="GLB", use_selection=True, export_animations=True,
        export_yup=True)
    for made, copy, name in copies:
        bpy.data.objects.remove(copy)
        made.animation_data_clear()
        made.name = name
        made.location, made.scale = before[made]
    for action in list(bpy.data.actions):
        bpy.data.actions.remove(action)


def preview(path, width=960, height=720):
    """A quick look at the page as the engine's camera sees it."""
    camera = bpy.data.cameras.new("preview")
    camera.sensor_fit = "VERTICAL"
    camera.angle_y = math.pi / 4
    camera.clip_end = 5000
    eye = link("preview", camera, location=(0, -EYE, 0))
    eye.rotation_euler = (math.pi / 2, 0, 0)
    sun = link("preview light", bpy.data.lights.new("preview light", "SUN"))
    sun.data.energy = 2.5
    sun.rotation_euler = (math.pi / 2, 0, 0)
    scene = bpy.context.scene
    scene.camera = eye
    scene.render.engine = "CYCLES"
    scene.cycles.samples = 12
    scene.cycles.use_denoising = False
    scene.render.resolution_x, scene.render.resolution_y = width, height
    scene.view_settings.view_transform = "Standard"
    scene.render.filepath = path
    bpy.ops.render.render(write_still=True)
