// Callers that pass nothing, too much, or never stop.
#include <levelwidgets/activex/suite/interface_calls_fixture.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/platform/win32/object_count.h>
#include <levelwidgets/testing/rounds.h>

namespace levelwidgets::activex {
namespace {

using ::testing::IsEmpty;

using ComponentFaultsTest = ComponentTest;

std::vector<std::string> ComponentClassNames() {
  std::vector<std::string> names;
  for (const ClassInfo* info : ControlClasses()) names.emplace_back(info->Name());
  for (const ClassInfo* info : ObjectClasses()) {
    if (info->Creatable()) names.emplace_back(info->Name());
  }
  return names;
}

TEST_F(ComponentFaultsTest, NullPointersAreRefusedByEveryMethodOfEveryInterface) {
  for (const ClassInfo* info : ControlClasses()) {
    Embed(std::string(info->Name()).c_str());
    std::vector<std::string> not_refused;
    for (const InterfaceCall& call : InterfaceCalls(Object())) {
      const HRESULT result = call.with_nulls();
      if (result != E_POINTER && result != E_INVALIDARG) {
        not_refused.push_back(call.name + " answers " + std::to_string(result));
      }
    }
    EXPECT_THAT(not_refused, IsEmpty()) << info->Name();
    Close();
  }
}

TEST_F(ComponentFaultsTest, EnumerationsRefuseNullPointers) {
  Embed("FlatGrid");
  const CallResult columns = Get(Object(), "Columns");
  const CallResult items = Invoke(columns.value.pdispVal, DISPID_NEWENUM, DISPATCH_PROPERTYGET);
  const auto enumeration = As<IEnumVARIANT>(items.value.punkVal);
  EXPECT_EQ(enumeration->Next(1, nullptr, nullptr), E_POINTER);
  VARIANT two[2] = {};
  EXPECT_EQ(enumeration->Next(2, two, nullptr), E_POINTER);
  EXPECT_EQ(enumeration->Clone(nullptr), E_POINTER);
  ComPtr<IEnumConnectionPoints> points;
  Interface<IConnectionPointContainer>()->EnumConnectionPoints(points.Receive());
  EXPECT_EQ(points->Next(1, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(points->Clone(nullptr), E_POINTER);
}

TEST_F(ComponentFaultsTest, CountsAreBackAfterAThousandCreationsOfEachClass) {
  for (const std::string& name : ComponentClassNames()) {
    std::size_t objects = 0;
    {
      // What all of a thread have in common is made once.
      const auto other = MakeComponent("ksxValueListItem");
      for (int round = 0; round < 1000; ++round) {
        {
          const auto made = MakeComponent(name);
          ASSERT_TRUE(made) << name;
          if (round % 50 == 0) Get(made.Get(), "Font");  // which makes its window
        }
        // What the system keeps for the class, it has made by now.
        if (round == 100) objects = win32::CountDrawingObjects();
      }
      EXPECT_LE(win32::CountDrawingObjects(), objects) << name;
    }
    EXPECT_EQ(CanUnload(), S_OK) << name;
  }
}

TEST_F(ComponentFaultsTest, CountsAreBackAfterActivationsOfEachClass) {
  for (const ClassInfo* info : ControlClasses()) {
    const std::string name(info->Name());
    std::size_t objects = 0;
    for (int round = 0; round < 12; ++round) {
      Embed(name.c_str());
      Close();
      Settle();
      if (round == 3) objects = win32::CountDrawingObjects();
    }
    EXPECT_EQ(CanUnload(), S_OK) << name;
    EXPECT_LE(win32::CountDrawingObjects(), objects) << name;
  }
}

TEST_F(ComponentFaultsTest, AFontThatACallerAssignsIsLetGo) {
  FONTDESC description = {};
  description.cbSizeofstruct = sizeof description;
  wchar_t name[] = L"Tahoma";
  description.lpstrName = name;
  description.cySize.int64 = 120000;
  ComPtr<IUnknown> font;
  ASSERT_EQ(::OleCreateFontIndirect(&description, IID_IUnknown, reinterpret_cast<void**>(font.Receive())),
            S_OK);
  for (const char* property : {"Font", "Caption"}) {
    const auto label = MakeComponent("FlatLabel");
    Put(label.Get(), property, {font.Get()});
  }
  EXPECT_EQ(CanUnload(), S_OK) << "the font is still heard";
}

// Of controls that draw their text; the system's edit box takes minutes for it here.
TEST_F(ComponentFaultsTest, ATextOfSixteenMegabytesIsTaken) {
  constexpr UINT kCharacters = (16u << 20) / sizeof(wchar_t);
  for (const char* name : {"FlatButton", "FlatLabel"}) {
    Embed(name);
    Value huge;
    huge.Get().vt = VT_BSTR;
    huge.Get().bstrVal = ::SysAllocStringLen(nullptr, kCharacters);
    std::fill_n(huge.Get().bstrVal, kCharacters, L'x');
    EXPECT_EQ(Put(Object(), "Caption", {huge.Get()}).result, S_OK) << name;
    {
      const CallResult read = Get(Object(), "Caption");
      ASSERT_EQ(read.value.vt, VT_BSTR) << name;
      EXPECT_EQ(::SysStringLen(read.value.bstrVal), kCharacters) << name;
    }
    EXPECT_EQ(Put(Object(), "Caption", {"Save"}).result, S_OK) << name;
    Close();
  }
}

TEST_F(ComponentFaultsTest, TheLibraryHasAtMostFourMegabytes) {
  WIN32_FILE_ATTRIBUTE_DATA file = {};
  ASSERT_TRUE(::GetFileAttributesExW(ComponentModulePath().c_str(), GetFileExInfoStandard, &file));
  EXPECT_EQ(file.nFileSizeHigh, 0u);
  EXPECT_LE(file.nFileSizeLow, 4u << 20);
}

}  // namespace
}  // namespace levelwidgets::activex
