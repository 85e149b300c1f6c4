// FlatButton: values, persistence, and what its setters do in which order.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FlatButtonTest : public DesktopTest {};

std::vector<std::string> NamesIn(const PropertyBag& bag) {
  std::vector<std::string> names;
  for (const auto& entry : bag.Entries()) names.push_back(entry.name);
  return names;
}

TEST_F(FlatButtonTest, ANewButtonHasItsDefaultsAndItsNameAsCaption) {
  const auto& button = AddNew<FlatButton>("cmdSave");
  EXPECT_EQ(button.BackColor(), Color(0x00CDD9DD));
  EXPECT_EQ(button.ForeColor(), Color(0x80000012));
  EXPECT_TRUE(button.Enabled());
  EXPECT_EQ(button.GetFont()->Description(), TheForm().GetFont()->Description());
  EXPECT_EQ(button.Caption(), "cmdSave");
  EXPECT_EQ(button.BackColorMouseOver(), Color(0x00D9E5E9));
  EXPECT_EQ(button.BackColorPushed(), Color(0x00CDD9DD));
  EXPECT_EQ(button.ForeColorDisabled(), Color(0x008C969C));
  EXPECT_EQ(button.hWnd(), button.GetSurface().hWnd());
  EXPECT_TRUE(button.hWnd());
}

TEST_F(FlatButtonTest, ALoadedButtonWithoutSavedValuesHasTheDefaultsAndNoCaption) {
  const auto& button = AddLoaded<FlatButton>("cmdSave");
  EXPECT_EQ(button.BackColor(), Color(0x00CDD9DD));
  EXPECT_EQ(button.ForeColor(), Color(0x80000012));
  EXPECT_TRUE(button.Enabled());
  EXPECT_EQ(button.GetFont()->Description(), TheForm().GetFont()->Description());
  EXPECT_EQ(button.Caption(), "");
  EXPECT_EQ(button.BackColorMouseOver(), Color(0x00D9E5E9));
  EXPECT_EQ(button.BackColorPushed(), Color(0x00CDD9DD));
  EXPECT_EQ(button.ForeColorDisabled(), Color(0x008C969C));
}

TEST_F(FlatButtonTest, TheNameAsCaptionLeavesTheAccessKeyAlone) {
  auto& button = AddNew<FlatButton>("cmdSave");
  button.SetCaption("&x");
  button.OnInitProperties();
  EXPECT_EQ(button.Caption(), "cmdSave");
  EXPECT_EQ(button.GetSurface().AccessKeys(), "x");
}

TEST_F(FlatButtonTest, ANewButtonSavedUnchangedStoresOnlyItsCaption) {
  EXPECT_THAT(NamesIn(Hosted(AddNew<FlatButton>("cmdSave")).Properties()), ElementsAre("Caption"));
}

TEST_F(FlatButtonTest, ALoadedButtonSavedUnchangedStoresNothing) {
  EXPECT_THAT(NamesIn(Hosted(AddLoaded<FlatButton>("cmdSave")).Properties()), IsEmpty());
}

TEST_F(FlatButtonTest, EveryChangedPropertyIsStoredInItsOrder) {
  auto& button = AddNew<FlatButton>("cmdSave");
  button.SetForeColorDisabled(Color(1));
  button.SetBackColorPushed(Color(2));
  button.SetBackColorMouseOver(Color(3));
  button.SetCaption("&Save");
  button.SetFont(MakeFont({.name = "Tahoma", .size = 12}));
  button.SetEnabled(false);
  button.SetForeColor(Color(4));
  button.SetBackColor(Color(5));
  const PropertyBag bag = Hosted(button).Properties();
  EXPECT_THAT(NamesIn(bag), ElementsAre("BackColor", "ForeColor", "Enabled", "Font", "Caption",
                                        "BackColorMouseOver", "BackColorPushed", "ForeColorDisabled"));

  auto& loaded = AddLoaded<FlatButton>("cmdLoaded", bag);
  EXPECT_EQ(loaded.BackColor(), Color(5));
  EXPECT_EQ(loaded.ForeColor(), Color(4));
  EXPECT_FALSE(loaded.Enabled());
  EXPECT_EQ(loaded.GetFont()->Description().size, 12);
  EXPECT_EQ(loaded.Caption(), "&Save");
  EXPECT_EQ(loaded.GetSurface().AccessKeys(), "S");
  EXPECT_EQ(loaded.BackColorMouseOver(), Color(3));
  EXPECT_EQ(loaded.BackColorPushed(), Color(2));
  EXPECT_EQ(loaded.ForeColorDisabled(), Color(1));
}

TEST_F(FlatButtonTest, LoadingGoesThroughTheWriteAccessorsInTheirOrder) {
  std::vector<std::string> notices;
  TheForm().PropertyChanged.Add(
      [&](std::string_view, std::string_view property) { notices.emplace_back(property); });
  AddLoaded<FlatButton>("cmdSave");
  EXPECT_THAT(notices, ElementsAre("BackColor", "ForeColor", "Enabled", "Font", "Caption",
                                   "BackColorMouseOver", "BackColorPushed", "ForeColorDisabled"));
}

TEST_F(FlatButtonTest, SavingWhileThePointerIsOverItWritesTheColourShown) {
  auto& button = AddNew<FlatButton>("cmdSave");
  Driver().MovePointer(ScreenPoint(button, PixelPoint{5, 5}));
  const PropertyBag bag = Hosted(button).Properties();
  EXPECT_EQ(bag.ReadProperty("BackColor", Variant()), Variant(Color(0x00D9E5E9)));
}

TEST_F(FlatButtonTest, ColoursInUseRepaintThenNotify) {
  auto& button = AddNew<FlatButton>("cmdSave");
  Watch(button);
  button.SetBackColor(Color(0x00FF0000));
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(BackColor)"));
  button.SetForeColor(Color(0x000000FF));
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(ForeColor)"));
}

TEST_F(FlatButtonTest, EnabledAndFontRepaintThenNotify) {
  auto& button = AddNew<FlatButton>("cmdSave");
  Watch(button);
  button.SetEnabled(false);
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Enabled)"));
  button.SetFont(MakeFont());
  EXPECT_THAT(TakeJournal(), ElementsAre("paint", "PropertyChanged(Font)"));
}

TEST_F(FlatButtonTest, CaptionNotifiesThenRepaints) {
  auto& button = AddNew<FlatButton>("cmdSave");
  Watch(button);
  button.SetCaption("Store");
  EXPECT_THAT(TakeJournal(), ElementsAre("PropertyChanged(Caption)", "paint"));
}

TEST_F(FlatButtonTest, ColoursOfPassingStatesNotifyWithoutARepaint) {
  auto& button = AddNew<FlatButton>("cmdSave");
  button.SetEnabled(false);
  Watch(button);
  button.SetBackColorMouseOver(Color(1));
  button.SetBackColorPushed(Color(2));
  button.SetForeColorDisabled(Color(3));
  EXPECT_THAT(TakeJournal(),
              ElementsAre("PropertyChanged(BackColorMouseOver)", "PropertyChanged(BackColorPushed)",
                          "PropertyChanged(ForeColorDisabled)"));
}

TEST_F(FlatButtonTest, AnyValueIsAccepted) {
  auto& button = AddNew<FlatButton>("cmdSave");
  button.SetBackColor(Color(0xFFFFFFFF));
  button.SetForeColor(Color(0x80000100));
  EXPECT_EQ(button.BackColor(), Color(0xFFFFFFFF));
  EXPECT_EQ(button.ForeColor(), Color(0x80000100));
}

struct AccessKeyCase {
  const char* caption;
  const char* access_keys;
};

class FlatButtonAccessKeyTest : public DesktopTest, public ::testing::WithParamInterface<AccessKeyCase> {};

TEST_P(FlatButtonAccessKeyTest, IsTheCharacterAfterTheFirstAmpersand) {
  auto& button = AddNew<FlatButton>("cmdSave");
  button.SetCaption("&x");
  button.SetCaption(GetParam().caption);
  EXPECT_EQ(button.GetSurface().AccessKeys(), GetParam().access_keys);
  EXPECT_EQ(button.Caption(), GetParam().caption);
}

INSTANTIATE_TEST_SUITE_P(
    Captions, FlatButtonAccessKeyTest,
    ::testing::Values(AccessKeyCase{"&Save", "S"}, AccessKeyCase{"Sa&ve", "v"}, AccessKeyCase{"Save", ""},
                      AccessKeyCase{"", ""}, AccessKeyCase{"Save&", ""}, AccessKeyCase{"&", ""},
                      AccessKeyCase{"R&&D", "&"}, AccessKeyCase{"R&&D &Lab", "&"}, AccessKeyCase{"&a&b", "a"},
                      AccessKeyCase{"&\xC3\x84rger", "\xC3\x84"}, AccessKeyCase{"& Save", " "}));

TEST_F(FlatButtonTest, TheTableListsEventsInTheirNumbers) {
  std::vector<std::string> events;
  for (const EventInfo& event : FlatButton::Table().Events()) {
    events.push_back(std::to_string(event.number) + " " + std::string(event.name));
  }
  EXPECT_THAT(events, ElementsAre("1 Click", "2 KeyDown", "3 KeyPress", "4 KeyUp", "5 MouseDown",
                                  "6 MouseMove", "7 MouseUp"));
}

TEST_F(FlatButtonTest, DefaultsOfTheTableAreThoseOfInstances) {
  const auto& fresh = AddNew<FlatButton>("cmdNew");
  const auto& loaded = AddLoaded<FlatButton>("cmdLoaded");
  for (const PropertyInfo& property : FlatButton::Table().Properties()) {
    if (property.defaults.when_new.kind == DefaultValue::Kind::kFixed) {
      EXPECT_EQ(property.get(fresh), property.defaults.when_new.Value()) << property.name;
    }
    if (property.defaults.when_read.kind == DefaultValue::Kind::kFixed) {
      EXPECT_EQ(property.get(loaded), property.defaults.when_read.Value()) << property.name;
    }
  }
}

TEST_F(FlatButtonTest, AButtonsMembersAreReachableByName) {
  auto& button = AddNew<FlatButton>("cmdSave");
  SetByName(button, "Caption", "&Store");
  SetByName(button, "BackColor", 255.0);
  SetByName(button, "Enabled", 0);
  EXPECT_EQ(GetByName(button, "Caption"), Variant("&Store"));
  EXPECT_EQ(button.BackColor(), Color(255));
  EXPECT_FALSE(button.Enabled());
  EXPECT_EQ(GetByName(button, "hWnd"), Variant(button.hWnd()));
}

TEST_F(FlatButtonTest, AButtonFollowsChangesOfASharedFontAndCopiesTheAmbientOne) {
  auto& one = AddNew<FlatButton>("cmdOne");
  auto& two = AddNew<FlatButton>("cmdTwo");
  EXPECT_NE(one.GetFont(), two.GetFont());
  const FontRef font = MakeFont({.name = "Tahoma", .size = 14});
  one.SetFont(font);
  two.SetFont(font);
  font->SetUnderline(true);
  EXPECT_TRUE(one.GetFont()->Underline());
  EXPECT_EQ(one.GetFont(), two.GetFont());
}

}  // namespace
}  // namespace levelwidgets::testing
