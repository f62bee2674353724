-- A long list, several choices, and a spinner; then a name for a new journey.
gui.settle()
gui.click("~bcontinue")
gui.settle()
check_equal(gui.active(), { "load_game" })

-- The wheel scrolls the list by its bar, and a click takes the row under the cursor.
local journeys = gui.widget("~ljourneys")
gui.list("~ljourneys"):select(18)
gui.frame()
check(gui.widget("~ljourneys").position > 0, "scrolled to the last entry")
check_equal(gui.list("~ljourneys"):selected(), { 18 })

-- A chosen journey tells its story, and only then there is something to set off to.
check_equal(gui.widget("~bload").visible, false)
gui.move(journeys.x, journeys.y)
gui.frame()
gui.press() gui.frame() gui.release() gui.frame(2)
local chosen = gui.list("~ljourneys"):selected()[1]
check(chosen and chosen ~= 18, "a row was clicked")
check_equal(gui.widget("~tstory").text, gui.text(361 + (chosen - 1) // 3))
check(gui.widget("~bload").visible, "the button comes out")

-- No more than three companions.
local companions = gui.list("~lcompanions")
local at = gui.widget("~lcompanions")
for row = -2, 2 do
  gui.move(at.x, at.y + row * 16)
  gui.frame()
  gui.press() gui.frame() gui.release() gui.frame()
end
check_equal(#companions:selected(), 3)

-- Entries can be added and taken away.
gui.list("~lyear"):clear()
for year = 1, 3 do gui.list("~lyear"):add { text = "Year " .. year, message = "year:" .. year } end
gui.frame(2)
check_equal(gui.list("~lyear"):selected(), { 1 }, "the selection follows the top row")
gui.set("~lyear", "position", 2)
gui.frame(2)
check_equal(gui.list("~lyear"):selected(), { 3 })
gui.click("~bback")
gui.settle()

gui.click("~bnewgame")
gui.settle()
gui.click("~tname")
gui.type("Mira 灯😀!")
check_equal(gui.widget("~tname").edit, "Mira 灯😀!")
gui.key(8) gui.key(8)
check_equal(gui.widget("~tname").edit, "Mira 灯", "one backspace for each letter")
gui.type("............")
check_equal(gui.widget("~tname").edit, "Mira 灯......", "twelve characters at most")
gui.key(13)
gui.type("x")
check_equal(gui.widget("~tname").edit, "Mira 灯......", "Enter ends it")
local begun
gui.on("newgame", function() begun = gui.widget("~tname").edit return true end)
gui.click("~bstart")
gui.frame(2)
check_equal(begun, "Mira 灯......")
