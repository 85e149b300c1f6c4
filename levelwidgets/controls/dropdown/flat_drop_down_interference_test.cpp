// FlatDropDown: listeners that remove it, close its form or raise an error, at any of its events.
#include <levelwidgets/controls/dropdown/flat_drop_down_fixture.h>

namespace levelwidgets::testing {
namespace {

constexpr std::int32_t kOwnError = 4711;

enum class Deed { kRemove, kCloseForm, kRaise };

struct Interference {
  const char* event;  // or the notice of a property, or an event of the container
  Deed deed;
};

void PrintTo(const Interference& interference, std::ostream* out) { *out << interference.event; }

// A person uses every part of the control; the deed is done at the first event, then at the second, and so
// on.
class FlatDropDownInterferenceTest : public FlatDropDownTest,
                                     public ::testing::WithParamInterface<Interference> {
 protected:
  void Happened() {
    if (--until_ != 0) return;
    switch (GetParam().deed) {
      case Deed::kRemove: TheForm().Remove("edt"); break;
      case Deed::kCloseForm: TheForm().Close(); break;
      case Deed::kRaise: throw Error(kOwnError, "test", "raised on purpose");
    }
  }

  void Listen(FlatDropDown& drop) {
    const std::string_view event = GetParam().event;
    if (event == "PropertyChanged") {
      TheForm().PropertyChanged.Add([this](std::string_view, std::string_view) { Happened(); });
    } else if (event == "GotFocus") {
      Hosted(drop).GotFocus += [this] { Happened(); };
    } else if (event == "LostFocus") {
      Hosted(drop).LostFocus += [this] { Happened(); };
    } else {
      SubscribeByName(drop, event, [this](RaisedEvent&) { Happened(); });
    }
  }

  bool IsThere() { return !TheForm().Closed() && TheForm().Find("edt"); }
  // Does it while the control is there. An error comes to whoever does it, the control is whole nevertheless.
  void Try(const std::function<void()>& act) {
    if (IsThere()) Catching(act);
    Catching([&] { Driver().Release(kLeftButton); });
    Catching([&] { Driver().KeyUp(kKeyF4, 0); });
  }
  static void Catching(const std::function<void()>& act) {
    try {
      act();
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), kOwnError);
    }
  }

  void UseEverything() {
    Try([&] { Hosted(Drop()).SetFocus(); });
    Try([&] { Driver().Type("ap"); });
    Try([&] { Driver().Key(kKeyBackspace); });
    Try([&] { Driver().DoubleClick(ScreenPoint(Drop(), PixelPoint{20, 8})); });
    Try([&] { Driver().Key(kKeyF4); });
    Try([&] { Driver().Key(kKeyDown); });
    Try([&] { Driver().Key(kKeyEnd); });
    Try([&] { Driver().Key(kKeyEnter); });
    Try([&] { Driver().Click(Strip()); });
    Try([&] {
      if (IsOpen()) Driver().MovePointer(Row(2));
    });
    Try([&] { Driver().Wheel(-1); });
    Try([&] {
      if (IsOpen()) Driver().Click(Row(2));
    });
    Try([&] { Drop().SetText("apple"); });
    Try([&] { Drop().SetListIndex(12); });
    Try([&] { Driver().Key(kKeyF4); });
    Try([&] { Drop().SetEnabled(false); });
    Try([&] { Drop().SetEnabled(true); });
    Try([&] { Drop().SetStyle(1); });
    Try([&] { Driver().Key(kKeyTab); });
    Try([&] { Driver().Advance(110); });
  }

  int until_ = 0;
};

TEST_P(FlatDropDownInterferenceTest, LeavesTheControlWholeOrGone) {
  int times = 0;
  for (int nth = 1; nth <= 40; ++nth) {
    MakeForm({});
    FlatDropDown& drop =
        MakeOf({"Banana", "APPLE", "Apricot", "4", "5", "6", "7", "8", "9", "10", "11", "12"});
    AddNew<FlatButton>("next", {Twips(600), Twips(3000)});
    drop.SetAutoComplete(true);
    Hosted(*TheForm().Find("next")->GetControl()).SetFocus();
    Listen(drop);
    until_ = nth;
    UseEverything();
    Driver().Advance(110);
    if (until_ > 0) break;  // the event came less often than that
    ++times;
    EXPECT_TRUE(GetParam().deed == Deed::kRaise || !IsThere());
    if (!TheForm().Closed()) TheForm().Close();
  }
  EXPECT_GE(times, 1) << "the event was never raised";
}

std::vector<Interference> All() {
  std::vector<Interference> all;
  for (const Deed deed : {Deed::kRemove, Deed::kCloseForm, Deed::kRaise}) {
    for (const char* event : {"Change", "Click", "DblClick", "KeyDown", "KeyPress", "KeyUp", "MouseDown",
                              "MouseMove", "MouseUp", "PropertyChanged", "GotFocus", "LostFocus"}) {
      all.push_back({event, deed});
    }
  }
  return all;
}

std::string NameOfTest(const ::testing::TestParamInfo<Interference>& tested) {
  constexpr std::array kDeeds{"Removes", "ClosesTheForm", "Raises"};
  return std::string(tested.param.event) + kDeeds[static_cast<std::size_t>(tested.param.deed)];
}

INSTANTIATE_TEST_SUITE_P(Events, FlatDropDownInterferenceTest, ::testing::ValuesIn(All()), NameOfTest);

}  // namespace
}  // namespace levelwidgets::testing
