-- Every page has words in every language.
gui.settle()
check_equal(gui.languages(), { "english", "german", "arabic", "japanese" })
local letters = {
  "bcontinue", "bnewgame", "boptions", "bquit", "binventory", "bcredits", "bhelp", "theading", "tguide", "tprompt",
  "tmusic", "tmusicoff", "tsound", "tsoundoff", "caudible", "cwindowed", "tlanguage", "tdifficulty", "tcompanions", "tyear", "tquestion", "thint", "tislands", "tlights",
  "twords", "cfullscreen", "csubtitles", "cgentle", "cbold", "cfearless", "byes", "bno", "bstart", "bload", "bback",
}
for _, language in ipairs(gui.languages()) do
  gui.language(language)
  for _, name in ipairs(letters) do
    local text = gui.widget("~" .. name).text
    check(text ~= "N/A" and text ~= "", name .. " in " .. language)
  end
  for _, name in ipairs { "~ljourneys", "~lcompanions", "~llanguage", "~lyear" } do
    for position, item in ipairs(gui.widget(name).items) do
      check(item.text ~= "N/A", name .. " " .. position .. " in " .. language)
    end
  end
end
