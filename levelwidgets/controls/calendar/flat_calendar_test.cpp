// FlatCalendar: its properties, its value, and what is typed.
#include <levelwidgets/controls/calendar/flat_calendar_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// What holds in any locale.
class AnyLocaleCalendarTest : public CalendarTest, public ::testing::WithParamInterface<std::string_view> {
 protected:
  std::shared_ptr<DesktopDriver> MakeDriver() override { return DriverInLocale(GetParam()); }

  // As the locale writes it in general.
  std::string GeneralForm(Date date) { return Formatted(date, ""); }
  // A text of the date that is not its general form.
  std::string OtherForm(Date date) { return Formatted(date, "d mmmm yyyy"); }
};

std::string LocaleOf(const ::testing::TestParamInfo<std::string_view>& tested) {
  std::string name(tested.param.empty() ? "user" : tested.param);
  std::ranges::replace(name, '-', '_');
  return name;
}
INSTANTIATE_TEST_SUITE_P(Locales, AnyLocaleCalendarTest, ::testing::ValuesIn(TestLocales()), LocaleOf);

TEST_F(FlatCalendarTest, SavesUnderItsNamesWithTheFormatBeforeTheValue) {
  std::vector<std::string_view> names;
  for (const auto& property : FlatCalendar::Table().Persisted()) names.push_back(property->name);
  EXPECT_THAT(names, ElementsAre("Alignment", "BackColor", "ForeColor", "Enabled", "Font", "DateFormat",
                                 "Value", "DropDownBackColor", "DropDownBackColorMouseOver",
                                 "DropDownBackColorPushed", "CalBackColor", "CalForeColor",
                                 "CalDisabledColor", "CalBorderColor", "CalHeaderBackColor",
                                 "CalMouseOverColor", "CalSelectBackColor", "CalTodayBackColor"));
}

TEST_F(FlatCalendarTest, DefaultColoursOfTheMonthViewAreThoseOfTheTable) {
  const FlatCalendar& calendar = Calendar();
  EXPECT_EQ(calendar.CalBackColor(), Color(0x00000000u));
  EXPECT_EQ(calendar.CalForeColor(), Color(0x00FFFFFFu));
  EXPECT_EQ(calendar.CalDisabledColor(), Color(0x80000011u));
  EXPECT_EQ(calendar.CalBorderColor(), Color(0x004A5052u));
  EXPECT_EQ(calendar.CalHeaderBackColor(), Color(0x004A5052u));
  EXPECT_EQ(calendar.CalMouseOverColor(), Color(0x009CDFF7u));
  EXPECT_EQ(calendar.CalSelectBackColor(), Color(0x006B7C6Du));
  EXPECT_EQ(calendar.CalTodayBackColor(), Color(0x004A5052u));
}

TEST_F(FlatCalendarTest, ColoursAndFormatNotifyWhetherThePanelHasOpenedOrNot) {
  const auto set_all = [this] {
    Calendar().SetCalBackColor(Color(1));
    Calendar().SetCalForeColor(Color(2));
    Calendar().SetCalDisabledColor(Color(3));
    Calendar().SetCalBorderColor(Color(4));
    Calendar().SetCalHeaderBackColor(Color(5));
    Calendar().SetCalMouseOverColor(Color(6));
    Calendar().SetCalSelectBackColor(Color(7));
    Calendar().SetCalTodayBackColor(Color(8));
    Calendar().SetDateFormat("yyyy");
  };
  for (int turn = 0; turn < 2; ++turn) {
    EXPECT_THAT(EventsOf(set_all),
                ElementsAre("PropertyChanged(CalBackColor)", "PropertyChanged(CalForeColor)",
                            "PropertyChanged(CalDisabledColor)", "PropertyChanged(CalBorderColor)",
                            "PropertyChanged(CalHeaderBackColor)", "PropertyChanged(CalMouseOverColor)",
                            "PropertyChanged(CalSelectBackColor)", "PropertyChanged(CalTodayBackColor)",
                            "PropertyChanged(DateFormat)"));
    Open();
  }
}

// --- Value -------------------------------------------------------------------------------------------

TEST_P(AnyLocaleCalendarTest, AnAssignmentNotifiesThenRaisesChangeOnce) {
  EXPECT_THAT(EventsOf([this] { Calendar().SetValue(kMay31); }),
              ElementsAre("PropertyChanged(Value)", "Change()"));
  EXPECT_EQ(TextShown(), GeneralForm(kMay31));
  // The same again, although the text stays.
  EXPECT_THAT(EventsOf([this] { Calendar().SetValue(kMay31); }),
              ElementsAre("PropertyChanged(Value)", "Change()"));
  EXPECT_THAT(EventsOf([this] { Calendar().SetValue(Null{}); }),
              ElementsAre("PropertyChanged(Value)", "Change()"));
}

TEST_P(AnyLocaleCalendarTest, TakesNullTheEmptyStringDatesAndTheirTexts) {
  const struct {
    Variant given;
    Variant value;
    std::string text;
  } rows[] = {
      {kMay31, kMay31, "2024-05-31"},
      {Null{}, Null{}, ""},
      {GeneralForm(kMay31), kMay31, "2024-05-31"},
      {"", "", ""},
      {OtherForm(kMay31), kMay31, "2024-05-31"},
  };
  Calendar().SetDateFormat("yyyy-mm-dd");
  for (const auto& row : rows) {
    Calendar().SetValue(row.given);
    EXPECT_EQ(Calendar().Value(), row.value) << Describe(row.given);
    EXPECT_EQ(TextShown(), row.text) << Describe(row.given);
  }
}

TEST_P(AnyLocaleCalendarTest, RefusesWhatIsNoDateWith13AndChangesNothing) {
  Calendar().SetValue(kMay31);
  EXPECT_THAT(EventsOf([this] {
                EXPECT_EQ(ErrorOf([this] { Calendar().SetValue("abc"); }), kTypeMismatch);
                EXPECT_EQ(ErrorOf([this] { Calendar().SetValue(12); }), kTypeMismatch);
              }),
              IsEmpty());
  EXPECT_EQ(Calendar().Value(), Variant(kMay31));
  EXPECT_EQ(TextShown(), GeneralForm(kMay31));
}

TEST_P(AnyLocaleCalendarTest, ANewFormatWaitsForTheNextDate) {
  Calendar().SetValue(kMay31);
  Calendar().SetDateFormat("yyyy");
  EXPECT_EQ(TextShown(), GeneralForm(kMay31));
  Calendar().SetValue(kMay31);
  EXPECT_EQ(TextShown(), "2024");
}

TEST_P(AnyLocaleCalendarTest, AFormatIsReadBeforeTheValue) {
  for (const Variant& value : {Variant(kMay31), Variant(Null{})}) {
    PropertyBag saved;
    saved.WriteProperty("Value", value, {});
    saved.WriteProperty("DateFormat", "dd.mm.yyyy", {});
    Load(saved);
    EXPECT_EQ(Calendar().Value(), value);
    EXPECT_EQ(TextShown(), value.IsNull() ? "" : "31.05.2024");
    PropertyBag again;
    Calendar().OnWriteProperties(again);
    EXPECT_EQ(*again.Find("Value"), value);
    TheForm().Remove("edt");
  }
}

// --- Typing ------------------------------------------------------------------------------------------

TEST_P(AnyLocaleCalendarTest, TypingHoldsTheTextOfADateAndNullOtherwise) {
  Calendar();
  const std::string whole = GeneralForm(kMay31);
  const std::string last = whole.substr(whole.size() - 1);
  const std::string code = std::to_string(int{last[0]});
  const std::string rest = whole.substr(0, whole.size() - 1);
  Driver().Type(rest);
  EXPECT_EQ(Calendar().Value(), Variant(rest));
  EXPECT_THAT(EventsOf([&] { Driver().Type(last); }),
              ElementsAre("KeyDown(" + code + ", 0)", "KeyPress(" + code + ")", "Change()",
                          "KeyUp(" + code + ", 0)"));
  EXPECT_EQ(Calendar().Value(), Variant(whole));
  Driver().Type("x");
  EXPECT_TRUE(Calendar().Value().IsNull());
}

class LeftCalendarTest : public AnyLocaleCalendarTest {
 protected:
  void SetUp() override {
    AnyLocaleCalendarTest::SetUp();
    Calendar();
  }
  // What happens when the focus goes to the other control.
  Journal Leave() {
    if (!other_) other_ = &AddLoaded<FlatCalendar>("other", {}, {Twips(600), Twips(1500)});
    return EventsOf([this] { Hosted(*other_).SetFocus(); });
  }
  void Return() { Hosted(Calendar()).SetFocus(); }

 private:
  FlatCalendar* other_ = nullptr;
};
INSTANTIATE_TEST_SUITE_P(Locales, LeftCalendarTest, ::testing::ValuesIn(TestLocales()), LocaleOf);

TEST_P(LeftCalendarTest, LeavingTakesATypedDateOverOnce) {
  Calendar().SetDateFormat("yyyy-mm-dd");
  Driver().Type(GeneralForm(kMay31));
  EXPECT_THAT(Leave(), ElementsAre("PropertyChanged(Value)", "Change()"));
  EXPECT_EQ(Calendar().Value(), Variant(kMay31));
  EXPECT_EQ(TextShown(), "2024-05-31");
  Return();
  EXPECT_THAT(Leave(), IsEmpty());
}

TEST_P(LeftCalendarTest, AfterLeavingTheValueIsADateAlsoWithoutAFormat) {
  Driver().Type(GeneralForm(kMay31));
  EXPECT_THAT(Leave(), ElementsAre("PropertyChanged(Value)", "Change()"));
  EXPECT_EQ(Calendar().Value(), Variant(kMay31));
}

// A text has no other general form, so that of the date differs from it each time.
TEST_P(LeftCalendarTest, ATextThatIsNotTheGeneralFormIsTakenOverAtEachLeaving) {
  Driver().Type(OtherForm(kMay31));
  EXPECT_THAT(Leave(),
              ElementsAre("PropertyChanged(Value)", "Change()", "PropertyChanged(Value)", "Change()"));
  EXPECT_EQ(TextShown(), OtherForm(kMay31));
  Return();
  EXPECT_THAT(Leave(), ElementsAre("PropertyChanged(Value)", "Change()"));
}

TEST_P(LeftCalendarTest, ASpoiltDateLeavesNullAndTheTextAsTyped) {
  Driver().Type(GeneralForm(kMay31) + "z");
  EXPECT_THAT(Leave(), IsEmpty());
  EXPECT_TRUE(Calendar().Value().IsNull());
  EXPECT_EQ(TextShown(), GeneralForm(kMay31) + "z");
}

TEST_P(LeftCalendarTest, ADateShownInAnOldFormatIsTakenOverAnew) {
  Calendar().SetValue(kMay31);
  Calendar().SetDateFormat("d mmm yyyy");
  EXPECT_THAT(Leave(), ElementsAre("PropertyChanged(Value)", "Change()"));
  EXPECT_EQ(TextShown(), Formatted(kMay31, "d mmm yyyy"));
}

TEST_P(LeftCalendarTest, OpeningThePanelIsNoLeaving) {
  Calendar().SetDateFormat("yyyy-mm-dd");
  Driver().Type(GeneralForm(kMay31));
  EXPECT_THAT(EventsOf([this] {
                Driver().Key(kKeyF4);
                Driver().Key(kKeyEscape);
              }),
              ElementsAre("KeyUp(27, 0)"));
  EXPECT_EQ(Calendar().Value(), Variant(GeneralForm(kMay31)));
  EXPECT_EQ(TextShown(), GeneralForm(kMay31));
  Leave();
  EXPECT_EQ(Calendar().Value(), Variant(kMay31));
}

// Read again, the text would be the 4th of May where the month comes first.
TEST_P(LeftCalendarTest, ADateThatReplacesWhatWasTypedIsNotReadAgain) {
  Calendar().SetDateFormat("dd/mm/yyyy");
  Driver().Type(GeneralForm(kMay31));
  const Date april5{45387};
  Calendar().SetValue(april5);
  ASSERT_EQ(TextShown(), Formatted(april5, "dd/mm/yyyy"));
  EXPECT_THAT(Leave(), IsEmpty());
  EXPECT_EQ(Calendar().Value(), Variant(april5));
}

TEST_P(LeftCalendarTest, AHandlerMayRemoveTheControlWhileItIsLeft) {
  Driver().Type(GeneralForm(kMay31));
  Calendar().Change += [this] { TheForm().Remove("edt"); };
  auto& other = AddLoaded<FlatCalendar>("other", {}, {Twips(600), Twips(1500)});
  Hosted(other).SetFocus();
  Driver().Settle();
  EXPECT_FALSE(TheForm().Find("edt"));
}

TEST_P(LeftCalendarTest, AHandlerMayAssignAnotherValueWhileItIsLeft) {
  Driver().Type(GeneralForm(kMay31));
  bool assigned = false;
  Calendar().Change += [&] {
    if (!std::exchange(assigned, true)) Calendar().SetValue(Null{});
  };
  Leave();
  EXPECT_TRUE(Calendar().Value().IsNull());
  EXPECT_EQ(TextShown(), "");
}

TEST_F(FlatCalendarTest, ATypedDateIsTakenOverOnceWhenAnotherProgramBecomesActive) {
  Calendar();
  Driver().Type("5/31/2024");
  EXPECT_EQ(Calendar().Value(), Variant("5/31/2024"));
  EXPECT_THAT(EventsOf([this] { Driver().Leave(); }),
              ::testing::ElementsAre("PropertyChanged(Value)", "Change()"));
  EXPECT_EQ(Calendar().Value(), Variant(kMay31));
  Driver().Enter();
}

TEST_F(FlatCalendarTest, WithAnInvalidFormatItIsLeftWithoutAnError) {
  Calendar().SetDateFormat("0;0;0;0;0");
  Calendar().SetValue(kMay31);
  EXPECT_EQ(TextShown(), "5/31/2024");
  Driver().Leave();
  Driver().Enter();
  EXPECT_EQ(Calendar().Value(), Variant(kMay31));
}

}  // namespace
}  // namespace levelwidgets::testing
