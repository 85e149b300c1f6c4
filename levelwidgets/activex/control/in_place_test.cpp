// A control in its container's window: what the container is asked, in order.
#include <levelwidgets/activex/testing/component_fixture.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/platform/win32/win32_text.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;
using ::testing::IsSupersetOf;

using InPlaceTest = ComponentTest;

TEST_F(InPlaceTest, ActivationAsksTheContainerInOrderAndShowsTheControlWhereItSays) {
  Site("FlatButton");
  Container().position = {20, 30, 120, 60};
  ASSERT_EQ(Verb(OLEIVERB_INPLACEACTIVATE), S_OK);
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                                   "GetWindowContext", "ShowObject"));
  HWND const window = ControlWindow();
  EXPECT_EQ(::GetParent(window), Window());
  EXPECT_TRUE(::IsWindowVisible(window));
  RECT place = {};
  ::GetWindowRect(window, &place);
  ::MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
  const RECT expected = {20, 30, 120, 60};
  EXPECT_TRUE(::EqualRect(&place, &expected));
}

TEST_F(InPlaceTest, WhatTheContainerRefusesLeavesTheControlOutside) {
  for (const char* refused : {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext"}) {
    Site("FlatButton");
    Container().answers[refused] = E_FAIL;
    EXPECT_EQ(Verb(OLEIVERB_INPLACEACTIVATE), E_FAIL) << refused;
    EXPECT_EQ(ControlWindow(), nullptr) << refused;
    // One that has heard of an activation hears of its end.
    const bool activated = std::string_view(refused).starts_with("GetWindow");
    EXPECT_EQ(Container().TakeCalls().back() == "OnInPlaceDeactivate", activated) << refused;
    Container().answers.clear();
    EXPECT_EQ(Verb(OLEIVERB_INPLACEACTIVATE), S_OK) << refused;
    Close();
  }
}

TEST_F(InPlaceTest, AContainerWhoseWindowHasGoneIsRefused) {
  Site("FlatButton");
  ::DestroyWindow(Window());
  EXPECT_EQ(Verb(OLEIVERB_INPLACEACTIVATE), E_UNEXPECTED);
  EXPECT_EQ(ControlWindow(), nullptr);
  EXPECT_EQ(Container().TakeCalls().back(), "OnInPlaceDeactivate");
  Close();
  RenewWindow();
}

TEST_F(InPlaceTest, DeactivationTellsTheContainerOnceTheWindowHasGone) {
  Embed("FlatButton");
  HWND const window = ControlWindow();
  HWND parent_then = Window();
  Container().on_call = [&](const std::string&) { parent_then = ::GetParent(window); };
  EXPECT_EQ(Interface<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("OnInPlaceDeactivate"));
  EXPECT_NE(parent_then, Window());
  EXPECT_FALSE(::IsWindowVisible(window));
}

TEST_F(InPlaceTest, AUserInterfaceComesAndGoesWithItsContainer) {
  Embed("FlatTextBox");
  ASSERT_EQ(Verb(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_THAT(Container().TakeCalls(),
              ElementsAre("OnUIActivate", "SetActiveObject(object)", "SetBorderSpace", "OnFocus(1)"));
  EXPECT_TRUE(::IsChild(Window(), ::GetFocus()));
  EXPECT_EQ(Interface<IOleInPlaceObject>()->UIDeactivate(), S_OK);
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("SetActiveObject(none)", "OnUIDeactivate"));
}

TEST_F(InPlaceTest, ADocumentInAFrameHearsOfTheActiveControlAsTheFrameDoes) {
  Site("FlatTextBox");
  Container().has_document = true;
  ASSERT_EQ(Verb(OLEIVERB_UIACTIVATE), S_OK);
  Settle();
  EXPECT_THAT(Container().TakeCalls(), IsSupersetOf({"SetActiveObject(object)", "SetActiveObject(object)"}));
  EXPECT_EQ(Interface<IOleInPlaceObject>()->UIDeactivate(), S_OK);
  EXPECT_THAT(Container().TakeCalls(),
              ElementsAre("SetActiveObject(none)", "SetActiveObject(none)", "OnUIDeactivate"));
}

TEST_F(InPlaceTest, AnActiveControlThatIsHiddenIsNotActiveAnyMore) {
  Embed("FlatTextBox");
  Verb(OLEIVERB_UIACTIVATE);
  Container().TakeCalls();
  EXPECT_EQ(Verb(OLEIVERB_HIDE), S_OK);
  EXPECT_THAT(Container().TakeCalls(), IsSupersetOf({"SetActiveObject(none)", "OnUIDeactivate"}));
}

TEST_F(InPlaceTest, AnEmptyClippingRectangleClipsNothing) {
  Embed("FlatButton");
  const RECT place = {10, 10, 90, 40};
  const RECT part = {10, 10, 50, 40};
  const RECT none = {};
  RECT seen = {};
  Interface<IOleInPlaceObject>()->SetObjectRects(&place, &part);
  EXPECT_EQ(::GetWindowRgnBox(ControlWindow(), &seen), SIMPLEREGION);
  Interface<IOleInPlaceObject>()->SetObjectRects(&place, &none);
  EXPECT_EQ(::GetWindowRgnBox(ControlWindow(), &seen), ERROR) << "it has no region";
}

TEST_F(InPlaceTest, AHiddenControlIsInPlaceAndCannotBeSeen) {
  Embed("FlatLabel");
  HWND const window = ControlWindow();
  EXPECT_EQ(Verb(OLEIVERB_HIDE), S_OK);
  EXPECT_FALSE(::IsWindowVisible(window));
  EXPECT_EQ(::GetParent(window), Window());
  EXPECT_EQ(Verb(OLEIVERB_SHOW), S_OK);
  EXPECT_TRUE(::IsWindowVisible(window));
}

TEST_F(InPlaceTest, EveryClassCanBeEmbeddedAndClosed) {
  for (const char* name : {"FlatButton", "FlatLabel", "FlatScroll", "FlatTabStrip", "FlatTextBox",
                           "FlatDropDown", "FlatCalculator", "FlatCalendar", "FlatGrid"}) {
    Embed(name);
    EXPECT_TRUE(::IsWindowVisible(ControlWindow())) << name;
    Close();
  }
}

TEST_F(InPlaceTest, AClickComesToTheContainersSink) {
  Embed("FlatButton");
  TestSink& sink = Listen();
  HWND const window = ControlWindow();
  ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
  ::SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
  EXPECT_THAT(sink.TakeEvents(),
              ElementsAre("MouseDown(1, 0, 150, 150)", "MouseUp(1, 0, 150, 150)", "Click()"));
}

TEST_F(InPlaceTest, TheFocusGoesFromOneControlOfAWindowToAnother) {
  Embed("FlatTextBox");
  Verb(OLEIVERB_UIACTIVATE);
  Container().TakeCalls();
  const auto other = MakeComponent("FlatTextBox");
  const auto site = ComPtr<TestContainer>::Taking(new TestContainer(Window()));
  site->position = {100, 0, 180, 25};
  As<IOleObject>(other)->SetClientSite(site.Get());
  As<IPersistStreamInit>(other)->InitNew();
  As<IOleObject>(other)->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
  site->TakeCalls();
  // As containers have one control whose user interface is active.
  site->on_call = [this](const std::string& call) {
    if (call == "OnUIActivate") Interface<IOleInPlaceObject>()->UIDeactivate();
  };
  HWND window = nullptr;
  As<IOleInPlaceObject>(other)->GetWindow(&window);
  ::SetFocus(window);
  Settle();
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("OnFocus(0)", "SetActiveObject(none)", "OnUIDeactivate"));
  EXPECT_THAT(site->TakeCalls(),
              ElementsAre("OnUIActivate", "SetActiveObject(object)", "SetBorderSpace", "OnFocus(1)"));
  EXPECT_TRUE(::IsChild(window, ::GetFocus()));
  As<IOleObject>(other)->Close(OLECLOSE_NOSAVE);
  As<IOleObject>(other)->SetClientSite(nullptr);
}

TEST_F(InPlaceTest, WhatTheContainerDoesNotShowOfAControlIsClipped) {
  Embed("FlatButton");
  const RECT position = {20, 20, 120, 60};
  const RECT clip = {50, 0, 500, 40};
  ASSERT_EQ(Interface<IOleInPlaceObject>()->SetObjectRects(&position, &clip), S_OK);
  RECT seen = {};
  EXPECT_EQ(::GetWindowRgnBox(ControlWindow(), &seen), SIMPLEREGION);
  const RECT expected = {30, 0, 100, 20};
  EXPECT_TRUE(::EqualRect(&seen, &expected));
  const RECT all = {0, 0, 500, 500};
  Interface<IOleInPlaceObject>()->SetObjectRects(&position, &all);
  EXPECT_EQ(::GetWindowRgnBox(ControlWindow(), &seen), ERROR);
  EXPECT_EQ(Interface<IOleInPlaceObject>()->SetObjectRects(nullptr, &clip), E_POINTER);
}

TEST_F(InPlaceTest, ALoadedControlStaysWhereTheFormerWas) {
  Embed("FlatLabel");
  const RECT position = {20, 30, 120, 60};
  Interface<IOleInPlaceObject>()->SetObjectRects(&position, &position);
  HWND const former = ControlWindow();
  ASSERT_EQ(Interface<IPersistStreamInit>()->InitNew(), S_OK);
  HWND const now = ControlWindow();
  EXPECT_FALSE(::IsWindow(former));
  EXPECT_EQ(::GetParent(now), Window());
  EXPECT_TRUE(::IsWindowVisible(now));
  RECT place = {};
  ::GetWindowRect(now, &place);
  ::MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
  EXPECT_TRUE(::EqualRect(&place, &position));
}

TEST_F(InPlaceTest, AControlLivesOnWhenItsContainersWindowHasGone) {
  Embed("FlatLabel");
  Put(Object(), "Caption", {"Name:"});
  ::DestroyWindow(Window());
  EXPECT_EQ(Shown(Get(Object(), "Caption")), "Name:");
  Interface<IOleInPlaceObject>()->InPlaceDeactivate();
  RenewWindow();
  Interface<IOleObject>()->SetClientSite(nullptr);
  const auto site = ComPtr<TestContainer>::Taking(new TestContainer(Window()));
  Interface<IOleObject>()->SetClientSite(site.Get());
  EXPECT_EQ(Interface<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
  EXPECT_TRUE(::IsWindowVisible(ControlWindow()));
  EXPECT_EQ(Shown(Get(Object(), "Caption")), "Name:");
}

// Number, name, flags of its menu item, attributes.
std::vector<std::string> VerbsOf(IEnumOLEVERB& verbs) {
  std::vector<std::string> found;
  OLEVERB verb;
  while (verbs.Next(1, &verb, nullptr) == S_OK) {
    found.push_back(std::to_string(verb.lVerb) + " " + win32::FromWide(verb.lpszVerbName) + " " +
                    std::to_string(verb.fuFlags) + " " + std::to_string(verb.grfAttribs));
    ::CoTaskMemFree(verb.lpszVerbName);
  }
  return found;
}

TEST_F(InPlaceTest, AMenuOfTheContainerFindsTheVerbsWithoutARegistration) {
  const auto edit = "0 &Edit 0 2";
  const auto properties = "1 &Properties... 0 2";
  for (const ClassInfo* info : ControlClasses()) {
    const std::string name(info->Name());
    Embed(name.c_str());
    ComPtr<IEnumOLEVERB> verbs;
    ASSERT_EQ(Interface<IOleObject>()->EnumVerbs(verbs.Receive()), S_OK) << name;
    EXPECT_THAT(VerbsOf(*verbs.Get()), ElementsAre(edit, properties)) << name;
    EXPECT_THAT(VerbsOf(*verbs.Get()), ::testing::IsEmpty()) << name;
    verbs->Reset();
    EXPECT_EQ(verbs->Skip(1), S_OK);
    ComPtr<IEnumOLEVERB> copy;
    ASSERT_EQ(verbs->Clone(copy.Receive()), S_OK);
    verbs = {};
    EXPECT_THAT(VerbsOf(*copy.Get()), ElementsAre(properties)) << name;
    Close();
  }
}

TEST_F(InPlaceTest, AnEnumerationGivesWhatIsLeftWhenAskedForMore) {
  Embed("FlatLabel");
  ComPtr<IEnumOLEVERB> verbs;
  Interface<IOleObject>()->EnumVerbs(verbs.Receive());
  OLEVERB three[3] = {};
  ULONG fetched = 9;
  EXPECT_EQ(verbs->Next(3, three, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 2u);
  EXPECT_EQ(three[1].lVerb, 1);
  for (const OLEVERB& verb : three) ::CoTaskMemFree(verb.lpszVerbName);
  EXPECT_EQ(verbs->Next(1, three, &fetched), S_FALSE);
  EXPECT_EQ(fetched, 0u);
  fetched = 9;
  EXPECT_EQ(verbs->Next(1, nullptr, &fetched), E_POINTER);
  EXPECT_EQ(fetched, 0u);
  verbs->Reset();
  EXPECT_EQ(verbs->Skip(3), S_FALSE);
  EXPECT_EQ(verbs->Next(1, three, &fetched), S_FALSE);
}

TEST_F(InPlaceTest, TheVerbToEditShowsTheControl) {
  Site("FlatLabel");
  EXPECT_EQ(Verb(0), S_OK);
  EXPECT_TRUE(::IsWindowVisible(ControlWindow()));
}

TEST_F(InPlaceTest, TheVerbForPropertiesAsksTheContainerForItsFrame) {
  Embed("FlatLabel");
  Container().answers["ShowPropertyFrame"] = S_OK;
  for (const LONG verb : {LONG{1}, LONG{OLEIVERB_PROPERTIES}}) {
    Container().TakeCalls();
    EXPECT_EQ(Verb(verb), S_OK);
    EXPECT_THAT(Container().TakeCalls(), ElementsAre("ShowPropertyFrame")) << verb;
  }
}

TEST_F(InPlaceTest, VerbsThatThereAreNoneOfSaySo) {
  Embed("FlatLabel");
  EXPECT_EQ(Verb(OLEIVERB_OPEN), E_NOTIMPL);
  EXPECT_EQ(Verb(-99), E_NOTIMPL);
  EXPECT_EQ(Verb(99), OLEOBJ_S_INVALIDVERB);
  Site("FlatLabel");
  Interface<IOleObject>()->SetClientSite(nullptr);
  EXPECT_EQ(Verb(OLEIVERB_SHOW), OLEOBJ_E_INVALIDVERB);
}

TEST_F(InPlaceTest, ClosingSavesWhatHasChangedWhenAskedTo) {
  Embed("FlatLabel");
  Put(Object(), "Caption", {"Name:"});
  Container().TakeCalls();
  EXPECT_EQ(Interface<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("SaveObject", "OnInPlaceDeactivate"));
  Interface<IPersistStreamInit>()->InitNew();
  Interface<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY);
  EXPECT_THAT(Container().TakeCalls(), ::testing::IsEmpty());
}

TEST_F(InPlaceTest, AControlThatIsReplacedInsideItsOwnEventCannotBeSeenAnyMore) {
  Embed("FlatButton");
  HWND const former = ControlWindow();
  bool seen = true;
  Listen().on_event = [&](const std::string& name, std::vector<VARIANT*>&) {
    if (name != "MouseDown") return S_OK;
    Interface<IPersistStreamInit>()->InitNew();
    seen = ::IsWindowVisible(former) != FALSE;
    return S_OK;
  };
  ::SendMessageW(former, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  EXPECT_FALSE(seen);
  EXPECT_TRUE(::IsWindowVisible(ControlWindow()));
}

TEST_F(InPlaceTest, AFocusThatTheWindowAroundGivesBackAtOnceHasNeverLeftTheControl) {
  Embed("FlatTextBox");
  Verb(OLEIVERB_UIACTIVATE);
  Settle();
  Container().TakeCalls();
  HWND const edit = ::GetFocus();
  ::SetFocus(Window());
  ::SetFocus(edit);
  Settle();
  EXPECT_THAT(Container().TakeCalls(), ::testing::IsEmpty());
  ::SetFocus(Window());
  EXPECT_THAT(Container().TakeCalls(), ::testing::IsEmpty());
  Settle();
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("OnFocus(0)"));
}

TEST_F(InPlaceTest, AControlThatGoesBeforeTheFocusHasSettledIsAskedForNothing) {
  Embed("FlatTextBox");
  Verb(OLEIVERB_UIACTIVATE);
  ::SetFocus(Window());
  Close();
  Settle();
}

TEST_F(InPlaceTest, AnItemThatIsClickedInAListIsTheOneThatIsChosen) {
  Embed("FlatDropDown");
  for (const char* item : {"one", "two", "three"}) Call(Object(), "AddItem", {item});
  Verb(OLEIVERB_UIACTIVATE);
  ::SendMessageW(::GetFocus(), WM_KEYDOWN, VK_F4, 1);
  Settle();
  HWND const panel = ::GetActiveWindow();
  ASSERT_NE(panel, Window());
  RECT area = {};
  ::GetClientRect(panel, &area);
  const LPARAM second = MAKELPARAM(10, area.bottom / 2);
  ::SendMessageW(panel, WM_MOUSEMOVE, 0, second);
  ::SendMessageW(panel, WM_LBUTTONDOWN, MK_LBUTTON, second);
  ::SendMessageW(panel, WM_LBUTTONUP, 0, second);
  Settle();
  EXPECT_EQ(Shown(Get(Object(), "Text")), "two");
}

}  // namespace
}  // namespace levelwidgets::activex
