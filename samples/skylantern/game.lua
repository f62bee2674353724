-- Plays the game's part: answers what the GUI leaves to the game. guihost runs it once, before the first frame.

-- A picture of the credits is lit by a click, and the lanterns dance; the next click puts it out.
local lit = {}
gui.on("picture", function(record)
  local widget, file = record.argument:match("^(.-)=(.*)$")
  lit[widget] = not lit[widget]
  gui.set(widget, "texture", lit[widget] and file or nil)
  if lit[widget] then gui.play("credits", "credits_dance") end
  return true
end)

-- What a name or a choice would do to a real game, it says.
local function selected(list)
  local names = {}
  for _, item in ipairs(gui.widget(list).items) do
    if item.selected then names[#names + 1] = item.text end
  end
  return #names > 0 and table.concat(names, ", ") or "nobody"
end

gui.on("newgame", function()
  local name = gui.widget("~tname").edit
  print("A new journey for " .. (name ~= "" and name or "a nameless keeper"))
  gui.command("setpage:main_menu.glb")
  return true
end)

gui.on("loadgame", function()
  print("On with " .. selected("~ljourneys") .. ", in the company of " .. selected("~lcompanions"))
  gui.set("~cfearless", "disabled", false)  -- whoever has been out there once may be fearless
  gui.command("setpage:main_menu.glb")
  return true
end)

-- Notifications tell of every step of a slide bar.
gui.on("volume", function(record)
  print(record.argument .. " volume " .. gui.widget(record.source).position)
  return true
end)

-- A check button's command comes with each click; the new state is the widget's.
for _, word in ipairs { "audible", "subtitles" } do
  gui.on(word, function(record)
    print(word .. (gui.widget(record.source).checked and " on" or " off"))
    return true
  end)
end

-- Two check buttons that turn each other over ask for the same; one of them tells.
gui.on("fullscreen", function()
  print(gui.widget("~cfullscreen").checked and "fills the screen" or "in a window")
  return true
end)

-- Each choice of a list sends the command of the entry that was left, then that of the new one. The game looks at the
-- lists when the journey begins.
for _, word in ipairs { "difficulty", "year" } do
  gui.on(word, function() return true end)
end

gui.on("language", function(record)
  gui.language(record.argument)
  return true
end)

-- What the keeper carries. A place that is false shows the slot's own picture.
local belongings = {}
for _, name in ipairs { "feather", "compass", "chart", "key", "lantern", "oil", "bell", "moonstone" } do
  belongings[#belongings + 1] = { texture = "textures\\" .. name .. ".png" }
end
gui.bag("inventory", belongings)
