// The window of property pages: listeners that do anything at any event of any of its controls.
#include <levelwidgets/host/property_frame/property_frame_fixture.h>

#include <array>
#include <functional>

namespace levelwidgets::testing {
namespace {

enum class FrameDeed {
  kRemove,
  kClose,
  kGiveUp,
  kHide,
  kDisable,
  kMoveFocus,
  kRaise,
  kRemoveTarget,
  kCloseAll
};

class FrameInterferenceTest : public PropertyFrameTest, public ::testing::WithParamInterface<FrameDeed> {
 protected:
  // A grid with two columns, and the page of its columns in front.
  void Begin() {
    if (TheForm().Closed()) MakeForm({.design = true});
    OpenWithColumns({"A", "B"});
  }
  void End() {
    frame_.reset();
    if (!TheForm().Closed()) TheForm().Remove("a");
    Driver().Settle();
    for (int i = 0; i < 10 && Driver().TopLevelWindows().size() > 1; ++i) Driver().Settle();
  }

  void Do(const std::string& name) {
    const auto frame = frame_;
    if (!frame) return;
    const auto form = frame->GetForm();
    const auto control = form->Find(name);
    switch (GetParam()) {
      case FrameDeed::kRemove: form->Remove(name); break;
      case FrameDeed::kClose: form->Close(); break;
      case FrameDeed::kGiveUp: frame_.reset(); break;
      case FrameDeed::kHide:
        if (control) control->SetVisible(false);
        break;
      case FrameDeed::kDisable:
        if (control) SetByName(*control->GetControl(), "Enabled", false);
        break;
      case FrameDeed::kMoveFocus:
        if (const auto other = form->Find("cmdCancel"); other && other->CanTakeInput()) other->SetFocus();
        break;
      case FrameDeed::kRaise: throw Error(4711, "LevelWidgets.Test", "listener");
      case FrameDeed::kRemoveTarget: TheForm().Remove("a"); break;
      case FrameDeed::kCloseAll:
        form->Close();
        TheForm().Close();
        break;
    }
  }

  // Every control is used, as far as it is still there.
  void Use() {
    for (const auto& step : Steps()) {
      if (!frame_ || Frame().Closed()) return;
      try {
        step();
        Driver().Settle();
      } catch (const Error& error) {
        EXPECT_EQ(error.Description(), "listener");
      }
    }
  }

 private:
  template <typename Action>
  std::function<void()> With(const std::string& name, Action action) {
    return [this, name, action] {
      const auto control = Frame().Find(name);
      if (control && control->CanTakeInput()) action();
    };
  }
  std::vector<std::function<void()>> Steps() {
    std::vector<std::function<void()>> steps;
    const auto add = [&](const std::string& name, auto action) { steps.push_back(With(name, action)); };
    add("cmbColumn", [this] { Pick("cmbColumn", 0); });
    add("txtCaption", [this] { TypeInto("txtCaption", "x"); });
    add("txtWidth", [this] { TypeInto("txtWidth", "wide"); });
    add("txtWidth", [this] { Key(kKeyTab); });
    steps.emplace_back([this] { Key(kKeyEnter); });  // the message, where there is one
    add("txtWidth", [this] { TypeInto("txtWidth", "900"); });
    add("cmbFormat", [this] { TypeInto("cmbFormat", "0"); });
    add("chkVisible", [this] { Click("chkVisible"); });
    add("cmbEditType", [this] { Pick("cmbEditType", 2); });
    add("cmdApply", [this] { Click("cmdApply"); });
    for (const char* action : {"cmdAction0", "cmdAction1", "cmdAction2", "cmdAction3"}) {
      add(action, [this, action] { Click(action); });
    }
    add("tabPages", [this] { Key(kKeyTab, kCtrlMask); });
    add("cmdOK", [this] { Click("cmdOK"); });
    return steps;
  }
};

TEST_P(FrameInterferenceTest, AListenerMayDoItAtTheFirstEventOfAnyControl) {
  Begin();
  std::vector<std::string> names;
  for (const auto& control : Frame().Controls()) names.push_back(control->Name());
  End();
  std::erase_if(names,
                [](const std::string& name) { return name.ends_with("Line") || name.starts_with("Label"); });
  [[maybe_unused]] int deeds = 0;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string& name = names[i];
#ifdef _WIN32
    if (i % 9 != static_cast<std::size_t>(GetParam())) continue;  // each takes more than a second there
#endif
    SCOPED_TRACE(name);
    Begin();
    bool done = false;
    const auto once = [&](RaisedEvent&) {
      if (!std::exchange(done, true)) Do(name);
    };
    for (const EventInfo& event : At(name).ControlClass().Events()) {
      SubscribeByName(*At(name).GetControl(), event.name, once);
    }
    for (const EventInfo& event : HostedControl::Table().Events())
      SubscribeByName(At(name), event.name, once);
    Use();
    deeds += done ? 1 : 0;
    End();
  }
#ifndef _WIN32
  EXPECT_GT(deeds, 12);
#endif
}

std::string NameOfDeed(const ::testing::TestParamInfo<FrameDeed>& tested) {
  constexpr std::array kNames{"Remove",    "Close", "GiveUp",       "Hide",    "Disable",
                              "MoveFocus", "Raise", "RemoveTarget", "CloseAll"};
  return kNames[static_cast<std::size_t>(tested.param)];
}

INSTANTIATE_TEST_SUITE_P(Deeds, FrameInterferenceTest,
                         ::testing::Values(FrameDeed::kRemove, FrameDeed::kClose, FrameDeed::kGiveUp,
                                           FrameDeed::kHide, FrameDeed::kDisable, FrameDeed::kMoveFocus,
                                           FrameDeed::kRaise, FrameDeed::kRemoveTarget, FrameDeed::kCloseAll),
                         NameOfDeed);

}  // namespace
}  // namespace levelwidgets::testing
