// Ambient properties: what a control takes of its container, and when.
#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AmbientTest : public ComponentTest {
 protected:
  // A container whose ambient properties are set before the control is made.
  void SiteWith(const char* class_name, DISPID property, Value value) {
    object_ = MakeComponent(class_name);
    container_ = ComPtr<TestContainer>::Taking(new TestContainer(Window()));
    ambient_ = std::make_unique<Value>(value);
    container_->ambients[property] = ambient_->Get();
    As<IOleObject>(object_)->SetClientSite(container_.Get());
    As<IPersistStreamInit>(object_)->InitNew();
  }
  void TearDown() override {
    if (object_) As<IOleObject>(object_)->SetClientSite(nullptr);
    object_ = nullptr;
    container_ = nullptr;
    ambient_.reset();
    ComponentTest::TearDown();
  }

  ComPtr<IUnknown> object_;
  ComPtr<TestContainer> container_;
  std::unique_ptr<Value> ambient_;
};

TEST_F(AmbientTest, ANewControlIsCalledAsItsContainerCallsIt) {
  SiteWith("FlatButton", DISPID_AMBIENT_DISPLAYNAME, "cmdSave");
  EXPECT_EQ(Shown(Get(object_.Get(), "Caption")), "cmdSave");
}

TEST_F(AmbientTest, ANewControlHasTheContainersFontAsItsOwn) {
  FONTDESC description = {};
  wchar_t name[] = L"Tahoma";
  description.cbSizeofstruct = sizeof description;
  description.lpstrName = name;
  description.cySize.int64 = 120000;
  description.sWeight = FW_BOLD;
  ComPtr<IFontDisp> font;
  ::OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.Receive()));
  SiteWith("FlatLabel", DISPID_AMBIENT_FONT, Value(static_cast<IUnknown*>(font.Get())));
  const CallResult own = Get(object_.Get(), "Font");
  EXPECT_EQ(Shown(Get(own.value.pdispVal, "Size")), "12");
  EXPECT_EQ(Shown(Get(own.value.pdispVal, "Bold")), "True");
  EXPECT_FALSE(SameObject(own.value.pdispVal, font.Get()));
  Put(own.value.pdispVal, "Size", {9});
  EXPECT_EQ(Shown(Get(font.Get(), "Size")), "12");
}

TEST_F(AmbientTest, AContainerWithoutAmbientPropertiesHasAPaintedControl) {
  Site("FlatButton");
  EXPECT_EQ(Shown(Get(Object(), "Caption")), "");
  ASSERT_EQ(Verb(OLEIVERB_INPLACEACTIVATE), S_OK);
  ::UpdateWindow(ControlWindow());
  TestSink& sink = Listen();
  ::SendMessageW(ControlWindow(), WM_KEYDOWN, 'A', 1);
  EXPECT_THAT(sink.TakeEvents(), ElementsAre("KeyDown(65, 0)"));
}

TEST_F(AmbientTest, InDesignModeAControlHearsNoInput) {
  Embed("FlatButton");
  TestSink& sink = Listen();
  const Value design(false);
  Container().ambients[DISPID_AMBIENT_USERMODE] = Value(design).Get();
  ::SendMessageW(ControlWindow(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  ::SendMessageW(ControlWindow(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_THAT(sink.TakeEvents(), IsEmpty());
  Container().ambients.erase(DISPID_AMBIENT_USERMODE);
  ::SendMessageW(ControlWindow(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  EXPECT_THAT(sink.TakeEvents(), ElementsAre("MouseDown(1, 0, 75, 75)"));
  ::SendMessageW(ControlWindow(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
}

TEST_F(AmbientTest, AnAmbientValueOfAnotherTypeIsNone) {
  SiteWith("FlatButton", DISPID_AMBIENT_DISPLAYNAME, 12);
  EXPECT_EQ(Shown(Get(object_.Get(), "Caption")), "");
}

// The button draws its border twice as thick while it is the default one.
TEST_F(AmbientTest, TheButtonIsPaintedAnewWhenItBecomesTheDefault) {
  Embed("FlatButton");
  const auto border = [this] {
    HDC const device = ::GetDC(ControlWindow());
    const COLORREF color = ::GetPixel(device, 1, 1);
    ::ReleaseDC(ControlWindow(), device);
    return color;
  };
  Put(Object(), "ForeColor", {0x0000FF});
  const COLORREF before = border();
  Value yes(true);
  Container().ambients[DISPID_AMBIENT_DISPLAYASDEFAULT] = yes.Get();
  EXPECT_EQ(Interface<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_BACKCOLOR), S_OK);
  EXPECT_EQ(border(), before);
  EXPECT_EQ(Interface<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_DISPLAYASDEFAULT), S_OK);
  EXPECT_NE(border(), before);
  Container().ambients.clear();
  EXPECT_EQ(Interface<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
  EXPECT_EQ(border(), before);
}

}  // namespace
}  // namespace levelwidgets::activex
