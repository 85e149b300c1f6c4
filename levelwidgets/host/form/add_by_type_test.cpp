#include <levelwidgets/host/form/form.h>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets {

namespace {
class AddByTypeTest : public testing::DesktopTest {};

TEST_F(AddByTypeTest, ANewControlOfAClassIsAddedByItsType) {
  const auto form = Form::Create(Tracer(), {});
  FlatButton& button =
      form->Add<FlatButton>("cmdSave", {{Twips(150), Twips(300)}, TwipSize{Twips(900), Twips(450)}});
  EXPECT_EQ(button.Caption(), "cmdSave");
  const auto hosted = form->Find("cmdSave");
  EXPECT_EQ(hosted->GetControl().get(), &button);
  const PixelRect rect = hosted->ScreenRect();
  EXPECT_EQ(hosted->ScreenCentre(), (PixelPoint{rect.left + 30, rect.top + 15}));
}

}  // namespace

}  // namespace levelwidgets
