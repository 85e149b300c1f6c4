// For tests of listeners that do anything at any time.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/frame/class_info.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {

inline constexpr std::int32_t kOwnError = 4711;

// The last three are for grids.
enum class Deed {
  kRemove,
  kCloseForm,
  kRaise,
  kHide,
  kDisable,
  kMoveFocus,
  kTakeRows,
  kTakeColumns,
  kForbidEdits
};

struct Interference {
  const char* event;  // or the notice of a property, or an event of the container
  Deed deed;
};

inline void PrintTo(const Interference& interference, std::ostream* out) { *out << interference.event; }

inline std::string NameOfInterference(const ::testing::TestParamInfo<Interference>& tested) {
  constexpr std::array kDeeds{"Removes",       "ClosesTheForm", "Raises",       "Hides",       "Disables",
                              "MovesTheFocus", "TakesRows",     "TakesColumns", "ForbidsEdits"};
  return std::string(tested.param.event) + kDeeds[static_cast<std::size_t>(tested.param.deed)];
}

// Each deed at each event. On Windows, where forms take their time, each event has one of them.
inline std::vector<Interference> EachOf(const std::vector<Deed>& deeds,
                                        const std::vector<const char*>& events) {
  std::vector<Interference> all;
  for (std::size_t event = 0; event < events.size(); ++event) {
    for (std::size_t deed = 0; deed < deeds.size(); ++deed) {
#ifdef _WIN32
      if (deed != event % deeds.size()) continue;
#endif
      all.push_back({events[event], deeds[deed]});
    }
  }
  return all;
}

// A person uses every part of a control; the deed is done when the event comes for the first time, in the
// next round for the second time, and so on. The other control of the form is called "next".
template <typename Fixture>
class InterferenceTest : public Fixture, public ::testing::WithParamInterface<Interference> {
 protected:
  // `make` makes the form with both controls and returns the one that is used.
  void DoItAtEachTime(int most, const std::function<Control&()>& make, const std::function<void()>& use) {
    int times = 0;
    for (int nth = 1; nth <= most; nth = NextTime(nth)) {
      Control& control = make();
      name_ = this->Hosted(control).Name();
      Listen(control);
      until_ = nth;
      use();
      this->Driver().Advance(110);
      if (until_ > 0) break;  // the event came less often than that
      ++times;
      const Deed deed = GetParamOfTest().deed;
      if (deed == Deed::kRemove || deed == Deed::kCloseForm) {
        EXPECT_FALSE(IsThere());
      }
      if (!this->TheForm().Closed()) this->TheForm().Close();
    }
    EXPECT_GE(times, 1) << "the event was never raised";
  }

  bool IsThere() { return !this->TheForm().Closed() && this->TheForm().Find(name_); }
  // Does it while the control is there. An error comes to whoever does it, the control is whole nevertheless.
  void Try(const std::function<void()>& act) {
    if (IsThere()) Catching(act);
    Catching([&] { this->Driver().Release(kLeftButton); });
    Catching([&] { this->Driver().KeyUp(kKeyF4, 0); });
  }

  virtual void Do(Deed deed, Control& control) {
    switch (deed) {
      case Deed::kRemove: this->TheForm().Remove(name_); break;
      case Deed::kCloseForm: this->TheForm().Close(); break;
      case Deed::kRaise: throw Error(kOwnError, "test", "raised on purpose");
      case Deed::kHide: this->Hosted(control).SetVisible(false); break;
      case Deed::kDisable: SetByName(control, "Enabled", false); break;
      case Deed::kMoveFocus: this->TheForm().Find("next")->SetFocus(); break;
      default: FAIL() << "nobody knows how";
    }
  }

 private:
  static const Interference& GetParamOfTest() {
    return ::testing::WithParamInterface<Interference>::GetParam();
  }

  static int NextTime(int nth) {
#ifdef _WIN32
    return 2 * nth;  // forms take their time there
#else
    return nth + 1;
#endif
  }

  void Happened(Control& control) {
    if (--until_ == 0) Do(GetParamOfTest().deed, control);
  }

  void Listen(Control& control) {
    const std::string_view event = GetParamOfTest().event;
    const auto happened = [this, &control] { Happened(control); };
    if (event == "PropertyChanged") {
      this->TheForm().PropertyChanged.Add([happened](std::string_view, std::string_view) { happened(); });
    } else if (event == "GotFocus") {
      this->Hosted(control).GotFocus += happened;
    } else if (event == "LostFocus") {
      this->Hosted(control).LostFocus += happened;
    } else {
      SubscribeByName(control, event, [happened](RaisedEvent&) { happened(); });
    }
  }

  static void Catching(const std::function<void()>& act) {
    try {
      act();
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), kOwnError);
    }
  }

  std::string name_;
  int until_ = 0;
};

}  // namespace levelwidgets::testing
