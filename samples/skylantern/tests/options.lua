-- Slide bars, check buttons, a radio group and the list of languages.
gui.settle()
gui.setpage("options")
gui.settle()

-- The slider follows the cursor while the button is held, and no longer.
local volume = 0
gui.on("volume", function(record) volume = gui.widget(record.source).position return true end)
local bar = gui.widget("~smusic")
gui.move(bar.x, bar.y)
gui.frame()
gui.press()
gui.frame()
check_equal(gui.widget("~smusic").position, 50, "the middle of the bar")
gui.move(bar.x + 40, bar.y)
gui.frame(2)
local dragged = gui.widget("~smusic").position
check(dragged > 50, "dragged to the right")
check_equal(volume, dragged, "the game hears of it")
gui.release()
gui.frame()
gui.move(bar.x - 40, bar.y)
gui.frame()
check_equal(gui.widget("~smusic").position, dragged, "let go")

-- The wheel steps by a tenth of the range, and the game hears of each step.
gui.wheel(120)
check_equal(gui.widget("~smusic").position, dragged + 10)
check_equal(volume, dragged + 10)
gui.wheel(-120)
gui.frame()
check_equal(gui.widget("~smusic").position, dragged)
check_equal(volume, dragged)

-- A click turns a check button over, and of a group one stays checked.
local before = gui.widget("~csubtitles").checked
gui.click("~csubtitles")
check_equal(gui.widget("~csubtitles").checked, not before)
for _, name in ipairs { "~cfullscreen", "~cwindowed", "~cwindowed" } do
  gui.click(name)
  gui.frame()
  check(gui.widget("~cfullscreen").checked ~= gui.widget("~cwindowed").checked, "one of two")
end

-- Without sound the slide bars rest, and other captions stand above them.
local function hush(quiet)
  gui.click("~caudible")
  gui.frame()
  for _, name in ipairs { "music", "sound" } do
    check_equal(gui.widget("~s" .. name).disabled, quiet)
    check_equal(gui.widget("~t" .. name).visible, not quiet)
    check_equal(gui.widget("~t" .. name .. "off").visible, quiet)
  end
  check_equal(gui.widget("~caudible").text, gui.text(quiet and 45 or 44))
end
hush(true)
hush(false)
local function difficulty()
  local names = {}
  for _, name in ipairs { "~cgentle", "~cbold", "~cfearless" } do
    if gui.widget(name).checked then names[#names + 1] = name end
  end
  return names
end
check(gui.widget("~cfearless").disabled, "locked until a journey was made")
gui.set("~cfearless", "disabled", false)
for _, name in ipairs { "~cfearless", "~cgentle", "~cgentle", "~cbold" } do
  gui.click(name)
  gui.frame()
  check_equal(difficulty(), { name })
end

-- The second row of the list is German.
local list = gui.widget("~llanguage")
check_equal(#list.items, 4)
gui.move(list.x, list.y - 9)
gui.frame()
gui.press() gui.frame() gui.release() gui.frame(2)
check_equal(gui.list("~llanguage"):selected(), { 2 })
check_equal(gui.language(), "german")
check_equal(gui.widget("~theading").text, "Optionen")
