// What a script in JScript does with the controls: one line for each thing tried, and "end" when it came to its end.

function check(what, expected, actual) {
  var is_so = typeof expected == typeof actual && expected === actual;
  WScript.Echo(is_so ? "ok " + what : "FAILED " + what + ": expected " + typeof expected + " " + expected + ", is " +
    typeof actual + " " + actual);
}

// action has to fail with the number, and with the description where one is given.
function fails(what, action, number, description) {
  try {
    action();
  } catch (error) {
    check(what, number, error.number);
    if (description !== undefined) check(what + " says so", description, error.description);
    return;
  }
  WScript.Echo("FAILED " + what + ": it succeeds");
}

function control(name) { return new ActiveXObject("LevelWidgets." + name); }

var names = ["FlatButton", "FlatLabel", "FlatTabStrip", "FlatScroll", "FlatTextBox", "FlatDropDown", "FlatCalculator", "FlatCalendar",
  "FlatGrid"];
for (var i = 0; i < names.length; i++) check(names[i] + " is created by its name", "object", typeof control(names[i]));

// --- Properties ---

var button = control("FlatButton"), scroll = control("FlatScroll"), strip = control("FlatTabStrip"), edit = control("FlatTextBox");
button.Caption = "&Go";
check("A string is read as it was written", "&Go", button.Caption);
check("Names may be read in any case", "&Go", button.caption);
button.Enabled = false;
check("A boolean is read as it was written", false, button.Enabled);
button.BackColor = 0x030201;
check("A colour is read as it was written", 0x030201, button.BackColor);
button.BackColor = -2147483633;
check("A system colour is read as it was written", -2147483633, button.BackColor);
scroll.Value = "42";
check("A number may be written as text", 42, scroll.Value);
strip.TabWidth = 720.5;
check("A single is a number", 720.5, strip.TabWidth);
edit.Text = "words";
check("The default member stands for the control", "words!", edit + "!");

// --- Fonts ---

button.Font.Name = "Tahoma";
button.Font.Bold = true;
check("A font is shared: its name", "Tahoma", button.Font.Name);
check("A font is shared: its weight", true, button.Font.Bold);
edit.Font = button.Font;
check("A font is set as an object", true, edit.Font.Bold);

// --- Collections, arguments and indices ---

var grid = control("FlatGrid"), columns = grid.Columns;
columns.Add("Article", 1500);
columns.Add("Price", 1200, 0, 1, 0, true, "0.00", "price");
var column = columns.Add("Note");
check("Arguments are left out at the end", 0, column.Width);
check("Arguments arrive in their places", 1, columns.Item(2).Alignment);
check("The default member takes a position", "Article", columns(1).Caption);
check("The default member takes a key", "Price", columns("price").Caption);
check("Count", 3, columns.Count);
var captions = "";
for (var e = new Enumerator(grid.Columns); !e.atEnd(); e.moveNext()) captions += e.item().Caption + ",";
check("An enumerator", "Article,Price,Note,", captions);
e.moveFirst();
check("An enumerator begins again", "Article", e.item().Caption);

column.Width = 900;
grid.RowCount = 4;
grid.RowData(2, 1) = "Bolt";
grid.RowData(2, 2) = 1.5;
check("An indexed property", "Bolt", grid.RowData(2, 1));
check("A number becomes text", "1.5", grid.RowData(2, 2));
grid.RowHeight = 225;
grid.ShowColumnHeaders = false;
check("A method returns a value", 2, grid.HitTest(600, 300, 0));
strip.TabCaption(1) = "First";
check("An indexed property with one index", "First", strip.TabCaption(1));

var list = control("ksxValueList");
list.Add("kg");
list.Add("m");
columns(3).ValueList = list;
check("A list made by the script", "m", grid.Columns(3).ValueList(2).Description);

// --- Values of any type ---

var calendar = control("FlatCalendar");
// No date is read: Wine's engine knows none.
calendar.Value = null;
check("Null", null, calendar.Value);
calendar.Value = "";
check("An empty string", "", calendar.Value);

// --- Errors ---

fails("A refused value", function () { scroll.Value = 900; }, -2147220502, "Invalid Value");
check("A refused value changes nothing", 42, scroll.Value);
fails("A refused tab", function () { strip.SelectedTab = 7; }, -2147220503, "Invalid TabIndex");
fails("A refused row", function () { return grid.RowData(5, 1); }, -2147220501, "Invalid Row");
fails("A refused column", function () { return grid.RowData(1, 4); }, -2147220500, "Invalid Column");
fails("A refused row count", function () { grid.RowCount = -1; }, -2147220499, "Invalid RowCount");
fails("No such position", function () { return columns(9).Caption; }, -2146828279);
fails("Not a number", function () { scroll.Value = "many"; }, -2146828275);
fails("Too great a number", function () { scroll.Value = 3000000000; }, -2146828282);
fails("No such class", function () { return control("FlatNothing"); }, -2146827859);
check("No such member is undefined", "undefined", typeof scroll.Colour);
WScript.Echo("end");
