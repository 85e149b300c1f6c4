// FlatLabel: values, persistence, and what its setters do in which order.
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FlatLabelTest : public DesktopTest {};

std::vector<std::string> NamesIn(const PropertyBag& bag) {
  std::vector<std::string> names;
  for (const auto& entry : bag.Entries()) names.push_back(entry.name);
  return names;
}

TEST_F(FlatLabelTest, ANewLabelIsWhiteOnBlackWithItsNameAsCaption) {
  const auto& label = AddNew<FlatLabel>("lblHelp");
  EXPECT_EQ(label.BackColor(), Color(0));
  EXPECT_EQ(label.ForeColor(), Color(0x00FFFFFF));
  EXPECT_TRUE(label.Enabled());
  EXPECT_EQ(label.GetFont()->Description(), TheForm().GetFont()->Description());
  EXPECT_EQ(label.Caption(), "lblHelp");
  EXPECT_EQ(label.Alignment(), ksxLeft);
  EXPECT_TRUE(label.MouseUnderline());
  EXPECT_EQ(label.BackColorMouseOver(), Color(0));
  EXPECT_EQ(label.BackColorPushed(), Color(0));
  EXPECT_EQ(label.ForeColorMouseOver(), Color(0x009CDFF7));
  EXPECT_EQ(label.ForeColorPushed(), Color(0x00FFFFFF));
  EXPECT_EQ(label.ForeColorDisabled(), Color(0x008C969C));
}

TEST_F(FlatLabelTest, ALoadedLabelWithoutSavedValuesHasTheLoadingDefaults) {
  const auto& label = AddLoaded<FlatLabel>("lblHelp");
  EXPECT_EQ(label.BackColor(), Color(0x00CEDBDE));
  EXPECT_EQ(label.ForeColor(), Color(0x80000012));
  EXPECT_TRUE(label.Enabled());
  EXPECT_EQ(label.GetFont()->Description(), TheForm().GetFont()->Description());
  EXPECT_EQ(label.Caption(), "");
  EXPECT_EQ(label.Alignment(), ksxLeft);
  EXPECT_TRUE(label.MouseUnderline());
  EXPECT_EQ(label.BackColorMouseOver(), Color(0x00EFF7F7));
  EXPECT_EQ(label.BackColorPushed(), Color(0x00BDCBCE));
  EXPECT_EQ(label.ForeColorMouseOver(), Color(0x00EFF7F7));
  EXPECT_EQ(label.ForeColorPushed(), Color(0x00BDCBCE));
  EXPECT_EQ(label.ForeColorDisabled(), Color(0x008C969C));
}

TEST_F(FlatLabelTest, ANewLabelSavedUnchangedStoresWhatDiffersFromTheLoadingDefaults) {
  EXPECT_THAT(NamesIn(Hosted(AddNew<FlatLabel>("lblHelp")).Properties()),
              ElementsAre("BackColor", "ForeColor", "Caption", "BackColorMouseOver", "BackColorPushed",
                          "ForeColorMouseOver", "ForeColorPushed"));
}

TEST_F(FlatLabelTest, ALoadedLabelSavedUnchangedStoresNothing) {
  EXPECT_THAT(NamesIn(Hosted(AddLoaded<FlatLabel>("lblHelp")).Properties()), IsEmpty());
}

TEST_F(FlatLabelTest, ASavedNewLabelComesBackAsItWas) {
  const auto& label = AddNew<FlatLabel>("lblHelp");
  const auto& loaded = AddLoaded<FlatLabel>("lblAgain", Hosted(label).Properties());
  for (const PropertyInfo* property : FlatLabel::Table().Persisted()) {
    EXPECT_EQ(property->get(loaded), property->get(label)) << property->name;
  }
}

TEST_F(FlatLabelTest, EveryChangedPropertyIsStoredInItsOrder) {
  auto& label = AddLoaded<FlatLabel>("lblHelp");
  label.SetMouseUnderline(false);
  label.SetForeColorPushed(Color(1));
  label.SetForeColorMouseOver(Color(2));
  label.SetForeColorDisabled(Color(3));
  label.SetBackColorPushed(Color(4));
  label.SetBackColorMouseOver(Color(5));
  label.SetCaption("&Help");
  label.SetFont(MakeFont({.name = "Tahoma", .size = 12}));
  label.SetEnabled(false);
  label.SetForeColor(Color(6));
  label.SetBackColor(Color(7));
  label.SetAlignment(ksxCenter);
  const PropertyBag bag = Hosted(label).Properties();
  EXPECT_THAT(NamesIn(bag), ElementsAre("Alignment", "BackColor", "ForeColor", "Enabled", "Font", "Caption",
                                        "BackColorMouseOver", "BackColorPushed", "ForeColorDisabled",
                                        "ForeColorMouseOver", "ForeColorPushed", "MouseUnderline"));
  const auto& loaded = AddLoaded<FlatLabel>("lblAgain", bag);
  for (const PropertyInfo* property : FlatLabel::Table().Persisted()) {
    EXPECT_EQ(property->get(loaded), property->get(label)) << property->name;
  }
  EXPECT_EQ(loaded.GetSurface().AccessKeys(), "H");
}

TEST_F(FlatLabelTest, LoadingNotifiesForWhatItsSettersNotify) {
  std::vector<std::string> notices;
  TheForm().PropertyChanged.Add(
      [&](std::string_view, std::string_view property) { notices.emplace_back(property); });
  AddLoaded<FlatLabel>("lblHelp");
  EXPECT_THAT(notices,
              ElementsAre("BackColor", "ForeColor", "Enabled", "Font", "Caption", "BackColorMouseOver",
                          "BackColorPushed", "ForeColorDisabled", "ForeColorMouseOver", "ForeColorPushed"));
}

TEST_F(FlatLabelTest, BackColorRepaintsThenNotifies) {
  auto& label = AddNew<FlatLabel>("lblHelp");
  Watch(label);
  label.SetBackColor(Color(1));
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(BackColor)"));
}

TEST_F(FlatLabelTest, ForeColorAndEnabledOnlyNotify) {
  auto& label = AddNew<FlatLabel>("lblHelp");
  Watch(label);
  label.SetForeColor(Color(1));
  EXPECT_THAT(TakeJournal(), ElementsAre("PropertyChanged(ForeColor)"));
  label.SetEnabled(false);
  EXPECT_THAT(TakeJournal(), ElementsAre("PropertyChanged(Enabled)"));
}

TEST_F(FlatLabelTest, FontAndCaptionRepaintThenNotify) {
  auto& label = AddNew<FlatLabel>("lblHelp");
  Watch(label);
  label.SetFont(MakeFont());
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Font)"));
  label.SetCaption("Help");
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Caption)"));
}

TEST_F(FlatLabelTest, MouseUnderlineIsStoredWithoutRepaintOrNotification) {
  auto& label = AddNew<FlatLabel>("lblHelp");
  Watch(label);
  label.SetMouseUnderline(false);
  EXPECT_THAT(TakeJournal(), IsEmpty());
  EXPECT_FALSE(label.MouseUnderline());
}

TEST_F(FlatLabelTest, AlignmentRepaintsAndNotifiesNobody) {
  auto& label = AddNew<FlatLabel>("lblHelp");
  Watch(label);
  label.SetAlignment(ksxCenter);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
}

TEST_F(FlatLabelTest, ColoursOfPassingStatesRepaintThenNotify) {
  auto& label = AddNew<FlatLabel>("lblHelp");
  Watch(label);
  label.SetBackColorMouseOver(Color(1));
  label.SetBackColorPushed(Color(2));
  label.SetForeColorDisabled(Color(3));
  label.SetForeColorMouseOver(Color(4));
  label.SetForeColorPushed(Color(5));
  EXPECT_THAT(
      TakeJournal(),
      ElementsAre("paint", "PropertyChanged(BackColorMouseOver)", "paint", "PropertyChanged(BackColorPushed)",
                  "paint", "PropertyChanged(ForeColorDisabled)", "paint",
                  "PropertyChanged(ForeColorMouseOver)", "paint", "PropertyChanged(ForeColorPushed)"));
}

TEST_F(FlatLabelTest, RefreshRepaintsAtOnceAndReturnsAnEmptyValue) {
  auto& label = AddNew<FlatLabel>("lblHelp");
  Watch(label);
  EXPECT_EQ(InvokeByName(label, "Refresh", {}), Variant());
  EXPECT_THAT(TakeJournal(), ElementsAre("paint"));
}

TEST_F(FlatLabelTest, TheCaptionGivesTheAccessKey) {
  auto& label = AddNew<FlatLabel>("lblHelp");
  label.SetCaption("&Help");
  EXPECT_EQ(label.GetSurface().AccessKeys(), "H");
  label.SetCaption("Help");
  EXPECT_EQ(label.GetSurface().AccessKeys(), "");
}

TEST_F(FlatLabelTest, TheTableListsEventsInTheirNumbers) {
  std::vector<std::string> events;
  for (const EventInfo& event : FlatLabel::Table().Events()) {
    events.push_back(std::to_string(event.number) + " " + std::string(event.name));
  }
  EXPECT_THAT(events, ElementsAre("1 Click", "2 DblClick", "3 KeyDown", "4 KeyPress", "5 KeyUp",
                                  "6 MouseDown", "7 MouseMove", "8 MouseUp"));
}

TEST_F(FlatLabelTest, DefaultsOfTheTableAreThoseOfInstances) {
  const auto& fresh = AddNew<FlatLabel>("lblNew");
  const auto& loaded = AddLoaded<FlatLabel>("lblLoaded");
  for (const PropertyInfo& property : FlatLabel::Table().Properties()) {
    if (property.defaults.when_new.kind == DefaultValue::Kind::kFixed) {
      EXPECT_EQ(property.get(fresh), property.defaults.when_new.Value()) << property.name;
    }
    if (property.defaults.when_read.kind == DefaultValue::Kind::kFixed) {
      EXPECT_EQ(property.get(loaded), property.defaults.when_read.Value()) << property.name;
    }
  }
}

}  // namespace
}  // namespace levelwidgets::testing
