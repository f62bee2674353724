-- Every page in every language, and in windows of other shapes, against the pictures in golden/. Renewed on purpose with
--     FONTCONFIG_FILE=tests/pictures/fonts.conf build/release/bin/guihost --update test tests/pictures samples/skylantern/gui.txt
local different = {}

local function compare(page, language, width, height)
  gui.resize(width, height)
  gui.language(language)
  gui.setpage(page)
  gui.settle()
  gui.frame()
  local name = ("%s_%s_%dx%d.png"):format(page, language, width, height)
  if not gui.same_image("shots/pages/" .. name, "tests/pictures/golden/" .. name) then
    different[#different + 1] = name
  end
end

gui.settle()
for _, page in ipairs(gui.pages()) do
  for _, language in ipairs(gui.languages()) do compare(page, language, 400, 300) end
  compare(page, "german", 533, 300)
  compare(page, "english", 300, 400)
end
check(#different == 0, "not as in tests/pictures/golden, see shots/pages: " .. table.concat(different, " "))
