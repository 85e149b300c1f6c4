// Events and notices of changes: who hears them, what they may do.
#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ComponentEventsTest : public ComponentTest {
 protected:
  ComPtr<IConnectionPoint> Point(REFIID iid) {
    ComPtr<IConnectionPoint> point;
    Interface<IConnectionPointContainer>()->FindConnectionPoint(iid, point.Receive());
    return point;
  }
  void Key(WPARAM code) {
    ::SendMessageW(ControlWindow(), WM_CHAR, code, 1);
    Settle();
  }
  void Press() {
    ::SendMessageW(ControlWindow(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    ::SendMessageW(ControlWindow(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  }
};

TEST_F(ComponentEventsTest, AByReferenceArgumentComesBackFromTheSink) {
  Embed("FlatTextBox");
  Verb(OLEIVERB_UIACTIVATE);
  TestSink& sink = Listen();
  sink.on_event = [](const std::string& name, std::vector<VARIANT*>& arguments) {
    if (name != "KeyPress") return S_OK;
    EXPECT_EQ(arguments[0]->vt, VT_BYREF | VT_I2);
    *arguments[0]->piVal = 'z';
    return S_OK;
  };
  ::SendMessageW(::GetFocus(), WM_CHAR, 'a', 1);
  EXPECT_EQ(Shown(Get(Object(), "Text")), "z");
}

TEST_F(ComponentEventsTest, ASecondSinkSeesWhatTheFirstHasWritten) {
  Embed("FlatTextBox");
  Verb(OLEIVERB_UIACTIVATE);
  TestSink& first = Listen();
  first.on_event = [](const std::string& name, std::vector<VARIANT*>& arguments) {
    if (name == "KeyPress") *arguments[0]->piVal = 'z';
    return S_OK;
  };
  const auto second = ComPtr<TestSink>::Taking(new TestSink("FlatTextBox"));
  DWORD cookie = 0;
  ASSERT_EQ(Point(IID_IDispatch)->Advise(second.Get(), &cookie), S_OK);
  ::SendMessageW(::GetFocus(), WM_CHAR, 'a', 1);
  EXPECT_THAT(second->TakeEvents(), ::testing::Contains("KeyPress(122)"));
  EXPECT_EQ(Point(IID_IDispatch)->Unadvise(cookie), S_OK);
  ::SendMessageW(::GetFocus(), WM_CHAR, 'b', 1);
  EXPECT_THAT(second->TakeEvents(), IsEmpty());
  EXPECT_EQ(Point(IID_IDispatch)->Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST_F(ComponentEventsTest, AnErrorOfASinkEndsNothing) {
  Embed("FlatButton");
  TestSink& sink = Listen();
  sink.on_event = [](const std::string&, std::vector<VARIANT*>&) { return E_FAIL; };
  Press();
  EXPECT_THAT(sink.TakeEvents(), ElementsAre("MouseDown(1, 0, 75, 75)", "MouseUp(1, 0, 75, 75)", "Click()"));
}

TEST_F(ComponentEventsTest, FrozenEventsAreLostUntilTheLastThaw) {
  Embed("FlatButton");
  TestSink& sink = Listen();
  const auto control = Interface<IOleControl>();
  control->FreezeEvents(TRUE);
  control->FreezeEvents(TRUE);
  control->FreezeEvents(FALSE);
  Press();
  EXPECT_THAT(sink.TakeEvents(), IsEmpty());
  control->FreezeEvents(FALSE);
  control->FreezeEvents(FALSE);
  Press();
  EXPECT_EQ(sink.TakeEvents().size(), 3u);
}

TEST_F(ComponentEventsTest, AChangedPropertyIsReportedByItsNumber) {
  Embed("FlatLabel");
  ListenToChanges();
  Put(Object(), "Caption", {"Name:"});
  EXPECT_THAT(Container().TakeCalls(),
              ElementsAre("OnChanged(" + std::to_string(IdOf(Object(), "Caption")) + ")"));
  Close();
  Embed("FlatTabStrip");
  ListenToChanges();
  Put(Object(), "TabCaption", {1, "First"});
  EXPECT_THAT(Container().TakeCalls(),
              ElementsAre("OnChanged(" + std::to_string(IdOf(Object(), "TabCaption")) + ")"));
}

TEST_F(ComponentEventsTest, NobodyHearsOfChangesWhileAControlIsLoaded) {
  Site("FlatLabel");
  Put(Object(), "Caption", {"Name:"});
  ComPtr<IStream> stream;
  ::CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive());
  ASSERT_EQ(Interface<IPersistStreamInit>()->Save(stream.Get(), FALSE), S_OK);
  EXPECT_EQ(Interface<IPersistStreamInit>()->IsDirty(), S_OK);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  ListenToChanges();
  EXPECT_EQ(Interface<IPersistStreamInit>()->Load(stream.Get()), S_OK);
  EXPECT_THAT(Container().TakeCalls(), IsEmpty());
  EXPECT_EQ(Interface<IPersistStreamInit>()->IsDirty(), S_FALSE);
}

TEST_F(ComponentEventsTest, EventsGoOnAfterAnotherLoading) {
  Embed("FlatButton");
  TestSink& sink = Listen();
  ASSERT_EQ(Interface<IPersistStreamInit>()->InitNew(), S_OK);
  Press();
  EXPECT_EQ(sink.TakeEvents().size(), 3u);
}

TEST_F(ComponentEventsTest, ThereAreTwoConnectionPointsAndNoOther) {
  Site("FlatButton");
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(Interface<IConnectionPointContainer>()->EnumConnectionPoints(points.Receive()), S_OK);
  IConnectionPoint* found[3] = {};
  ULONG count = 0;
  EXPECT_EQ(points->Next(3, found, &count), S_FALSE);
  ASSERT_EQ(count, 2u);
  IID iid = {};
  found[0]->GetConnectionInterface(&iid);
  EXPECT_EQ(FromNative(iid), IdentityOf("FlatButton")->events_id);
  found[1]->GetConnectionInterface(&iid);
  EXPECT_TRUE(::IsEqualIID(iid, IID_IPropertyNotifySink));
  ComPtr<IConnectionPointContainer> container;
  EXPECT_EQ(found[0]->GetConnectionPointContainer(container.Receive()), S_OK);
  EXPECT_TRUE(SameObject(container.Get(), Object()));
  for (ULONG i = 0; i < count; ++i) found[i]->Release();
  EXPECT_FALSE(Point(IID_IOleObject));
  DWORD cookie = 0;
  EXPECT_EQ(Point(IID_IPropertyNotifySink)->Advise(nullptr, &cookie), E_POINTER);
  const auto sink = ComPtr<TestSink>::Taking(new TestSink("FlatButton"));
  EXPECT_EQ(Point(IID_IPropertyNotifySink)->Advise(sink.Get(), &cookie), CONNECT_E_CANNOTCONNECT);
}

TEST_F(ComponentEventsTest, TheConnectionsOfAPointCanBeListed) {
  Site("FlatButton");
  TestSink& sink = Listen();
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(Point(IID_IDispatch)->EnumConnections(connections.Receive()), S_OK);
  CONNECTDATA data = {};
  ULONG count = 0;
  ASSERT_EQ(connections->Next(1, &data, &count), S_OK);
  EXPECT_TRUE(SameObject(data.pUnk, &sink));
  data.pUnk->Release();
  EXPECT_EQ(connections->Next(1, &data, &count), S_FALSE);
}

// --- Sinks and containers that do anything -------------------------------------------------------

class DeedsTest : public ComponentEventsTest {
 protected:
  // What a sink may do inside an event.
  std::vector<std::pair<std::string, std::function<void()>>> Deeds() {
    return {{"closes the control",
             [this] {
               if (const auto o = Interface<IOleObject>()) o->Close(OLECLOSE_NOSAVE);
             }},
            {"takes its site away", [this] { Interface<IOleObject>()->SetClientSite(nullptr); }},
            {"deactivates it", [this] { Interface<IOleInPlaceObject>()->InPlaceDeactivate(); }},
            {"hides it", [this] { Verb(OLEIVERB_HIDE); }},
            {"loads it anew", [this] { Interface<IPersistStreamInit>()->InitNew(); }},
            {"disables it", [this] { Put(Object(), "Enabled", {false}); }},
            {"moves the focus", [this] { ::SetFocus(Window()); }},
            {"ends its own connection", [this] { EndListening(); }},
            {"releases it", [this] { Close(); }},
            {"destroys the container's window", [this] { ::DestroyWindow(Window()); }}};
  }
  void EndListening() {
    const auto point = Point(IID_IDispatch);
    for (DWORD cookie = 1; point && cookie < 4; ++cookie) point->Unadvise(cookie);
  }
  // Something of everything that raises events.
  void Use(HWND window) {
    ::SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    ::SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    ::SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    ::SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    ::SendMessageW(window, WM_KEYDOWN, VK_DOWN, 1);
    ::SendMessageW(window, WM_CHAR, '5', 1);
    ::SendMessageW(window, WM_KEYUP, VK_DOWN, 1);
    Settle();
  }
};

TEST_F(DeedsTest, ASinkMayDoAnythingInsideEveryEventOfEveryClass) {
  for (const char* name : {"FlatButton", "FlatLabel", "FlatScroll", "FlatTabStrip", "FlatTextBox",
                           "FlatDropDown", "FlatCalculator", "FlatCalendar", "FlatGrid"}) {
    const std::size_t deeds = Deeds().size();
    for (std::size_t deed = 0; deed < deeds; ++deed) {
      for (const int time : {0, 2}) {
        SCOPED_TRACE(std::string(name) + " " + Deeds()[deed].first + " at event " + std::to_string(time));
        Embed(name);
        Verb(OLEIVERB_UIACTIVATE);
        Settle();
        HWND const window = ::GetFocus() ? ::GetFocus() : ControlWindow();
        int left = time;
        bool done = false;
        Listen().on_event = [&](const std::string&, std::vector<VARIANT*>&) {
          if (done || left-- > 0) return S_OK;
          done = true;
          Deeds()[deed].second();
          return S_OK;
        };
        Use(window);
        Close();
        RenewWindow();
      }
    }
  }
}

TEST_F(DeedsTest, AContainerMayDoAnythingInsideEveryCallOfAnActivation) {
  for (const char* call :
       {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext", "ShowObject",
        "OnUIActivate", "SetActiveObject(object)", "SetBorderSpace", "OnFocus(1)"}) {
    const std::size_t deeds = Deeds().size();
    for (std::size_t deed = 0; deed < deeds; ++deed) {
      SCOPED_TRACE(Deeds()[deed].first + " inside " + call);
      Site("FlatTextBox");
      bool done = false;
      Container().on_call = [&](const std::string& made) {
        if (done || made != call) return;
        done = true;
        Deeds()[deed].second();
      };
      Verb(OLEIVERB_UIACTIVATE);
      Settle();
      EXPECT_TRUE(done);
      Close();
      RenewWindow();
    }
  }
}

TEST_F(DeedsTest, AContainerThatAnswersEverythingWithErrorsHasAControlThatAnswers) {
  for (const char* name : {"FlatButton", "FlatGrid"}) {
    Site(name);
    for (const char* call :
         {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext", "ShowObject",
          "OnUIActivate", "SetActiveObject(object)", "SetBorderSpace", "OnFocus(1)", "OnFocus(0)",
          "OnUIDeactivate", "OnInPlaceDeactivate", "OnControlInfoChanged", "SaveObject"}) {
      Container().answers[call] = E_UNEXPECTED;
    }
    EXPECT_TRUE(FAILED(Verb(OLEIVERB_UIACTIVATE)));
    EXPECT_EQ(Put(Object(), "Enabled", {false}).result, S_OK);
    Container().answers.erase("CanInPlaceActivate");
    Container().answers.erase("OnInPlaceActivate");
    Container().answers.erase("GetWindow");
    Container().answers.erase("GetWindowContext");
    EXPECT_EQ(Put(Object(), "Enabled", {true}).result, S_OK);
    EXPECT_EQ(Verb(OLEIVERB_UIACTIVATE), S_OK);
    Use(ControlWindow());
    EXPECT_EQ(Interface<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    Close();
  }
}

}  // namespace
}  // namespace levelwidgets::activex
