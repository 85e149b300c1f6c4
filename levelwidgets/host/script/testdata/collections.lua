-- Objects that are no controls, and collections of them.
local expect = require "expect"

local list = lw.new("ksxValueList")
expect.equal(tostring(list), "ksxValueList")
expect.equal(list.Count, 0)
for _ in list:each() do error("an empty list has an item") end

-- Methods, object results, the default member.
local kg = list:Add("kg")
expect.equal(tostring(kg), "ksxValueListItem")
expect.equal(kg.Description, "kg")
list:Add("")
list:Add(12)
expect.equal(list.Count, 3)
expect.equal(list.Item[1], kg)
expect.equal(list[1], kg)
expect.equal(list[1.0], kg)
expect.equal(list.Item["3"].Description, "12")
list[1].Description = "kilogram"
expect.equal(kg.Description, "kilogram")

local function texts()
  local found = {}
  for item in list:each() do found[#found + 1] = item.Description end
  return found
end
expect.list(texts(), { "kilogram", "", "12" })

-- A loop goes on with the items that it began with.
local seen = 0
for item in list:each() do
  seen = seen + 1
  if seen == 1 then list:Clear() end
end
expect.equal(seen, 3)
expect.equal(list.Count, 0)
kg.Description = "still here"
expect.equal(kg.Description, "still here")

local enumerator = list.NewEnum
list:Add("m")
expect.equal(enumerator.AtEnd, true)
enumerator = list.NewEnum
expect.equal(enumerator:Next(), list[1])
expect.equal(enumerator:Next(), nil)

list:Add("cm")
list:Remove(1)
expect.list(texts(), { "cm" })

-- Items by themselves.
local item = lw.new("LevelWidgets.ksxValueListItem")
expect.equal(item.Description, "")

-- What is refused.
expect.fails(9, "Subscript out of range", function() return list[2] end)
expect.fails(9, "Subscript out of range", function() return list.Item[0] end)
expect.fails(9, "Subscript out of range", function() list:Remove(2) end)
expect.fails(450, "ksxValueList.Add needs the argument Description", function() list:Add() end)
expect.fails(450, "ksxValueList.Add takes 1 arguments, not 2", function() list:Add("a", "b") end)
expect.fails(13, "ksxValueList.Remove is of type Long; \"x\" does not convert to it: Type mismatch",
             function() list:Remove("x") end)
expect.fails(13, "ksxValueList.Item's Index is of type Long; Null does not convert to it: Type mismatch",
             function() return list[lw.null] end)
expect.fails(383, "ksxValueList.Count is read-only", function() list.Count = 1 end)
expect.fails(383, "ksxValueList.Item is read-only", function() list[1] = item end)
expect.fails(383, "ksxValueList.Add is a method", function() list.Add = 1 end)
expect.fails(383, "ksxValueList.each is a method", function() list.each = 1 end)
expect.fails(438, 'ksxValueList has no member "Cuont"; did you mean "Count"?', function() return list.Cuont end)
expect.fails(438, 'ksxValueList has no member "eahc"; did you mean "each"?', function() return list.eahc end)
expect.fails(438, 'ksxValueList has no member "Cuont"; did you mean "Count"?', function() list.Cuont = 1 end)
expect.fails(438, "ksxValueListItem has no members by number", function() return item[1] end)
expect.fails(438, "ksxValueListItem has no members by number", function() item[1] = 1 end)
expect.fails(438, "ksxValueListItem is no collection", function() item:each() end)
expect.fails(438, 'ksxValueList has no member "Changed"', function() list:on("Changed", print) end)
