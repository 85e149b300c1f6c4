// Every class looks the same as a component, drawn and in place, as in a form of the library's own.
#include <levelwidgets/activex/testing/component_fixture.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/platform/win32/native.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::activex {
namespace {

constexpr PixelSize kPixels{220, 140};

class ComponentLooksTest : public levelwidgets::testing::DesktopTest {
 protected:
  // The pixels of a picture, row by row.
  using Pixels = std::vector<COLORREF>;

  Pixels OnScreen(WindowHandle window) {
    Driver().Settle();
    HWND const native = win32::ToNative<HWND>(window);
    ::UpdateWindow(native);
    RECT place = {};
    ::GetWindowRect(native, &place);
    return PixelsOf([&](HDC target) {
      HDC const screen = ::GetDC(nullptr);
      ::BitBlt(target, 0, 0, kPixels.width, kPixels.height, screen, place.left, place.top, SRCCOPY);
      ::ReleaseDC(nullptr, screen);
    });
  }
  template <typename Draw>
  Pixels PixelsOf(Draw draw) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = kPixels.width;
    info.bmiHeader.biHeight = -kPixels.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HDC const target = ::CreateCompatibleDC(nullptr);
    HBITMAP const bitmap = ::CreateDIBSection(target, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ const former = ::SelectObject(target, bitmap);
    draw(target);
    ::GdiFlush();
    const auto* const first = static_cast<const COLORREF*>(bits);
    Pixels pixels(first, first + kPixels.width * kPixels.height);
    for (COLORREF& pixel : pixels) pixel &= 0xFFFFFF;  // the rest is nobody's
    ::SelectObject(target, former);
    ::DeleteObject(bitmap);
    ::DeleteDC(target);
    return pixels;
  }
  static std::size_t Differences(const Pixels& a, const Pixels& b) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < a.size(); ++i) count += a[i] != b[i];
    return count;
  }
};

TEST_F(ComponentLooksTest, AComponentLooksAsItsControlDoesInAForm) {
  const TwipSize size{Twips(kPixels.width * 15.0f), Twips(kPixels.height * 15.0f)};
  for (const ClassInfo* info : ControlClasses()) {
    SCOPED_TRACE(std::string(info->Name()));
    HostedControl& hosted = TheForm().Add(*info, "Sample", nullptr, {{Twips(150), Twips(150)}, size});
    // Without a text there is nothing to see in it.
    const bool is_text_box = info->Name() == "FlatTextBox";
    if (is_text_box) SetByName(*hosted.GetControl(), "Text", "Sample");
    const Pixels expected = OnScreen(hosted.GetControl()->GetSurface().hWnd());
    TheForm().Remove("Sample");
    EXPECT_NE(Differences(expected, Pixels(expected.size(), expected[0])), 0u) << "an empty picture";

    const ComPtr<IUnknown> object = MakeComponent(info->Name());
    const auto container =
        ComPtr<TestContainer>::Taking(new TestContainer(win32::ToNative<HWND>(TheForm().hWnd())));
    VARIANT name = {};
    name.vt = VT_BSTR;
    name.bstrVal = ::SysAllocString(L"Sample");
    container->ambients[DISPID_AMBIENT_DISPLAYNAME] = name;
    container->position = {10, 10, 10 + kPixels.width, 10 + kPixels.height};
    As<IOleObject>(object)->SetClientSite(container.Get());
    As<IPersistStreamInit>(object)->InitNew();
    if (is_text_box) Put(object.Get(), "Text", {"Sample"});
    SIZEL extent = {kPixels.width * 2540 / 96, kPixels.height * 2540 / 96};
    As<IOleObject>(object)->SetExtent(DVASPECT_CONTENT, &extent);
    const Pixels drawn = PixelsOf([&](HDC target) {
      const RECTL whole = {0, 0, kPixels.width, kPixels.height};
      As<IViewObject>(object)->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, target, &whole, nullptr,
                                    nullptr, 0);
    });
    EXPECT_EQ(Differences(drawn, expected), 0u) << "drawn";
    ASSERT_EQ(As<IOleObject>(object)->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr),
              S_OK);
    HWND window = nullptr;
    As<IOleInPlaceObject>(object)->GetWindow(&window);
    EXPECT_EQ(Differences(OnScreen(win32::FromNative<WindowHandle>(window)), expected), 0u) << "in place";
    As<IOleObject>(object)->Close(OLECLOSE_NOSAVE);
    As<IOleObject>(object)->SetClientSite(nullptr);
    ::SysFreeString(name.bstrVal);
  }
}

}  // namespace
}  // namespace levelwidgets::activex
