// Displays whose pixels are not square: lengths across go by one measure, lengths down by the other.
#include <levelwidgets/frame/parts/text_box.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/other_screen.h>

namespace levelwidgets::testing {
namespace {

class Plate : public Control {
 public:
  static const ClassInfo& Table() {
    static constexpr auto data =
        ClassTable(ControlClass<Plate>("Plate", "Notes where it is pressed."), table::Properties());
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Plate(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0), .fore_color = Color(0), .font = {}}) {}
  const ClassInfo& Class() const override { return Table(); }
  void OnMouseDown(const PointerInput& input) override { pressed = input.at; }

  TwipPoint pressed;
  TextBox txtMain{*this, false};
};

class OblongPixelsTest : public DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    platform_ = std::make_unique<PlatformWithScreen>(Tracer(), OblongScreen(Tracer()));
    form_ = Form::Create(*platform_, {});
    form_->MoveTo({100, 100});
    form_->Show();
    plate_ = dynamic_cast<Plate*>(form_
                                      ->Add(Plate::Table(), "plt", nullptr,
                                            {{Twips(600), Twips(600)}, TwipSize{Twips(1500), Twips(1500)}})
                                      .GetControl()
                                      .get());
    Driver().Settle();
  }
  void TearDown() override {
    form_.reset();
    DesktopTest::TearDown();
  }
  // Outer rectangle of `window` in client pixels of `parent`.
  PixelRect PlaceIn(WindowHandle parent, WindowHandle window) {
    PixelRect rect;
    PixelPoint origin;
    Windows().GetWindowRect(window, rect);
    Windows().ClientToScreen(parent, origin);
    return rect.Offset(-origin.x, -origin.y);
  }

  std::unique_ptr<PlatformWithScreen> platform_;
  std::shared_ptr<Form> form_;
  Plate* plate_ = nullptr;
};

TEST_F(OblongPixelsTest, ASurfaceIsPlacedAndMeasuredByBothMeasures) {
  EXPECT_EQ(plate_->GetSurface().ClientPixels(), (PixelRect{0, 0, 100, 75}));
  EXPECT_EQ(PlaceIn(form_->hWnd(), plate_->GetSurface().hWnd()), (PixelRect{40, 30, 140, 105}));
}

TEST_F(OblongPixelsTest, ThePointerArrivesInTwipsOfBothMeasures) {
  PixelPoint at{10, 10};
  Windows().ClientToScreen(plate_->GetSurface().hWnd(), at);
  Driver().MovePointer(at);
  Driver().Press(kLeftButton);
  Driver().Release(kLeftButton);
  EXPECT_EQ(plate_->pressed, (TwipPoint{Twips(150), Twips(200)}));
}

TEST_F(OblongPixelsTest, AnEditBoxIsPlacedByBothMeasures) {
  TextBox& edit = plate_->txtMain;
  edit.Move({Twips(300), Twips(300)}, {Twips(600), Twips(600)});
  edit.SetVisible(true);
  EXPECT_EQ(PlaceIn(plate_->GetSurface().hWnd(), edit.hWnd()), (PixelRect{20, 15, 60, 45}));
  edit.Move({Twips(600), Twips(600)}, {Twips(600), Twips(600)});
  EXPECT_EQ(PlaceIn(plate_->GetSurface().hWnd(), edit.hWnd()), (PixelRect{40, 30, 80, 60}));
}

}  // namespace
}  // namespace levelwidgets::testing
