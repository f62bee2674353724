"""The far islands behind a page, from tables."""

import kit
import stage


def island(name, location, radius, depth, seed, haze, surfaces, things):
    """`things` are (kind, place, size) for houses and lighthouses, (leaves, place, size) for trees."""
    node = kit.empty(name, location)
    stage.island(name.lower() + " island", radius, depth, surfaces, (0, 0, 0), seed, node, haze=haze)
    for i, (kind, place, size) in enumerate(things):
        if kind == "house":
            stage.house(node, place, size, surfaces)
        elif kind == "lighthouse":
            stage.lighthouse(node, place, size, surfaces)
        else:
            stage.tree(node, place, size, surfaces, kind, seed + i)
    return node


def evening(surfaces, islands):
    """The sky, two banks of mist and islands: (name, location, radius, depth, seed, haze, things)."""
    stage.sky()
    stage.mist("far mist", 620, 90, (-20, 240, -95))
    for name, location, radius, depth, seed, haze, things in islands:
        island(name, location, radius, depth, seed, haze, surfaces, things)
    stage.mist("middle mist", 420, 60, (30, 150, -72), mirrored=True)
