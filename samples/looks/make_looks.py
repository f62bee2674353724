"""Makes the looks page's scene beside this script: blender -b --python make_looks.py

looks.blend is what to open and change, scenes/looks.glb what the GUI loads, blender.png how Blender draws the page. The
materials have pictures of normals, roughness, metalness and occlusion; a sun, a point and a spot give light, and so does
the world, which the file tells as the scene's custom property "ambient". guihost draws neither shadows nor light that
is thrown back, so Blender is told to leave them out.
"""

import math
import os

import bmesh
import bpy
import numpy

FOLDER = os.path.dirname(os.path.abspath(__file__))
EYE = 144.1  # how far the GUI's camera is from the plane y = 0
SIZE = 128  # of the pictures, in pixels
AMBIENT = (0.05, 0.06, 0.08)


def path(name):
    return os.path.join(FOLDER, name)


def picture(name, channels):
    """A picture of numbers. `channels` are arrays of 0 to 1, the first row at the bottom."""
    image = bpy.data.images.new(name, SIZE, SIZE)
    image.colorspace_settings.name = "Non-Color"
    pixels = numpy.ones((SIZE, SIZE, 4), dtype=numpy.float32)
    pixels[..., :3] = numpy.stack(channels, axis=-1)
    image.pixels = pixels.ravel()
    image.pack()
    return image


def bumps(name, height, steepness):
    """The normals of a height that goes on beyond the picture's edges."""
    across = (numpy.roll(height, -1, 1) - numpy.roll(height, 1, 1)) * steepness
    along = (numpy.roll(height, -1, 0) - numpy.roll(height, 1, 0)) * steepness
    length = numpy.sqrt(across**2 + along**2 + 1)
    return picture(name, [0.5 - 0.5 * across / length, 0.5 - 0.5 * along / length, 0.5 + 0.5 / length])


def tiles():
    """Heights of four by four tiles with round edges, 0 in the joints."""
    at = (numpy.arange(SIZE) + 0.5) * 4 / SIZE % 1
    edge = numpy.clip(numpy.minimum(at, 1 - at) / 0.12, 0, 1)
    return numpy.minimum(edge[:, None], edge[None, :])


def waves():
    at = (numpy.arange(SIZE) + 0.5) * 2 * math.pi / SIZE
    return numpy.sin(4 * at)[None, :] * numpy.sin(4 * at)[:, None] * 0.5 + 0.5


class Surface:
    """A material whose pictures are repeated."""

    def __init__(self, name, color, repeats):
        self.material = bpy.data.materials.new(name)
        self.material.use_nodes = True
        self.material.use_backface_culling = True
        self.nodes = self.material.node_tree.nodes
        self.shader = self.nodes["Principled BSDF"]
        self.shader.inputs["Base Color"].default_value = (*color, 1)
        self.place = self.nodes.new("ShaderNodeMapping")
        self.place.inputs["Scale"].default_value = (repeats, repeats, 1)
        self.link(self.nodes.new("ShaderNodeUVMap").outputs["UV"], self.place.inputs["Vector"])

    def link(self, source, target):
        self.material.node_tree.links.new(source, target)

    def show(self, image):
        texture = self.nodes.new("ShaderNodeTexImage")
        texture.image = image
        self.link(self.place.outputs["Vector"], texture.inputs["Vector"])
        return texture.outputs["Color"]

    def normals(self, image, strength=1.0):
        bump = self.nodes.new("ShaderNodeNormalMap")
        bump.inputs["Strength"].default_value = strength
        self.link(self.show(image), bump.inputs["Color"])
        self.link(bump.outputs["Normal"], self.shader.inputs["Normal"])

    def numbers(self, image):
        """Occlusion in red, roughness in green, metalness in blue."""
        channels = self.nodes.new("ShaderNodeSeparateColor")
        self.link(self.show(image), channels.inputs["Color"])
        self.link(channels.outputs["Green"], self.shader.inputs["Roughness"])
        self.link(channels.outputs["Blue"], self.shader.inputs["Metallic"])
        # Blender draws no occlusion; its exporter looks for a group of this name.
        group = bpy.data.node_groups.get("glTF Settings") or bpy.data.node_groups.new("glTF Settings", "ShaderNodeTree")
        if "Occlusion" not in group.inputs:
            group.inputs.new("NodeSocketFloat", "Occlusion")
        settings = self.nodes.new("ShaderNodeGroup")
        settings.node_tree = group
        self.link(channels.outputs["Red"], settings.inputs["Occlusion"])


def node(name, data, location=(0, 0, 0), rotation=(0, 0, 0)):
    made = bpy.data.objects.new(name, data)
    bpy.context.collection.objects.link(made)
    made.location = location
    made.rotation_euler = [math.radians(angle) for angle in rotation]
    return made


def mesh(name, surface, fill):
    shape = bmesh.new()
    shape.loops.layers.uv.new("UVMap")
    fill(shape)
    for face in shape.faces:
        face.smooth = True
    made = bpy.data.meshes.new(name)
    shape.to_mesh(made)
    shape.free()
    made.materials.append(surface.material)
    return made


def ball(name, surface, location):
    shape = mesh(name, surface, lambda shape: bmesh.ops.create_uvsphere(
        shape, u_segments=48, v_segments=24, radius=20, calc_uvs=True))
    show_to_eye_only(node(name, shape, location))


def show_to_eye_only(thing):
    """Nothing is mirrored in it or shaded by it."""
    thing.visible_diffuse = thing.visible_glossy = thing.visible_shadow = False


def lamp(name, kind, power, color, location, rotation=(0, 0, 0)):
    light = bpy.data.lights.new(name, kind)
    light.energy = power
    light.color = color
    light.cycles.cast_shadow = False
    if kind != "SUN":
        light.shadow_soft_size = 0
    node(name, light, location, rotation)
    return light


def fill_page():
    heights, ripples = tiles(), waves()
    flat = numpy.ones((SIZE, SIZE))
    wall = Surface("wall", (0.55, 0.42, 0.30), 3)
    wall.normals(bumps("wall normals", heights, 4))
    wall.numbers(picture("wall numbers", [0.4 + 0.6 * heights, 1 - 0.45 * heights, 0 * flat]))
    metal = Surface("metal", (0.95, 0.70, 0.35), 1)
    metal.numbers(picture("metal numbers", [flat, 0.25 + 0.4 * (ripples > 0.5), flat]))
    clay = Surface("clay", (0.60, 0.12, 0.10), 2)
    clay.normals(bumps("clay normals", ripples, 6))
    clay.shader.inputs["Roughness"].default_value = 0.45
    back = mesh("Wall", wall, lambda shape: bmesh.ops.create_grid(shape, size=110, calc_uvs=True))
    show_to_eye_only(node("Wall", back, (0, 25, 0), (90, 0, 0)))
    ball("Metal", metal, (-42, 0, 0))
    ball("Clay", clay, (42, 0, 0))
    lamp("Sun", "SUN", 2.4, (1.0, 0.95, 0.85), (0, 0, 100), (55, -30, 0))
    lamp("Point", "POINT", 60000, (0.4, 0.6, 1.0), (65, -45, 40))
    spot = lamp("Spot", "SPOT", 150000, (1.0, 0.5, 0.2), (-10, -60, -35), (90, 0, 0))
    spot.spot_size = math.radians(50)
    spot.spot_blend = 0.4


def set_view():
    camera = bpy.data.cameras.new("View")
    camera.sensor_fit = "VERTICAL"
    camera.angle_y = math.pi / 4
    camera.clip_end = 1000
    scene = bpy.context.scene
    scene.camera = node("View", camera, (0, -EYE, 0), (90, 0, 0))
    world = bpy.data.worlds.new("World")
    world.use_nodes = True
    world.node_tree.nodes["Background"].inputs["Color"].default_value = (*AMBIENT, 1)
    scene.world = world
    scene["ambient"] = AMBIENT
    scene.view_settings.view_transform = "Standard"
    scene.render.engine = "CYCLES"
    scene.cycles.samples = 512
    scene.cycles.max_bounces = 1
    scene.cycles.use_denoising = False
    scene.render.resolution_x, scene.render.resolution_y = 400, 300


def main():
    bpy.ops.wm.read_factory_settings(use_empty=True)
    fill_page()
    set_view()
    os.makedirs(path("scenes"), exist_ok=True)
    bpy.ops.export_scene.gltf(filepath=path("scenes/looks.glb"), export_format="GLB", export_animations=False,
                              export_yup=True, export_lights=True, export_extras=True)
    bpy.context.preferences.filepaths.save_version = 0
    bpy.ops.wm.save_as_mainfile(filepath=path("looks.blend"), compress=True)
    bpy.context.scene.render.image_settings.color_mode = "RGB"
    for mark in ("filename", "date", "time", "render_time", "frame", "camera", "scene"):
        setattr(bpy.context.scene.render, "use_stamp_" + mark, False)
    bpy.context.scene.render.filepath = path("blender.png")
    bpy.ops.render.render(write_still=True)


main()
