-- Typing a name.
gui.settle()
gui.setpage("name_entry")
gui.settle()
gui.click("~tname")
gui.type("Mira & (Lu")

-- The wheel and the arrows are no letters, though they have the codes of some.
gui.wheel(120)
gui.key(38)
gui.key(40)
gui.type(")")
check_equal(gui.widget("~tname").edit, "Mira & (Lu)")

gui.key(8)
gui.key(13)
gui.type("over")
check_equal(gui.widget("~tname").edit, "Mira & (Lu")
