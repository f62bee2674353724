"""Lanterns for the credits, painted with numpy."""

import numpy as np

from drawing import BRASS, INK, Sheet, bar, blossom, disc, rectangle, ring
from paint import clouds, coordinates, gradient


def night(height, width, seed, lit):
    """A portrait's ground: a dusky wall of cloud, warmer when the lantern burns."""
    u, v = coordinates(height, width)
    low, high = ((0.50, 0.22, 0.26), (0.16, 0.10, 0.30)) if lit else ((0.26, 0.20, 0.40), (0.12, 0.11, 0.27))
    rgb = gradient([(0.0, low), (1.0, high)], v)
    return rgb * (0.75 + 0.5 * clouds(height, width, 4, 4, seed))[..., None]


def hang(sheet, top):
    """The cord that a lantern hangs on."""
    sheet.lay(bar(sheet.x, sheet.y, (0, 0.55), (0, top), 0.008), INK, INK, outline=0)


def round_lantern(sheet, paper):
    x, y = sheet.x, sheet.y
    hang(sheet, 0.25)
    sheet.lay(disc(x, y, 0.27, 0, 0, 0.92), *paper)
    for width in (0.10, 0.20):
        sheet.lay(ring(disc(x / width * 0.27, y, 0.27, 0, 0, 0.92), 0.006), paper[0], paper[0], outline=0)
    for place in (0.255, -0.255):
        sheet.lay(rectangle(x, y, 0.10, 0.028, 0, place, 0.01), *BRASS)
    sheet.lay(bar(x, y, (0, -0.29), (0, -0.40), 0.012), (0.45, 0.05, 0.07), (0.75, 0.12, 0.10))


def brass_lantern(sheet, glass):
    x, y = sheet.x, sheet.y
    sheet.lay(ring(disc(x, y, 0.075, 0, 0.36), 0.018), *BRASS)
    sheet.lay(np.maximum(np.abs(x) - 0.04 - (0.30 - y) * 1.1, np.abs(y - 0.235) - 0.065), *BRASS)
    sheet.lay(rectangle(x, y, 0.155, 0.20, 0, -0.04, 0.03), *glass)
    for place in (-0.155, 0.0, 0.155):
        sheet.lay(rectangle(x, y, 0.014, 0.20, place, -0.04), *BRASS, outline=0.006)
    sheet.lay(rectangle(x, y, 0.21, 0.045, 0, -0.27, 0.02), *BRASS)
    sheet.lay(rectangle(x, y, 0.15, 0.03, 0, -0.34, 0.01), *BRASS)


def blossom_lantern(sheet, paper):
    hang(sheet, 0.2)
    sheet.lay(blossom(sheet.x, sheet.y, 0.34), *paper)
    for i in range(5):
        angle = np.pi / 2 + 2 * np.pi * i / 5
        tip = (0.31 * np.cos(angle), 0.31 * np.sin(angle))
        sheet.lay(bar(sheet.x, sheet.y, (0, 0), tip, 0.006), paper[0], paper[0], outline=0)
    sheet.lay(disc(sheet.x, sheet.y, 0.05), *BRASS)


PORTRAITS = {  # shape, its colours unlit and lit, its light
    "islands": (round_lantern, ((0.36, 0.15, 0.14), (0.56, 0.28, 0.20)), ((1.0, 0.50, 0.16), (1.0, 0.86, 0.52)),
                (1.0, 0.55, 0.20)),
    "lights": (brass_lantern, ((0.13, 0.17, 0.27), (0.26, 0.32, 0.44)), ((1.0, 0.66, 0.22), (1.0, 0.94, 0.66)),
               (1.0, 0.70, 0.30)),
    "words": (blossom_lantern, ((0.26, 0.23, 0.46), (0.44, 0.38, 0.62)), ((0.62, 0.44, 0.96), (0.96, 0.84, 1.0)),
              (0.70, 0.50, 1.0)),
}


def portrait(name, lit, height=224, width=176):
    """A lantern on a dusky ground, dark or burning."""
    shape, dark, bright, light = PORTRAITS[name]
    sheet = Sheet(height, width, night(height, width, 60 + len(name), lit))
    if lit:
        sheet.shine(0, -0.02, 0.60, light, 0.75)
    shape(sheet, bright if lit else dark)
    if lit:
        sheet.shine(0, -0.06, 0.24, light, 0.45)
    return sheet.done()
