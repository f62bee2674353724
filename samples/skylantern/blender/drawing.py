"""Small pictures made of shapes with dark outlines, painted with numpy.

Shapes are distances: below zero inside, in parts of the picture's height, the middle of the picture at (0, 0).
"""

import numpy as np

from paint import coordinates, gradient, mix, smooth, with_alpha

INK = (0.10, 0.05, 0.10)
BRASS = ((0.45, 0.24, 0.08), (0.98, 0.78, 0.40))  # below and above


def plane(height, width):
    u, v = coordinates(height, width)
    return (u - 0.5) * width / height, v - 0.5


def disc(x, y, radius, cx=0.0, cy=0.0, flat=1.0):
    return np.hypot(x - cx, (y - cy) / flat) - radius


def rectangle(x, y, half_width, half_height, cx=0.0, cy=0.0, round_by=0.0):
    dx, dy = np.abs(x - cx) - half_width + round_by, np.abs(y - cy) - half_height + round_by
    return np.hypot(np.maximum(dx, 0), np.maximum(dy, 0)) + np.minimum(np.maximum(dx, dy), 0) - round_by


def bar(x, y, start, end, half):
    """A line with round ends."""
    ax, ay = start
    bx, by = end[0] - ax, end[1] - ay
    along = np.clip(((x - ax) * bx + (y - ay) * by) / (bx * bx + by * by), 0, 1)
    return np.hypot(x - ax - along * bx, y - ay - along * by) - half


def blossom(x, y, radius, points=5, depth=0.45, turn=np.pi / 2):
    angle = np.arctan2(y, x) - turn
    part = np.abs(((angle / (2 * np.pi) * points) % 1.0) - 0.5) * 2.0
    return np.hypot(x, y) - radius * mix(depth, 1.0, part)


def ring(distance, half):
    return np.abs(distance) - half


class Sheet:
    """A picture that shapes are laid on, one over the other, each with a dark outline."""

    def __init__(self, height, width, rgb=None):
        self.x, self.y = plane(height, width)
        self.rgb = np.zeros((height, width, 3)) if rgb is None else rgb
        self.alpha = np.zeros((height, width)) if rgb is None else np.ones((height, width))
        self.pixel = 1.0 / height

    def lay(self, distance, low, high=None, outline=0.016):
        """Fills a shape, darker below than above."""
        inside = np.clip(0.5 - distance / self.pixel, 0, 1)
        around = np.clip(0.5 - (distance - outline) / self.pixel, 0, 1)
        covered = np.where(distance < 0.5 * self.pixel)
        bottom, top = (self.y[covered].min(), self.y[covered].max()) if covered[0].size else (0, 1)
        t = np.clip((self.y - bottom) / max(top - bottom, self.pixel), 0, 1)
        fill = gradient([(0.0, low), (1.0, high or low)], t)
        self.rgb = mix(self.rgb, np.array(INK), around[..., None])
        self.rgb = mix(self.rgb, fill, inside[..., None])
        self.alpha = np.maximum(self.alpha, around)

    def shine(self, cx, cy, radius, color, strength=1.0):
        light = smooth(1.0 - np.hypot(self.x - cx, self.y - cy) / radius) ** 2 * strength
        self.rgb = self.rgb + light[..., None] * np.array(color)

    def done(self):
        return with_alpha(self.rgb, self.alpha)
