-- The way from the menu to the options and back.
gui.settle()
check_equal(gui.active(), {"main_menu"})
check_equal(gui.rendered(), {"main_menu"})

-- Hovering lights a button, and after a second its tooltip shows.
gui.hover("~bnewgame")
gui.frame()
check_equal(gui.widget("~bnewgame").state, 2, "state under the cursor")
check_equal(gui.tooltip(), nil)
gui.frame(70)
check_equal(gui.tooltip(), gui.text(102))

-- The page leaves before the next one comes.
gui.sounds()
gui.click("~boptions")
check_equal(gui.sounds(), {"sounds\\hover.wav", "sounds\\click.wav", "sounds\\page_out.wav"})
check_equal(gui.rendered(), {"main_menu"}, "rendered while the menu leaves")
repeat gui.frame() until gui.rendered()[1] == "options"
local first = gui.widget("~bback").y
gui.settle()
check(math.abs(first - gui.widget("~bback").y) > 50, "first seen where its entrance begins")
check_equal(gui.active(), {"options"})

-- Back to where we were.
gui.click("~bback")
gui.settle()
check_equal(gui.active(), {"main_menu"})
