"""Makes every scene, animation and picture of the sample: blender -b --python build.py [-- PAGE ... [--preview FOLDER]]"""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

import credits
import help
import inventory
import inventory_frame
import kit
import load_game
import main_menu
import name_entry
import options
import paint
import quit_dialog

PAGES = {page.__name__: page for page in (
    main_menu, load_game, name_entry, options, help, credits, inventory, inventory_frame, quit_dialog)}


def main():
    arguments = sys.argv[sys.argv.index("--") + 1 :] if "--" in sys.argv else []
    folder = None
    if "--preview" in arguments:
        at = arguments.index("--preview")
        folder = arguments[at + 1]
        del arguments[at : at + 2]
    for folder_made in ("scenes", "anims", "textures"):
        os.makedirs(os.path.join(kit.SAMPLE, folder_made), exist_ok=True)
    for name in arguments or PAGES:
        PAGES[name].build()
        if folder:
            kit.preview(os.path.join(folder, name + ".png"))
    kit.new_scene()
    kit.save_picture(paint.tooltip_panel(), "textures/tooltip.png")


main()
