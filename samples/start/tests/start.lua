-- The two buttons light up, tell what they do, and ask the game for it; every word is there in every language.
gui.settle()
check_equal(gui.active(), { "start" })

local asked = {}
for _, word in ipairs { "play", "quit" } do
  gui.on(word, function(record)
    asked[#asked + 1] = record.command
    return true
  end)
end

gui.hover("~bPlay")
gui.frame(65)
check_equal(gui.widget("~bPlay").state, 2, "lit under the cursor")
check_equal(gui.tooltip(), "Begin to play")

gui.click("~bPlay")
gui.click("~bQuit")
check_equal(asked, { "play", "quit" })

gui.set("~bPlay", "disabled", true)
gui.frame()
check_equal(gui.widget("~bPlay").state, 1, "dull, and not lit")

for _, language in ipairs(gui.languages()) do
  gui.language(language)
  for _, name in ipairs { "~tTitle", "~bPlay", "~bQuit" } do
    check(gui.widget(name).text ~= "N/A", name .. " in " .. language)
  end
end
