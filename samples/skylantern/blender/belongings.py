"""What lies in the satchel, painted with numpy on a clear ground."""

import numpy as np

from drawing import BRASS, INK, Sheet, bar, disc, rectangle, ring
from portraits import brass_lantern

SILVER = ((0.34, 0.36, 0.44), (0.86, 0.90, 0.96))
PARCHMENT = ((0.72, 0.52, 0.30), (0.98, 0.88, 0.64))
GLASS = ((0.16, 0.42, 0.46), (0.62, 0.90, 0.84))


def lantern(sheet):
    brass_lantern(sheet, ((1.0, 0.66, 0.22), (1.0, 0.94, 0.66)))


def key(sheet):
    x, y = sheet.x, sheet.y
    for drop in (-0.20, -0.32):
        sheet.lay(rectangle(x, y, 0.085, 0.036, 0.075, drop, 0.01), *BRASS)
    sheet.lay(rectangle(x, y, 0.038, 0.28, 0, -0.12, 0.03), *BRASS)
    sheet.lay(ring(disc(x, y, 0.14, 0, 0.25), 0.045), *BRASS)


def chart(sheet):
    x, y = sheet.x, sheet.y
    sheet.lay(rectangle(x, y, 0.30, 0.34, 0, 0, 0.03), *PARCHMENT)
    for edge in (-0.34, 0.34):
        sheet.lay(rectangle(x, y, 0.35, 0.045, 0, edge, 0.04), *PARCHMENT)
    for cx, cy, r in ((-0.12, 0.12, 0.07), (0.14, -0.02, 0.09), (-0.08, -0.18, 0.06)):
        sheet.lay(disc(x, y, r, cx, cy, 0.7), (0.30, 0.40, 0.18), (0.52, 0.60, 0.28), outline=0.010)
    for start, end in (((-0.05, 0.12), (0.08, 0.05)), ((0.06, -0.08), (-0.02, -0.15))):
        sheet.lay(bar(x, y, start, end, 0.010), (0.66, 0.10, 0.08), outline=0)


def compass(sheet):
    x, y = sheet.x, sheet.y
    sheet.lay(disc(x, y, 0.38), *BRASS)
    sheet.lay(disc(x, y, 0.30), (0.78, 0.74, 0.66), (0.98, 0.96, 0.88))
    for turn in range(4):
        angle = np.pi / 2 * turn
        sheet.lay(disc(x, y, 0.02, 0.25 * np.cos(angle), 0.25 * np.sin(angle)), INK, outline=0)
    along, across = (x + y) / np.sqrt(2), (x - y) / np.sqrt(2)
    needle = np.abs(across) - 0.07 * (1 - np.abs(along) / 0.25)
    sheet.lay(np.maximum(needle, -along), (0.60, 0.06, 0.08), (0.90, 0.18, 0.14))
    sheet.lay(np.maximum(needle, along), (0.18, 0.22, 0.42), (0.30, 0.36, 0.60))
    sheet.lay(disc(x, y, 0.035), *BRASS)


def feather(sheet):
    x, y = sheet.x, sheet.y
    along, across = (x + y) / np.sqrt(2), (x - y) / np.sqrt(2)
    width = 0.15 * np.sqrt(np.clip(1 - ((along - 0.09) / 0.34) ** 2, 0, None))
    vane = np.where(width > 0, np.abs(across) - width, 1.0)
    sheet.lay(vane, (0.20, 0.36, 0.62), (0.74, 0.90, 1.0))
    for place in (-0.08, 0.04, 0.16, 0.28):
        for side in (-1, 1):
            tip = ((place + 0.06 + side * 0.10) / np.sqrt(2), (place + 0.06 - side * 0.10) / np.sqrt(2))
            sheet.lay(bar(x, y, (place / np.sqrt(2), place / np.sqrt(2)), tip, 0.006), (0.20, 0.36, 0.62), outline=0)
    sheet.lay(bar(x, y, (-0.34, -0.34), (0.24, 0.24), 0.012), (0.96, 0.92, 0.80), outline=0.010)


def oil(sheet):
    x, y = sheet.x, sheet.y
    sheet.lay(rectangle(x, y, 0.085, 0.20, 0, 0.14, 0.02), *GLASS)
    sheet.lay(disc(x, y, 0.27, 0, -0.12), *GLASS)
    inside = np.maximum(disc(x, y, 0.22, 0, -0.12), y + 0.06)
    sheet.lay(inside, (0.86, 0.42, 0.08), (1.0, 0.76, 0.26), outline=0)
    sheet.lay(rectangle(x, y, 0.10, 0.06, 0, 0.34, 0.02), (0.36, 0.18, 0.10), (0.66, 0.40, 0.24))
    sheet.lay(bar(x, y, (-0.15, -0.02), (-0.17, -0.13), 0.018), (0.94, 1.0, 0.98), outline=0)


def bell(sheet):
    x, y = sheet.x, sheet.y
    sheet.lay(disc(x, y, 0.065, 0, -0.30), *BRASS)
    flare = np.abs(x) - 0.14 - 0.20 * np.clip((0.12 - y) / 0.36, 0, 1) ** 2
    sheet.lay(np.minimum(np.maximum(flare, np.abs(y + 0.04) - 0.21), disc(x, y, 0.145, 0, 0.17)), *BRASS)
    sheet.lay(rectangle(x, y, 0.34, 0.04, 0, -0.24, 0.03), *BRASS)
    sheet.lay(ring(disc(x, y, 0.06, 0, 0.36), 0.02), *BRASS)


def moonstone(sheet):
    x, y = sheet.x, sheet.y
    facets = np.maximum(np.abs(x) * 0.86 + np.abs(y) * 0.5, np.abs(y)) - 0.32
    sheet.lay(facets, (0.26, 0.20, 0.62), (0.80, 0.78, 1.0))
    sheet.lay(facets + 0.13, (0.52, 0.46, 0.90), (0.96, 0.95, 1.0), outline=0.008)
    sheet.lay(bar(x, y, (-0.08, 0.10), (0.04, 0.13), 0.016), (1.0, 1.0, 1.0), outline=0)


def nothing(sheet):
    """An empty slot."""
    for turn in range(12):
        angle = 2 * np.pi * turn / 12
        sheet.lay(disc(sheet.x, sheet.y, 0.022, 0.30 * np.cos(angle), 0.30 * np.sin(angle)), (0.30, 0.26, 0.46), outline=0)


THINGS = (lantern, key, chart, compass, feather, oil, bell, moonstone)


def thing(paint_it, size=144):
    sheet = Sheet(size, size)
    paint_it(sheet)
    return sheet.done()
