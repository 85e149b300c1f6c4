// A control on a form and its component in a container, side by side: what is done to both, and what came of
// it.
#pragma once

#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/suite/driven_fixture.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/testing/driver.h>

namespace levelwidgets::activex {

// Of every type, at the ends of what types hold, and beyond.
inline Arguments TriedValues() {
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
inline bool TakesTooLong(const PropertyInfo& property, const Variant& value) {
  const bool is_count = property.name.ends_with("Count") || property.name.ends_with("Width");
  const std::int32_t* const number = std::get_if<std::int32_t>(&value.Get());
  const std::int16_t* const small = std::get_if<std::int16_t>(&value.Get());
  return is_count &&
         ((number && *number > 1000) || (small && *small > 1000) || value.Type() == VariantType::kDate);
}

// What has happened on one side since the last line: its notices and events.
using Happenings = std::vector<std::string>;

class BothSidesTest : public ComponentTest {
 protected:
  void SetUp() override {
    ComponentTest::SetUp();
    driver_ = levelwidgets::testing::RealTimeDriver();  // as components have it
  }
  void TearDown() override {
    End();
    driver_ = nullptr;
    ComponentTest::TearDown();
  }
  // One of each, of so many pixels, placed alike; what they do is recorded.
  void Begin(const ClassInfo& info, bool by_reference = false, PixelSize size = {80, 25}) {
    // Beside the container.
    form_ = Form::Create(driver_->GetPlatform(), {.left = Twips(9300), .top = Twips(1500)});
    form_->Show();
    const auto twips = [](int pixels) { return Twips(static_cast<float>(15 * pixels)); };
    const Placement place{{}, TwipSize{twips(size.width), twips(size.height)}};
    control_ = form_->Add(info, "ctl", nullptr, place).GetControl();
    Record(*control_);
    object_ = MakeComponent(info.Name());
    container_ = ComPtr<TestContainer>::Taking(new TestContainer(Window()));
    container_->position = {0, 0, size.width, size.height};
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
    by_reference_ = by_reference;
    TurnToControl();
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
    const auto expected = step(*itself_);
    const auto actual = step(*component_);
    EXPECT_EQ(actual, expected) << name;
    EXPECT_EQ(TakeOfComponent(), TakeOfControl()) << name;
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
  // Steps are done on the control on both sides, as after Begin.
  void TurnToControl() {
    itself_ = std::make_unique<DrivenObject>(*control_, driver_->GetPlatform().Conversions());
    component_ = std::make_unique<DrivenComponent>(object_.Get(), by_reference_);
  }
  // From now on steps are done on the objects that the member gives on both sides.
  void TurnTo(std::string_view member, const Arguments& arguments) {
    itself_ = itself_->Part(member, arguments);
    component_ = component_->Part(member, arguments);
    ASSERT_TRUE(itself_) << member;
    ASSERT_TRUE(component_) << member;
    Take();
  }
  const ClassInfo& TheClass() const { return itself_->Driving().Class(); }
  std::shared_ptr<Control> TheControl() { return control_; }
  IUnknown* TheComponent() { return object_.Get(); }
  int Steps() const { return steps_; }
  DesktopDriver& Driver() { return *driver_; }
  void Take() {
    TakeOfComponent();
    TakeOfControl();
  }
  Happenings TakeOfControl() { return std::exchange(happened_, {}); }
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
  std::unique_ptr<DrivenObject> itself_;
  std::unique_ptr<DrivenComponent> component_;
  bool by_reference_ = false;
  int steps_ = 0;
};

}  // namespace levelwidgets::activex
