// Members by name and by number, as scripts call them.
#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;

using LateBindingTest = ComponentTest;

TEST_F(LateBindingTest, AComponentHasItsDefaultsBeforeAnyContainer) {
  const auto button = MakeComponent("FlatButton");
  ASSERT_TRUE(button);
  EXPECT_EQ(Shown(Get(button.Get(), "Enabled")), "True");
  EXPECT_EQ(Shown(Get(button.Get(), "Caption")), "");
}

TEST_F(LateBindingTest, NamesMayBeInAnyCase) {
  const auto label = MakeComponent("FlatLabel");
  EXPECT_EQ(Put(label.Get(), "cAPTION", {"Save"}).result, S_OK);
  EXPECT_EQ(Shown(Get(label.Get(), "CAPTION")), "Save");
  EXPECT_EQ(IdOf(label.Get(), "caption"), IdOf(label.Get(), "Caption"));
}

TEST_F(LateBindingTest, AnUnknownNameHasNoNumber) {
  const auto label = MakeComponent("FlatLabel");
  EXPECT_EQ(IdOf(label.Get(), "Captoin"), DISPID_UNKNOWN);
  EXPECT_EQ(Get(label.Get(), "Captoin").result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateBindingTest, ARefusedValueIsAnExceptionWithNumberSourceAndDescription) {
  const auto scroll = MakeComponent("FlatScroll");
  const CallResult result = Put(scroll.Get(), "Value", {-1});
  EXPECT_EQ(result.result, DISP_E_EXCEPTION);
  EXPECT_EQ(result.number, static_cast<HRESULT>(0x800403EA));
  EXPECT_EQ(result.source, "LevelWidgets.FlatScroll");
  EXPECT_EQ(result.description, "Invalid Value");
}

TEST_F(LateBindingTest, TheHiddenNamesOfTheTypeLibraryHaveTheirNumbers) {
  const auto grid = MakeComponent("FlatGrid");
  const CallResult columns = Get(grid.Get(), "Columns");
  EXPECT_EQ(IdOf(columns.value.pdispVal, "_Default"), DISPID_VALUE);
  EXPECT_EQ(IdOf(columns.value.pdispVal, "_NewEnum"), DISPID_NEWENUM);
  EXPECT_EQ(IdOf(grid.Get(), "_NewEnum"), DISPID_UNKNOWN);
}

// A grid with two columns and a row.
ComPtr<IUnknown> GridWithCells() {
  ComPtr<IUnknown> grid = MakeComponent("FlatGrid");
  const CallResult columns = Get(grid.Get(), "Columns");
  for (const char* caption : {"Name", "Number"}) Call(columns.value.pdispVal, "Add", {caption});
  Put(grid.Get(), "RowCount", {1});
  return grid;
}

TEST_F(LateBindingTest, AnIndexBehindAPropertyThatHoldsACollectionIsThatOfItsItem) {
  const auto grid = GridWithCells();
  const CallResult column = Get(grid.Get(), "Columns", {2});
  ASSERT_EQ(Shown(column), "Object");
  EXPECT_EQ(Shown(Get(column.value.punkVal, "Caption")), "Number");
  EXPECT_EQ(Invoke(column.value.punkVal, "Caption", DISPATCH_PROPERTYPUT, {"Price"}).result, S_OK);
  const CallResult called = Invoke(grid.Get(), "Columns", DISPATCH_METHOD | DISPATCH_PROPERTYGET, {2});
  EXPECT_EQ(Shown(Get(called.value.punkVal, "Caption")), "Price");
  EXPECT_EQ(Get(grid.Get(), "Columns", {3}).result, DISP_E_EXCEPTION);
}

TEST_F(LateBindingTest, AnAssignmentThatDoesNotNameItsValueTakesTheLastArgument) {
  const auto grid = GridWithCells();
  const auto dispatch = As<IDispatch>(grid);
  const auto assign = [&](const char* property, std::vector<Value> last_first) {
    std::vector<VARIANT> handed;
    for (Value& value : last_first) handed.push_back(value.Get());
    DISPPARAMS parameters = {handed.data(), nullptr, static_cast<UINT>(handed.size()), 0};
    return dispatch->Invoke(IdOf(grid.Get(), property), IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters,
                            nullptr, nullptr, nullptr);
  };
  EXPECT_EQ(assign("TopIndex", {Value(1)}), S_OK);
  EXPECT_EQ(assign("HideSelection", {Value(true)}), S_OK);
  EXPECT_EQ(Shown(Get(grid.Get(), "HideSelection")), "True");
  EXPECT_EQ(assign("RowData", {Value("nut"), Value(2), Value(1)}), S_OK);
  EXPECT_EQ(Shown(Get(grid.Get(), "RowData", {1, 2})), "nut");
  EXPECT_EQ(assign("HideSelection", {}), static_cast<HRESULT>(0x800A01C2)) << "a wrong number of arguments";
}

TEST_F(LateBindingTest, ArgumentsWithNamesComeInAnyOrder) {
  const auto grid = GridWithCells();
  const CallResult columns = Get(grid.Get(), "Columns");
  IDispatch* const dispatch = columns.value.pdispVal;
  OwnedText names[] = {OwnedText("Add"), OwnedText("caption"), OwnedText("EditType"), OwnedText("Width")};
  LPOLESTR wanted[] = {names[0].Get(), names[1].Get(), names[2].Get(), names[3].Get()};
  DISPID ids[4] = {};
  ASSERT_EQ(dispatch->GetIDsOfNames(IID_NULL, wanted, 4, 0, ids), S_OK);
  // Width, EditType and Caption, none by its place.
  Value values[] = {Value(900), Value(1), Value("Price")};
  VARIANT handed[] = {values[0].Get(), values[1].Get(), values[2].Get()};
  DISPID named[] = {ids[3], ids[2], ids[1]};
  DISPPARAMS parameters = {handed, named, 3, 3};
  CallResult added;
  ASSERT_EQ(
      dispatch->Invoke(ids[0], IID_NULL, 0, DISPATCH_METHOD, &parameters, &added.value, nullptr, nullptr),
      S_OK);
  EXPECT_EQ(Shown(Get(added.value.punkVal, "Caption")), "Price");
  EXPECT_EQ(Shown(Get(added.value.punkVal, "Width")), "900");
  EXPECT_EQ(Shown(Get(added.value.punkVal, "EditType")), "1");
}

TEST_F(LateBindingTest, AnEnumerationSkipsBeginsAgainAndIsCopiedWhereItIs) {
  const auto grid = GridWithCells();
  const CallResult columns = Get(grid.Get(), "Columns");
  const CallResult items = Invoke(columns.value.pdispVal, DISPID_NEWENUM, DISPATCH_PROPERTYGET);
  const auto enumeration = As<IEnumVARIANT>(items.value.punkVal);
  ASSERT_TRUE(enumeration);
  const auto next_of = [](IEnumVARIANT* of) {
    CallResult item;
    return of->Next(1, &item.value, nullptr) == S_OK ? Shown(Get(item.value.punkVal, "Caption")) : "none";
  };
  EXPECT_EQ(enumeration->Skip(1), S_OK);
  ComPtr<IEnumVARIANT> copy;
  ASSERT_EQ(enumeration->Clone(copy.Receive()), S_OK);
  EXPECT_EQ(next_of(enumeration.Get()), "Number");
  EXPECT_EQ(next_of(enumeration.Get()), "none");
  EXPECT_EQ(next_of(copy.Get()), "Number");
  EXPECT_EQ(enumeration->Reset(), S_OK);
  EXPECT_EQ(next_of(enumeration.Get()), "Name");
  EXPECT_EQ(enumeration->Skip(2), S_FALSE) << "one is left";
  EXPECT_EQ(next_of(enumeration.Get()), "none");
  enumeration->Reset();
  VARIANT both[3] = {};
  ULONG fetched = 0;
  EXPECT_EQ(enumeration->Next(3, both, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 2u);
  for (VARIANT& item : both) ::VariantClear(&item);
}

TEST_F(LateBindingTest, APartIsTheSameObjectForEveryCaller) {
  const auto grid = GridWithCells();
  const CallResult columns = Get(grid.Get(), "Columns");
  EXPECT_TRUE(SameObject(columns.value.punkVal, Get(grid.Get(), "Columns").value.punkVal));
  EXPECT_TRUE(SameObject(Get(columns.value.punkVal, "Item", {2}).value.punkVal,
                         Get(grid.Get(), "Columns", {2}).value.punkVal));
}

TEST_F(LateBindingTest, MembersThatEveryControlHasAreKnownByTheContainersNumbers) {
  const auto button = MakeComponent("FlatButton");
  ASSERT_EQ(Invoke(button.Get(), DISPID_CAPTION, DISPATCH_PROPERTYPUT, {"Save"}).result, S_OK);
  EXPECT_EQ(Shown(Get(button.Get(), "Caption")), "Save");
  EXPECT_EQ(Shown(Invoke(button.Get(), DISPID_ENABLED, DISPATCH_PROPERTYGET)), "True");
  EXPECT_EQ(Invoke(button.Get(), DISPID_TEXT, DISPATCH_PROPERTYGET).result, DISP_E_MEMBERNOTFOUND);
}

}  // namespace
}  // namespace levelwidgets::activex
