"""Makes the start page's files beside this script: blender -b --python make_start.py

start.blend is what to open and change, scenes/start.glb what the GUI loads, tooltip.png the ground of tooltips.

Pages are modelled in the front view: x to the right, z up, -y towards the viewer. The plane y = 0 shows about 159 x 119
units. Nodes are found by how their names begin, so Blender's endings (normal.001) do no harm.
"""

import math
import os

import bmesh
import bpy

FOLDER = os.path.dirname(os.path.abspath(__file__))
EYE = 144.1  # how far the GUI's camera is from the plane y = 0
STATES = {"normal": (0.02, 0.05, 0.16), "onmouse": (0.80, 0.35, 0.06), "disabled": (0.05, 0.05, 0.055)}
DEPTH = 3.0


def path(name):
    return os.path.join(FOLDER, name)


def material(name, color):
    made = bpy.data.materials.new(name)
    made.use_nodes = True
    shader = made.node_tree.nodes["Principled BSDF"]
    shader.inputs["Base Color"].default_value = (*color, 1)
    shader.inputs["Roughness"].default_value = 0.9
    made.use_backface_culling = True
    return made


def node(name, mesh=None, parent=None, location=(0, 0, 0)):
    made = bpy.data.objects.new(name, mesh)
    bpy.context.collection.objects.link(made)
    made.parent = parent
    made.location = location
    return made


def block(width, height, surface):
    """A box with bevelled edges whose back is the plane y = 0."""
    shape = bmesh.new()
    bmesh.ops.create_cube(shape)
    for vertex in shape.verts:
        vertex.co = (vertex.co.x * width, (vertex.co.y - 0.5) * DEPTH, vertex.co.z * height)
    bmesh.ops.bevel(shape, geom=shape.verts[:] + shape.edges[:], offset=0.8, segments=2, profile=0.5, affect="EDGES")
    mesh = bpy.data.meshes.new(surface.name)
    shape.to_mesh(mesh)
    shape.free()
    mesh.materials.append(surface)
    return mesh


def card(width, height, surface=None):
    """A rectangle that faces the viewer."""
    w, h = width / 2, height / 2
    mesh = bpy.data.meshes.new("card")
    mesh.from_pydata([(-w, 0, -h), (w, 0, -h), (w, 0, h), (-w, 0, h)], [], [(0, 1, 2, 3)])
    if surface:
        mesh.materials.append(surface)
    return mesh


def text_box(parent, width, height, front=0.0):
    """The box that words are written into; only its measures count, it is never drawn."""
    node("normal", card(width, height), parent, (0, -front, 0))


def button(name, location, width, height, surfaces):
    made = node("~b" + name, location=location)
    for state, surface in surfaces.items():
        node(state, block(width, height, surface), made)
    label = node("text", parent=made, location=(0, -DEPTH - 0.4, 0))
    text_box(label, width - 6, 7)


def view():
    """A camera that sees what the GUI's sees, and a light, for work in Blender only."""
    camera = bpy.data.cameras.new("View")
    camera.sensor_fit = "VERTICAL"
    camera.angle_y = math.pi / 4
    camera.clip_end = 1000
    eye = node("View", camera, location=(0, -EYE, 0))
    eye.rotation_euler = (math.pi / 2, 0, 0)
    sun = node("Sun", bpy.data.lights.new("Sun", "SUN"))
    sun.rotation_euler = (math.pi / 2, 0, 0)
    scene = bpy.context.scene
    scene.camera = eye
    scene.render.resolution_x, scene.render.resolution_y = 1280, 960


def save_picture(name, color):
    image = bpy.data.images.new(name, 8, 8, alpha=True)
    image.pixels = list(color) * 64
    image.file_format = "PNG"
    image.filepath_raw = path(name)
    image.save()
    bpy.data.images.remove(image)


def main():
    bpy.ops.wm.read_factory_settings(use_empty=True)
    save_picture("tooltip.png", (0.05, 0.07, 0.12, 0.9))
    node("Ground", card(600, 300, material("ground", (0.01, 0.02, 0.04))), location=(0, 30, 0))
    text_box(node("~tTitle", location=(0, 0, 30)), 120, 12)
    surfaces = {state: material(state, color) for state, color in STATES.items()}
    button("Play", (0, 0, 4), 56, 14, surfaces)
    button("Quit", (0, 0, -16), 56, 14, surfaces)
    os.makedirs(path("scenes"), exist_ok=True)
    bpy.ops.export_scene.gltf(
        filepath=path("scenes/start.glb"), export_format="GLB", export_animations=False, export_yup=True)
    view()
    bpy.context.preferences.filepaths.save_version = 0
    bpy.ops.wm.save_as_mainfile(filepath=path("start.blend"), compress=True)


main()
