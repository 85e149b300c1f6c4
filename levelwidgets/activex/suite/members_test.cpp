// Each member of each class, on the control itself and on its component: both do the same.
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/suite/driven_fixture.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/testing/driver.h>

namespace levelwidgets::activex {
namespace {

// Of every type, at the ends of what types hold, and beyond.
Arguments TriedValues() {
  return {true,
          false,
          std::int16_t{0},
          std::int16_t{1},
          2,
          -1,
          100,
          32767,
          32768,
          -32769,
          2147483647,
          -2147483647 - 1,
          0.5F,
          1.5,
          1e300,
          Date{45427},
          Date{1e9},
          "",
          "abc",
          "12",
          "&Save",
          "31/12/2024",
          std::string(5000, 'x'),
          "1",
          Variant(),
          Null(),
          ObjectRef(),
          MakeFont({.name = "Tahoma", .size = 12})};
}

// What takes the system minutes on both sides.
bool TakesTooLong(const PropertyInfo& property, const Variant& value) {
  const bool is_count = property.name.ends_with("Count") || property.name.ends_with("Width");
  const std::int32_t* const number = std::get_if<std::int32_t>(&value.Get());
  const std::int16_t* const small = std::get_if<std::int16_t>(&value.Get());
  return is_count &&
         ((number && *number > 1000) || (small && *small > 1000) || value.Type() == VariantType::kDate);
}

// What has happened on one side since the last line: its notices and events.
using Happenings = std::vector<std::string>;

class MembersTest : public ComponentTest {
 protected:
  void SetUp() override {
    ComponentTest::SetUp();
    driver_ = levelwidgets::testing::TestDriver();
  }
  void TearDown() override {
    End();
    driver_ = nullptr;
    ComponentTest::TearDown();
  }
  // One of each, placed alike; what they do is recorded.
  void Begin(const ClassInfo& info, bool by_reference) {
    form_ = Form::Create(driver_->GetPlatform(), {});
    form_->Show();
    const Placement place{{}, TwipSize{Twips(1200), Twips(375)}};
    control_ = form_->Add(info, "ctl", nullptr, place).GetControl();
    Record(*control_);
    object_ = MakeComponent(info.Name());
    container_ = ComPtr<TestContainer>::Taking(new TestContainer(Window()));
    Value name("ctl");
    container_->ambients[DISPID_AMBIENT_DISPLAYNAME] = name.Get();
    const auto ole = As<IOleObject>(object_);
    ole->SetClientSite(container_.Get());
    ASSERT_EQ(As<IPersistStreamInit>(object_)->InitNew(), S_OK);
    ASSERT_EQ(
        ole->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, container_.Get(), 0, Window(), &container_->position),
        S_OK);
    container_->ambients.clear();
    Record(info);
    itself_ = std::make_unique<DrivenObject>(*control_, driver_->GetPlatform().Conversions());
    component_ = std::make_unique<DrivenComponent>(object_.Get(), by_reference);
    driver_->Settle();
    Take();
  }
  void End() {
    itself_ = nullptr;
    component_ = nullptr;
    if (const auto ole = As<IOleObject>(object_)) {
      ole->Close(OLECLOSE_NOSAVE);
      ole->SetClientSite(nullptr);
    }
    sink_ = nullptr;
    object_ = nullptr;
    container_ = nullptr;
    control_ = nullptr;
    form_ = nullptr;
  }

  // Does the step on both sides; a failure names it.
  template <typename Step>
  void Both(const std::string& name, Step step) {
    const std::string expected = step(*itself_);
    const std::string actual = step(*component_);
    EXPECT_EQ(actual, expected) << name;
    EXPECT_EQ(TakeOfComponent(), std::exchange(happened_, {})) << name;
    ++steps_;
  }
  void BothRead(const PropertyInfo& property, const Arguments& indices, const std::string& name) {
    if (property.type.kind == TypeKind::kHandle) return;
    Both(name + ", read", [&](Driven& driven) { return driven.Read(property, indices); });
  }
  void TryWriting(const PropertyInfo& property, const Arguments& indices, const std::string& name) {
    for (const Variant& value : TriedValues()) {
      if (TakesTooLong(property, value)) continue;
      const std::string assigned = name + " := " + ValueLine(value);
      Both(assigned, [&](Driven& driven) { return driven.Write(property, indices, value); });
      BothRead(property, indices, assigned);
    }
  }
  std::shared_ptr<Control> TheControl() { return control_; }
  IUnknown* TheComponent() { return object_.Get(); }
  int Steps() const { return steps_; }
  DesktopDriver& Driver() { return *driver_; }
  Happenings Take() {
    TakeOfComponent();
    return std::exchange(happened_, {});
  }
  Happenings TakeOfComponent() {
    container_->TakeCalls();
    sink_->TakeEvents();
    return std::exchange(component_happened_, {});
  }

 private:
  void Record(Control& control) {
    for (const EventInfo& event : control.Class().Events()) {
      SubscribeByName(control, event.name, [this](RaisedEvent& raised) {
        std::string line(raised.info.name);
        for (const Variant& value : raised.values) line += " " + ValueLine(value);
        happened_.push_back(line);
      });
    }
    form_->PropertyChanged.Add([this](std::string_view, std::string_view property) {
      const PropertyInfo* const found = control_->Class().FindProperty(property);
      happened_.push_back("changed " + std::to_string(found ? found->number : DISPID_UNKNOWN));
    });
  }
  void Record(const ClassInfo& info) {
    sink_ = ComPtr<TestSink>::Taking(new TestSink(info.Name()));
    sink_->on_event = [this](const std::string& name, std::vector<VARIANT*>& arguments) {
      std::string line = name;
      for (const VARIANT* argument : arguments) line += " " + ValueLine(*argument);
      component_happened_.push_back(line);
      return S_OK;
    };
    container_->on_call = [this](const std::string& call) {
      if (!call.starts_with("OnChanged(")) return;
      component_happened_.push_back("changed " + call.substr(10, call.size() - 11));
    };
    const auto points = As<IConnectionPointContainer>(object_);
    const auto advise = [&](REFIID iid, IUnknown* sink) {
      ComPtr<IConnectionPoint> point;
      DWORD cookie = 0;
      points->FindConnectionPoint(iid, point.Receive());
      ASSERT_TRUE(point && SUCCEEDED(point->Advise(sink, &cookie)));
    };
    advise(IID_IDispatch, sink_.Get());
    advise(IID_IPropertyNotifySink, static_cast<IPropertyNotifySink*>(container_.Get()));
  }

  std::shared_ptr<DesktopDriver> driver_;
  std::shared_ptr<Form> form_;
  std::shared_ptr<Control> control_;
  ComPtr<IUnknown> object_;
  ComPtr<TestContainer> container_;
  ComPtr<TestSink> sink_;
  Happenings happened_;
  Happenings component_happened_;
  std::unique_ptr<Driven> itself_;
  std::unique_ptr<Driven> component_;
  int steps_ = 0;
};

TEST_F(MembersTest, EveryPropertyTakesAndRefusesOnBothSidesAlike) {
  for (const bool by_reference : {false, true}) {
    for (const ClassInfo* info : ControlClasses()) {
      Begin(*info, by_reference);
      for (const PropertyInfo& property : info->Properties()) {
        const std::string name = std::string(info->Name()) + "." + std::string(property.name);
        if (property.Indexed()) continue;
        BothRead(property, {}, name);
        if (property.type.kind != TypeKind::kHandle) TryWriting(property, {}, name);
      }
      End();
    }
  }
  EXPECT_GT(Steps(), 5000);
}

TEST_F(MembersTest, IndexedPropertiesTakeAndRefuseOnBothSidesAlike) {
  const std::vector<Arguments> tried{
      {},     {1},    {0},     {2},    {-1},     {99},      {"1"},      {"abc"},    {Null()},    {Variant()},
      {1, 1}, {2, 2}, {1, 99}, {0, 0}, {1, "2"}, {1, 1, 1}, {1.4, 1.6}, {1e300, 1}, {true, true}};
  for (const ClassInfo* info : ControlClasses()) {
    Begin(*info, false);
    for (const char* count : {"TabCount", "RowCount"}) {
      const PropertyInfo* const counted = info->FindProperty(count);
      if (counted) Both(count, [&](Driven& driven) { return driven.Write(*counted, {}, 3); });
    }
    for (const PropertyInfo& property : info->Properties()) {
      if (!property.Indexed()) continue;
      for (const Arguments& indices : tried) {
        std::string name = std::string(info->Name()) + "." + std::string(property.name);
        for (const Variant& index : indices) name += " " + ValueLine(index);
        BothRead(property, indices, name);
        TryWriting(property, indices, name);
      }
    }
    End();
  }
}

TEST_F(MembersTest, MethodsTakeAndRefuseOnBothSidesAlike) {
  const std::vector<Arguments> tried{{},
                                     {"kg"},
                                     {12},
                                     {Variant()},
                                     {Null()},
                                     {"a", "b"},
                                     {1},
                                     {0},
                                     {-1},
                                     {"abc"},
                                     {150.0, 150.0, 0},
                                     {15.0, 1e6, 0},
                                     {"x", "y", "z"},
                                     {1e300},
                                     {1, 2, 3, 4},
                                     {ObjectRef()},
                                     {std::string(5000, 'x')}};
  for (const ClassInfo* info : ControlClasses()) {
    Begin(*info, false);
    for (const MethodInfo& method : info->Methods()) {
      for (const Arguments& arguments : tried) {
        std::string name = std::string(info->Name()) + "." + std::string(method.name);
        for (const Variant& argument : arguments) name += " " + ValueLine(argument);
        Both(name, [&](Driven& driven) { return driven.Run(method, arguments); });
      }
    }
    End();
  }
}

void SendKeys(HWND window) {
  ::SendMessageW(window, WM_KEYDOWN, VK_F7, 1);
  ::SendMessageW(window, WM_CHAR, L'a', 1);
  ::SendMessageW(window, WM_KEYUP, VK_F7, 1);
}

TEST_F(MembersTest, InputRaisesTheSameEventsOnBothSides) {
  for (const ClassInfo* info : ControlClasses()) {
    Begin(*info, false);
    const auto native = [](WindowHandle window) {
      return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window.value));
    };
    HWND placed = nullptr;
    As<IOleInPlaceObject>(TheComponent())->GetWindow(&placed);
    const auto input = [&](HWND window) {
      // Not a move: the pointer is over one of them at most.
      for (const UINT message : std::initializer_list<UINT>{WM_RBUTTONDOWN, WM_RBUTTONUP}) {
        ::SendMessageW(window, message, 0, MAKELPARAM(6, 7));
      }
      SendKeys(window);
      const auto to_part = [](HWND part, LPARAM) -> BOOL {
        SendKeys(part);
        return TRUE;
      };
      ::EnumChildWindows(window, to_part, 0);
      Driver().Settle();
    };
    input(native(TheControl()->GetSurface().hWnd()));
    input(placed);
    Happenings actual = TakeOfComponent();
    Happenings expected = Take();
    // One of them has the focus, and what it notices with that.
    for (Happenings* each : {&actual, &expected})
      std::erase_if(*each, [](const std::string& line) { return line.starts_with("changed "); });
    EXPECT_EQ(actual, expected) << info->Name();
    EXPECT_FALSE(expected.empty()) << info->Name();
    End();
  }
}

}  // namespace
}  // namespace levelwidgets::activex
