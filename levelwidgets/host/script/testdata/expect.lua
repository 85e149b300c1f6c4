-- What the test scripts check with. A failed check ends the script with the line of the check.
local expect = {}

local function show(value)
  return type(value) == "string" and string.format("%q", value) or tostring(value)
end

-- Equal, and of the same kind of number.
function expect.equal(actual, expected)
  if actual ~= expected or math.type(actual) ~= math.type(expected) then
    error("expected " .. show(expected) .. ", got " .. show(actual), 2)
  end
end

function expect.list(actual, expected)
  local shown = {}
  for i, value in ipairs(actual) do shown[i] = show(value) end
  local wanted = {}
  for i, value in ipairs(expected) do wanted[i] = show(value) end
  local a, b = table.concat(shown, ", "), table.concat(wanted, ", ")
  if a ~= b then error("expected { " .. b .. " }\n     got { " .. a .. " }", 2) end
end

-- The call ends with an error of the library of that number; its description is `description`.
function expect.fails(number, description, call)
  local ok, err = pcall(call)
  if ok then error("no error, expected: " .. description, 2) end
  if type(err) ~= "table" then error("expected an error of the library, got: " .. tostring(err), 2) end
  if err.number ~= number or err.description ~= description then
    error("expected " .. number .. " " .. show(description) .. "\n     got " .. tostring(err.number) .. " " ..
          show(err.description), 2)
  end
  return err
end

return expect
