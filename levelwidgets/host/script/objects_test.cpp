// Objects that scripts are given and do not make: the columns of a grid.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/controls/grid/flat_columns.h>
#include <levelwidgets/host/script/script_host.h>
#include <levelwidgets/testing/sheet.h>

namespace levelwidgets {
namespace {

using ::testing::HasSubstr;

class ScriptObjectsTest : public ::testing::Test {
 protected:
  ScriptObjectsTest() { host_.SetGlobal("columns", columns_); }

  // The error that ends the script; "" when it ends well.
  std::string Run(const std::string& script) {
    try {
      host_.RunText(script, "script");
      return "";
    } catch (const ScriptFailure& failure) {
      return failure.what();
    }
  }
  // The value of the expression as text, or the error that it raises.
  std::string Value(const std::string& expression) {
    const std::string error = Run("error('=' .. tostring(" + expression + "), 0)");
    const std::string first_line = error.substr(0, error.find('\n'));
    return first_line.starts_with('=') ? first_line.substr(1) : first_line;
  }

  std::shared_ptr<FlatColumns> columns_ = FlatColumns::Create();
  std::string reports_;
  ScriptHost host_{[this](const std::string& text) { reports_ += text; }};
};

TEST_F(ScriptObjectsTest, MethodsTakeOptionalArgumentsAndReturnObjects) {
  EXPECT_EQ(Value("columns:Add('Qty', 900)"), "FlatColumn");
  EXPECT_EQ(Value("columns:Add('Price', 1440, nil, 1, nil, true, '0.00', 'price', 0).Alignment"), "1");
  EXPECT_EQ(columns_->Item(1)->Width(), 900);
  EXPECT_TRUE(columns_->Item("price")->Visible());
  EXPECT_EQ(columns_->Item("price")->Format(), "0.00");
}

TEST_F(ScriptObjectsTest, MembersAreFoundByNumberAndByKey) {
  EXPECT_EQ(Run("columns:Add('a'); columns:Add('b', 0, 0, 0, 0, true, '', 'key')"), "");
  EXPECT_EQ(Value("columns[2] == columns.Item['KEY'] and columns[2] == columns.Item[2]"), "true");
  EXPECT_EQ(Value("columns[1].Caption"), "a");
  EXPECT_THAT(Value("columns[3]"), HasSubstr("Subscript out of range"));
  EXPECT_THAT(Value("columns.Item['none']"), HasSubstr("Invalid procedure call"));
  EXPECT_EQ(Run("columns:Remove('key')"), "");
  EXPECT_EQ(columns_->Count(), 1);
}

TEST_F(ScriptObjectsTest, ALoopGoesThroughTheMembersInOrder) {
  EXPECT_EQ(Run("columns:Add('a'); columns:Add('b'); columns:Add('c', 0, 0, 0, 0, false, '', '', 1)"
                "captions = '' for column in columns:each() do captions = captions .. column.Caption end"),
            "");
  EXPECT_EQ(Value("captions"), "acb");
}

TEST_F(ScriptObjectsTest, ObjectsAreValuesOfProperties) {
  EXPECT_EQ(Run("columns:Add('a').ValueList:Add('kg')"), "");
  EXPECT_EQ(Value("columns[1].ValueList[1].Description"), "kg");
  EXPECT_EQ(Run("columns:Add('b').ValueList = columns[1].ValueList"), "");
  EXPECT_EQ(Value("columns[2].ValueList == columns[1].ValueList"), "true");
  EXPECT_EQ(columns_->Item(2)->ValueList(), columns_->Item(1)->ValueList());
  EXPECT_EQ(Run("columns[2].ValueList = nil"), "");
  EXPECT_EQ(Value("columns[2].ValueList"), "nil");
  EXPECT_EQ(columns_->Item(2)->ValueList(), nullptr);
  EXPECT_THAT(Run("columns[1].ValueList = columns"),
              HasSubstr("FlatColumn.ValueList is of type ksxValueList; an object does not convert to it"));
}

TEST_F(ScriptObjectsTest, EventsAreListenedTo) {
  EXPECT_EQ(Run("heard = {} for _, name in ipairs{ 'ColumnAdded', 'ColumnInfoChanged' } do"
                "  columns:on(name, function() heard[#heard + 1] = name .. columns.Count end) end "
                "columns:Add('a')"),
            "");
  EXPECT_EQ(Value("#heard"), "7");
  EXPECT_EQ(Value("table.concat(heard, ' ', 6)"), "ColumnInfoChanged0 ColumnAdded1");
  EXPECT_THAT(Value("columns.ColumnAdded"), HasSubstr("is an event"));
  EXPECT_THAT(Run("columns.ColumnAdded = print"), HasSubstr("is an event"));
}

TEST_F(ScriptObjectsTest, AnErrorInAHandlerIsReportedWithTheClass) {
  EXPECT_EQ(Run("columns:on('ColumnAdded', function() error('oops') end) columns:Add('a')"), "");
  EXPECT_EQ(columns_->Count(), 1);
  ASSERT_EQ(host_.HandlerErrors().size(), 1u);
  const HandlerError& error = host_.HandlerErrors().front();
  EXPECT_EQ(error.form, "");
  EXPECT_EQ(error.control, "FlatColumns");
  EXPECT_EQ(error.event, "ColumnAdded");
  EXPECT_THAT(reports_, ::testing::StartsWith("FlatColumns ColumnAdded: script:1: oops"));
}

TEST_F(ScriptObjectsTest, AScriptKeepsAnObjectAlive) {
  EXPECT_EQ(Run("columns:Add('a') column = columns[1] columns:Clear() column.Caption = 'still here'"), "");
  EXPECT_EQ(Value("column.Caption"), "still here");
}

// --- Methods that hand values back ---------------------------------------------------------------------

class ScriptByReference : public ScriptObjectsTest {
 protected:
  ScriptByReference() { host_.SetGlobal("sheet", std::make_shared<testing::Sheet>()); }
};

TEST_F(ScriptByReference, ByReferenceValuesFollowTheResult) {
  EXPECT_EQ(Run("row, column, more = sheet:HitTest(250, 70)"), "");
  EXPECT_EQ(Value("row .. ' ' .. column .. ' ' .. tostring(more)"), "7 2 nil");
}

TEST_F(ScriptByReference, TheyStandInsteadOfTheResultOfAVoidMethod) {
  EXPECT_EQ(Value("table.concat({ sheet:Locate('abc') }, ' ')"), "3 <abc>");
  EXPECT_EQ(Value("sheet:Double(20.6)"), "42");
  EXPECT_EQ(Value("select('#', sheet:Touch())"), "1");
  EXPECT_EQ(Value("sheet:Touch()"), "nil");
}

TEST_F(ScriptByReference, PureOutputsMayBePassedInTheirPlaces) {
  EXPECT_EQ(Value("table.concat({ sheet:Locate(9, 'x', 'abc') }, ' ')"), "3 <abc>");
  EXPECT_EQ(Value("table.concat({ sheet:HitTest(250, 70, nil) }, ' ')"), "7 2");
}

TEST_F(ScriptByReference, ArgumentsThatAreReadMustBeGivenAndExtraOnesAreRefused) {
  EXPECT_THAT(Value("sheet:HitTest(1)"), HasSubstr("Sheet.HitTest needs the argument Y"));
  EXPECT_THAT(Value("sheet:Locate()"), HasSubstr("Sheet.Locate needs the argument Of"));
  EXPECT_THAT(Value("sheet:HitTest(1, 2, 3, 4)"), HasSubstr("Sheet.HitTest takes 3 arguments, not 4"));
}

}  // namespace
}  // namespace levelwidgets
