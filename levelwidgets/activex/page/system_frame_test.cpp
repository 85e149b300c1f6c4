// The pages in the frame of the system. Under Wine it ignores OnStatusChange, so that its Apply stays grey
// and its OK applies nothing; there only what it shows is tested. Each picture is left in build/components.
#include <filesystem>
#include <fstream>
#include <set>

#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/page/page_fixture.h>
#include <levelwidgets/pages/registry.h>
#include <levelwidgets/platform/win32/screen_picture.h>
#include <levelwidgets/testing/source_dir.h>

// Behind the headers that it needs.
#include <prsht.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;

// As a bitmap of 24 bits, whose rows begin at the bottom.
void SavePicture(const Picture& picture, const std::string& path) {
  const auto width = static_cast<DWORD>(picture.size.width), height = static_cast<DWORD>(picture.size.height);
  const DWORD stride = (width * 3 + 3) / 4 * 4;
  BITMAPINFOHEADER info = {};
  info.biSize = sizeof info;
  info.biWidth = picture.size.width;
  info.biHeight = picture.size.height;
  info.biPlanes = 1;
  info.biBitCount = 24;
  BITMAPFILEHEADER header = {};
  header.bfType = 0x4D42;
  header.bfOffBits = sizeof header + sizeof info;
  header.bfSize = header.bfOffBits + stride * height;
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(&header), sizeof header);
  file.write(reinterpret_cast<const char*>(&info), sizeof info);
  std::string row(stride, '\0');
  for (DWORD y = height; y > 0; --y) {
    for (DWORD x = 0; x < width; ++x) {
      const std::uint32_t color = picture.pixels[(y - 1) * width + x];
      row[x * 3] = static_cast<char>(color >> 16);
      row[x * 3 + 1] = static_cast<char>(color >> 8);
      row[x * 3 + 2] = static_cast<char>(color);
    }
    file.write(row.data(), static_cast<std::streamsize>(row.size()));
  }
}

// The frame is modal: what is to be seen is looked at from a timer, which then closes it.
class SystemFrameTest : public PropertyPageTest {
 protected:
  void SetUp() override {
    PropertyPageTest::SetUp();
    for (const PageIdentity& identity : PageIdentities()) {
      DWORD cookie = 0;
      const auto factory = FactoryOf(Native(identity.class_id));
      ASSERT_EQ(::CoRegisterClassObject(Native(identity.class_id), factory.Get(), CLSCTX_INPROC_SERVER,
                                        REGCLS_MULTIPLEUSE, &cookie),
                S_OK);
      cookies_.push_back(cookie);
    }
    present = this;
    seen.clear();
  }
  // Wine's frame keeps a drawing object or two, whatever page is in it; that pages keep none is tested
  // without it.
  void TearDown() override {
    for (const DWORD cookie : cookies_) ::CoRevokeClassObject(cookie);
    Close();
    Settle();
    ForgetDrawingObjects();
    PropertyPageTest::TearDown();
  }

  static ComPtr<IClassFactory> FactoryOf(REFCLSID class_id) {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto get = reinterpret_cast<GetClassObject>(
        reinterpret_cast<void (*)()>(::GetProcAddress(ComponentModule(), "DllGetClassObject")));
    ComPtr<IClassFactory> factory;
    get(class_id, IID_IClassFactory, reinterpret_cast<void**>(factory.Receive()));
    return factory;
  }

  // Shows the pages of the component's class one after the other, and looks at each.
  HRESULT ShowFrame(const std::string& class_name) {
    CAUUID pages = {};
    Interface<ISpecifyPropertyPages>()->GetPages(&pages);
    for (const PageInfo* page : PagesOf(class_name)) names_.push_back(std::string(page->name));
    IUnknown* object = Object();
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 100, &LookAndGoOn);
    const HRESULT result = ::OleCreatePropertyFrame(Window(), 50, 50, L"Sample", 1, &object, pages.cElems,
                                                    pages.pElems, LOCALE_USER_DEFAULT, 0, nullptr);
    ::KillTimer(nullptr, timer);
    ::CoTaskMemFree(pages.pElems);
    names_.clear();
    page_ = nullptr;
    return result;
  }

  static HWND PageIn(HWND window) {
    HWND found = nullptr;
    ::EnumChildWindows(
        window,
        [](HWND child, LPARAM result) -> BOOL {
          wchar_t name[64] = {};
          ::GetClassNameW(child, name, 64);
          if (!std::wstring_view(name).starts_with(L"LevelWidgets") || !::IsWindowVisible(child)) return TRUE;
          *reinterpret_cast<HWND*>(result) = child;
          return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
  }
  static HWND TabsIn(HWND window) { return ::FindWindowExW(window, nullptr, L"SysTabControl32", nullptr); }

  static void CALLBACK LookAndGoOn(HWND, UINT, UINT_PTR, DWORD) {
    HWND const frame = ::FindWindowW(L"#32770", nullptr);
    if (!frame) return;
    HWND const page = PageIn(frame);
    if (!page || present->names_.empty()) {
      ::PostMessageW(frame, WM_COMMAND, IDCANCEL, 0);
      return;
    }
    // Some ticks later, when it has been painted.
    if (std::exchange(present->page_, page) != page) present->ticks_ = 0;
    if (++present->ticks_ < 5) return;
    const std::string name = present->names_.front();
    present->names_.erase(present->names_.begin());
    present->Look(frame, page, name);
    HWND const tabs = TabsIn(frame);
    if (present->names_.empty() || !tabs) {
      ::PostMessageW(frame, WM_COMMAND, IDCANCEL, 0);
    } else {
      ::SendMessageW(frame, PSM_SETCURSEL, 1, 0);
    }
  }
  void Look(HWND frame, HWND page, const std::string& name) {
    RECT outer = {}, inner = {};
    ::GetWindowRect(frame, &outer);
    ::GetWindowRect(page, &inner);
    const std::string folder = std::string(BuildDir()) + "/components";
    std::filesystem::create_directories(folder);
    SavePicture(win32::CaptureScreen({outer.left, outer.top, outer.right, outer.bottom}),
                folder + "/" + name + ".bmp");
    const Picture picture = win32::CaptureScreen({inner.left, inner.top, inner.right, inner.bottom});
    const std::size_t colors = std::set<std::uint32_t>(picture.pixels.begin(), picture.pixels.end()).size();
    seen.push_back(name + (colors > 3 ? " with fields" : " without fields"));
  }

  static inline SystemFrameTest* present = nullptr;
  static inline std::vector<std::string> seen;
  HWND page_ = nullptr;             // that was there on the last tick
  int ticks_ = 0;                   // since it came
  std::vector<std::string> names_;  // of the pages that are still to be looked at
  std::vector<DWORD> cookies_;
};

TEST_F(SystemFrameTest, ItShowsThePageOfEveryControl) {
  for (const char* name : {"FlatButton", "FlatLabel", "FlatScroll", "FlatTabStrip", "FlatTextBox",
                           "FlatDropDown", "FlatCalculator", "FlatCalendar"}) {
    Design(name);
    EXPECT_EQ(ShowFrame(name), S_OK) << name;
    EXPECT_THAT(std::exchange(seen, {}), ElementsAre("pp" + std::string(name) + " with fields"));
    Close();
  }
}

TEST_F(SystemFrameTest, ItShowsBothPagesOfAGrid) {
  Design("FlatGrid");
  Call(As<IDispatch>(Get(Object(), "Columns").value.punkVal).Get(), "Add", {"Price"});
  EXPECT_EQ(ShowFrame("FlatGrid"), S_OK);
  EXPECT_THAT(std::exchange(seen, {}),
              ElementsAre("ppFlatGrid with fields", "ppFlatGridColumns with fields"));
}

}  // namespace
}  // namespace levelwidgets::activex
