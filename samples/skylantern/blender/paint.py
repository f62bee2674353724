"""Pictures that are painted with numpy: skies, clouds, glows and panels.

Pictures are arrays of height x width x 4 floats in [0, 1], rows from the bottom as Blender keeps them.
"""

import numpy as np

RNG_SEED = 7


def mix(a, b, t):
    return a + (b - a) * t


def smooth(t):
    t = np.clip(t, 0.0, 1.0)
    return t * t * (3.0 - 2.0 * t)


def gradient(stops, t):
    """Colours at `t` along [(position, (r, g, b)), ...]."""
    positions = [p for p, _ in stops]
    return np.stack([np.interp(t, positions, [c[i] for _, c in stops]) for i in range(3)], axis=-1)


def noise(height, width, cells_y, cells_x, seed):
    """Smooth value noise that tiles sideways."""
    grid = np.random.default_rng(seed).random((cells_y + 1, cells_x))
    y = np.linspace(0, cells_y, height, endpoint=False)
    x = np.linspace(0, cells_x, width, endpoint=False)
    y0, x0 = y.astype(int), x.astype(int)
    ty, tx = smooth(y - y0)[:, None], smooth(x - x0)[None, :]
    x1 = (x0 + 1) % cells_x
    low = mix(grid[y0][:, x0], grid[y0][:, x1], tx)
    high = mix(grid[y0 + 1][:, x0], grid[y0 + 1][:, x1], tx)
    return mix(low, high, ty)


def clouds(height, width, cells_y, cells_x, seed, octaves=5):
    total, weight = np.zeros((height, width)), 0.0
    for octave in range(octaves):
        scale = 2**octave
        total += noise(height, width, cells_y * scale, cells_x * scale, seed + octave) / scale
        weight += 1.0 / scale
    return total / weight


def coordinates(height, width):
    v, u = np.mgrid[0:height, 0:width]
    return u / (width - 1), v / (height - 1)


def with_alpha(rgb, alpha):
    return np.concatenate([np.clip(rgb, 0, 1), np.clip(alpha, 0, 1)[..., None]], axis=-1)


def dusk_sky(height=640, width=1280, sun=(0.60, 0.47)):
    """An evening sky: stars above, a low sun behind streaks of cloud, a sea of mist below."""
    u, v = coordinates(height, width)
    rgb = gradient(
        [
            (0.00, (0.10, 0.07, 0.20)),
            (0.20, (0.33, 0.16, 0.36)),
            (0.34, (0.96, 0.52, 0.36)),
            (0.42, (0.98, 0.60, 0.42)),
            (0.56, (0.58, 0.28, 0.50)),
            (0.76, (0.20, 0.14, 0.38)),
            (1.00, (0.05, 0.05, 0.18)),
        ],
        v,
    )
    distance = np.hypot((u - sun[0]) * 2.0, v - sun[1])
    rgb += np.exp(-((distance / 0.42) ** 2))[..., None] * np.array([0.35, 0.20, 0.05])
    rgb += np.exp(-((distance / 0.14) ** 2))[..., None] * np.array([0.55, 0.42, 0.20])
    disc = smooth((0.050 - distance) / 0.006)[..., None]
    rgb = mix(rgb, np.array([1.0, 0.93, 0.74]), disc)

    streaks = clouds(height, width, 14, 5, RNG_SEED)
    cover = smooth((streaks - 0.50) / 0.22) * smooth((v - 0.22) / 0.12) * smooth((0.95 - v) / 0.5)
    lit = gradient([(0.0, (1.0, 0.72, 0.48)), (0.5, (0.72, 0.36, 0.48)), (1.0, (0.22, 0.16, 0.36))], distance)
    rgb = mix(rgb, lit, (cover * 0.75)[..., None])

    mist = smooth((clouds(height, width, 8, 9, RNG_SEED + 40) * 0.5 + 0.30 - v) / 0.22)
    mist_color = gradient([(0.0, (0.16, 0.10, 0.26)), (0.3, (0.80, 0.46, 0.48))], v)
    rgb = mix(rgb, mist_color, (mist * 0.8)[..., None])

    rng = np.random.default_rng(RNG_SEED)
    for _ in range(420):
        x, y = rng.integers(2, width - 2), rng.integers(int(height * 0.60), height - 2)
        glow = rng.random() ** 3 * smooth(np.array((y / height - 0.56) / 0.3)) * (1.0 - cover[y, x])
        rgb[y, x] += glow
        rgb[y - 1 : y + 2, x - 1 : x + 2] += glow * 0.18
    return with_alpha(rgb, np.ones((height, width)))


def mist_bank(height=256, width=512, seed=90):
    """A bank of mist: dense below, torn above, clear at its sides."""
    u, v = coordinates(height, width)
    shape = clouds(height, width, 4, 5, seed)
    alpha = smooth((shape * 0.95 + 0.30 - v) / 0.45) * smooth(u / 0.2) * smooth((1 - u) / 0.2) * smooth(v / 0.25)
    rgb = gradient([(0.0, (0.30, 0.18, 0.36)), (1.0, (1.0, 0.66, 0.56))], np.clip(v + (shape - 0.5), 0, 1))
    return with_alpha(rgb, alpha * 0.85)


def glow(size=128):
    """A round light that fades to nothing."""
    u, v = coordinates(size, size)
    distance = np.hypot(u - 0.5, v - 0.5) * 2.0
    alpha = smooth(1.0 - distance) ** 2
    return with_alpha(np.ones((size, size, 3)) * np.array([1.0, 0.72, 0.36]), alpha)


def beam(height=64, width=256):
    """A beam of light from the left edge's middle, wider and fainter to the right."""
    u, v = coordinates(height, width)
    across = np.abs(v - 0.5) * 2.0 / (0.10 + 0.85 * u)
    alpha = smooth(1.0 - across) * (1.0 - u) ** 1.4 * 0.62 * smooth(u / 0.04)
    return with_alpha(np.ones((height, width, 3)) * np.array([1.0, 0.86, 0.58]), alpha)


def plate(low, high, height=128, width=512, seed=11):
    """Brushed enamel: a vertical gradient, darker at the rim, with fine streaks."""
    u, v = coordinates(height, width)
    rgb = gradient([(0.0, low), (1.0, high)], v)
    rim = smooth(np.minimum(np.minimum(u, 1 - u) * width / height, np.minimum(v, 1 - v)) / 0.35)
    streaks = noise(height, width, 64, 24, seed) * 0.10 + clouds(height, width, 3, 6, seed + 5) * 0.16
    rgb = rgb * (0.62 + 0.38 * rim + streaks - 0.13)[..., None]
    return with_alpha(rgb, np.ones((height, width)))


def lantern_paper(height=64, width=64):
    """Lit paper: brightest near the flame at the bottom."""
    u, v = coordinates(height, width)
    rgb = gradient([(0.0, (1.0, 0.92, 0.62)), (0.45, (1.0, 0.62, 0.24)), (1.0, (0.62, 0.16, 0.10))], v)
    ribs = 0.86 + 0.14 * np.abs(np.sin(u * np.pi * 6.0))
    return with_alpha(rgb * ribs[..., None], np.ones((height, width)))


def tooltip_panel(height=64, width=256):
    """The tooltip's ground: deep blue, a thin bright rim, slightly clear."""
    u, v = coordinates(height, width)
    edge = np.minimum(np.minimum(u, 1 - u) * width / height, np.minimum(v, 1 - v))
    rgb = gradient([(0.0, (0.07, 0.06, 0.16)), (1.0, (0.16, 0.13, 0.30))], v)
    rgb = mix(rgb, np.array([0.95, 0.72, 0.40]), smooth((0.07 - edge) / 0.04)[..., None])
    return with_alpha(rgb, np.full((height, width), 0.90))
