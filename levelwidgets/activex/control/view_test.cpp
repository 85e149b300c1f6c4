// A control's picture without its window.
#include <cstring>

#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ViewTest : public ComponentTest {
 protected:
  static constexpr int kWidth = 120;
  static constexpr int kHeight = 80;

  void SetUp() override {
    ComponentTest::SetUp();
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    device_ = ::CreateCompatibleDC(nullptr);
    bitmap_ = ::CreateDIBSection(device_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
    former_ = ::SelectObject(device_, bitmap_);
  }
  void TearDown() override {
    ::SelectObject(device_, former_);
    ::DeleteObject(bitmap_);
    ::DeleteDC(device_);
    ComponentTest::TearDown();
  }
  // Of `pixels` width and height, at 96 dots per inch.
  void SetExtent(int width, int height) {
    SIZEL size = {width * 2540 / 96 + 1, height * 2540 / 96 + 1};
    ASSERT_EQ(Interface<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  }
  HRESULT Draw(RECTL bounds) {
    return Interface<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, device_, &bounds,
                                          nullptr, nullptr, 0);
  }
  COLORREF At(int x, int y) { return ::GetPixel(device_, x, y); }

  HDC device_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ former_ = nullptr;
  void* bits_ = nullptr;
};

TEST_F(ViewTest, AControlThatIsNotInPlaceIsDrawnWhereTheContainerWantsIt) {
  Site("FlatButton");
  SetExtent(60, 30);
  Put(Object(), "BackColor", {0x00C0FF});
  Put(Object(), "ForeColor", {0x0000FF});
  Put(Object(), "Caption", {""});
  ASSERT_EQ(Draw({10, 20, 70, 50}), S_OK);
  EXPECT_EQ(At(9, 20), 0u);
  EXPECT_EQ(At(10, 20), 0x0000FFu);  // its border
  EXPECT_EQ(At(69, 49), 0x0000FFu);
  EXPECT_EQ(At(40, 35), 0x00C0FFu);
  EXPECT_EQ(At(70, 50), 0u);
}

TEST_F(ViewTest, TheSameBeforeAndAfterActivation) {
  Site("FlatButton");
  SetExtent(60, 30);
  Put(Object(), "BackColor", {0x00C0FF});
  ASSERT_EQ(Draw({0, 0, 60, 30}), S_OK);
  const std::vector<std::byte> before(static_cast<std::byte*>(bits_),
                                      static_cast<std::byte*>(bits_) + kWidth * kHeight * 4);
  Container().position = {0, 0, 60, 30};
  Verb(OLEIVERB_INPLACEACTIVATE);
  Settle();
  ASSERT_EQ(Draw({0, 0, 60, 30}), S_OK);
  ::GdiFlush();
  EXPECT_EQ(std::memcmp(before.data(), bits_, before.size()), 0);
}

TEST_F(ViewTest, PartsWithWindowsOfTheirOwnAreInThePicture) {
  Site("FlatTextBox");
  SetExtent(60, 30);
  Put(Object(), "BackColor", {0x80FFFF});
  ASSERT_EQ(Draw({0, 0, 60, 30}), S_OK);
  EXPECT_EQ(At(50, 20), 0x80FFFFu);  // the edit box
}

TEST_F(ViewTest, APictureIsStretchedOverOtherBounds) {
  Site("FlatButton");
  SetExtent(30, 15);
  Put(Object(), "BackColor", {0x00C0FF});
  Put(Object(), "ForeColor", {0x0000FF});
  ASSERT_EQ(Draw({0, 0, 90, 60}), S_OK);
  EXPECT_EQ(At(2, 3), 0x0000FFu);
  EXPECT_EQ(At(45, 30), 0x00C0FFu);
  EXPECT_EQ(At(89, 59), 0x0000FFu);
}

TEST_F(ViewTest, APictureGoesIntoAMetafile) {
  Site("FlatButton");
  SetExtent(60, 30);
  Put(Object(), "BackColor", {0x00C0FF});
  FORMATETC format = {CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF};
  STGMEDIUM medium = {};
  ASSERT_EQ(Interface<IDataObject>()->GetData(&format, &medium), S_OK);
  ASSERT_EQ(medium.tymed, static_cast<DWORD>(TYMED_ENHMF));
  const RECT whole = {0, 0, 60, 30};
  EXPECT_TRUE(::PlayEnhMetaFile(device_, medium.hEnhMetaFile, &whole));
  EXPECT_EQ(At(30, 15), 0x00C0FFu);
  ::ReleaseStgMedium(&medium);
  format.cfFormat = CF_TEXT;
  EXPECT_EQ(Interface<IDataObject>()->GetData(&format, &medium), DV_E_FORMATETC);
  EXPECT_EQ(Interface<IDataObject>()->QueryGetData(&format), DV_E_FORMATETC);
}

TEST_F(ViewTest, AContainerThatDrawsTheControlHearsThatItLooksDifferent) {
  Site("FlatLabel");
  ASSERT_EQ(Interface<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, static_cast<IAdviseSink*>(&Container())),
            S_OK);
  Put(Object(), "Caption", {"Name:"});
  EXPECT_THAT(Container().TakeCalls(), ElementsAre("OnViewChange"));
  Verb(OLEIVERB_INPLACEACTIVATE);
  Container().TakeCalls();
  Put(Object(), "Caption", {"Other:"});
  EXPECT_THAT(Container().TakeCalls(), IsEmpty());
}

TEST_F(ViewTest, ExtentsGoThereAndBack) {
  Site("FlatGrid");
  SIZEL size = {5000, 3000};
  ASSERT_EQ(Interface<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  SIZEL read = {};
  ASSERT_EQ(Interface<IOleObject>()->GetExtent(DVASPECT_CONTENT, &read), S_OK);
  EXPECT_NEAR(read.cx, 5000, 14);
  EXPECT_NEAR(read.cy, 3000, 14);
  SIZEL seen = {};
  ASSERT_EQ(Interface<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &seen), S_OK);
  EXPECT_EQ(seen.cx, read.cx);
  size = {-1, 3000};
  EXPECT_TRUE(FAILED(Interface<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size)));
  EXPECT_EQ(Interface<IOleObject>()->SetExtent(DVASPECT_ICON, &size), DV_E_DVASPECT);
}

TEST_F(ViewTest, AControlWithoutSizeIsDrawnWithoutAnError) {
  Site("FlatCalendar");
  SetExtent(0, 0);
  EXPECT_EQ(Draw({0, 0, 10, 10}), S_OK);
}

}  // namespace
}  // namespace levelwidgets::activex
