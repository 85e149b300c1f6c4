// Components without a registration: by the manifest beside the library, which a program's own manifest
// names.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <objbase.h>
#include <ocidl.h>
#include <oleauto.h>

#include <bit>
#include <filesystem>
#include <fstream>

#include <levelwidgets/activex/identity/component_classes.h>
#include <levelwidgets/activex/identity/manifest.h>
#include <levelwidgets/activex/identity/type_library.h>
#include <levelwidgets/activex/testing/component_module.h>

namespace levelwidgets::activex {
namespace {

namespace fs = std::filesystem;

constexpr int kManifestBits = static_cast<int>(8 * sizeof(void*));

// A folder with the library, its manifest and that of a program; what the latter says holds for this thread
// meanwhile.
class UnregisteredUse : public ::testing::Test {
 protected:
  UnregisteredUse() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    fs::copy_file(ComponentModulePath(), folder_ / LibraryFileName(kManifestBits));
    Write(AssemblyName(kManifestBits) + ".manifest", LibraryManifest(kManifestBits));
    Write("program.manifest",
          "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
          "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
          "<assemblyIdentity type=\"win32\" name=\"Program\" version=\"1.0.0.0\"/>\n" +
              DependencyText(kManifestBits) + "</assembly>\n");
    const std::wstring program = (folder_ / "program.manifest").wstring();
    const std::wstring folder = folder_.wstring();
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    description.lpSource = program.c_str();
    description.lpAssemblyDirectory = folder.c_str();
    context_ = ::CreateActCtxW(&description);
    if (context_ != INVALID_HANDLE_VALUE) ::ActivateActCtx(context_, &cookie_);
    initialized_ = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  }
  ~UnregisteredUse() override {
    if (SUCCEEDED(initialized_)) ::CoUninitialize();
    if (cookie_ != 0) ::DeactivateActCtx(0, cookie_);
    if (context_ != INVALID_HANDLE_VALUE) ::ReleaseActCtx(context_);
    std::error_code stays;  // a library that is still loaded
    fs::remove_all(folder_, stays);
  }

  void Write(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }

  const fs::path folder_ =
      fs::temp_directory_path() / ("levelwidgets_unregistered_" + std::to_string(::GetCurrentProcessId()));
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
  HRESULT initialized_ = E_FAIL;
};

TEST_F(UnregisteredUse, TheSystemTakesTheManifest) {
  EXPECT_NE(context_, INVALID_HANDLE_VALUE) << ::GetLastError();
  EXPECT_NE(cookie_, 0u);
}

// The system finds a class of its own making by the name, which stands for the one of the manifest.
TEST_F(UnregisteredUse, EveryNameMakesAnObjectOfItsClass) {
  for (const ComponentClass& each : ComponentClasses()) {
    if (!each.is_control) continue;
    for (const std::string& name : {each.info->QualifiedName(), each.info->QualifiedName() + ".1"}) {
      const std::wstring wide(name.begin(), name.end());
      CLSID found{};
      EXPECT_EQ(::CLSIDFromProgID(wide.c_str(), &found), S_OK) << name;
      IPersist* made = nullptr;
      EXPECT_EQ(::CoCreateInstance(found, nullptr, CLSCTX_INPROC_SERVER, IID_IPersistStreamInit,
                                   reinterpret_cast<void**>(&made)),
                S_OK)
          << name;
      if (!made) continue;
      CLSID is{};
      EXPECT_EQ(made->GetClassID(&is), S_OK) << name;
      EXPECT_EQ(std::bit_cast<Guid>(is), each.identity->class_id) << name;
      made->Release();
    }
  }
}

TEST_F(UnregisteredUse, EveryClassThatUsersMayMakeIsMade) {
  for (const ComponentClass& each : ComponentClasses()) {
    if (!each.Creatable()) continue;
    IUnknown* made = nullptr;
    EXPECT_EQ(::CoCreateInstance(std::bit_cast<GUID>(each.identity->class_id), nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IUnknown, reinterpret_cast<void**>(&made)),
              S_OK)
        << each.info->Name();
    if (made) made->Release();
  }
}

TEST_F(UnregisteredUse, TheTypeLibraryIsThatInTheLibrary) {
  BSTR path = nullptr;
  ASSERT_EQ(::QueryPathOfRegTypeLib(std::bit_cast<GUID>(kLibraryId), kLibraryMajor, kLibraryMinor, 0, &path),
            S_OK);
  EXPECT_EQ(fs::path(path).filename(), LibraryFileName(kManifestBits));
  ::SysFreeString(path);
}

TEST_F(UnregisteredUse, WithoutTheManifestThereAreNoClasses) {
  ASSERT_TRUE(::DeactivateActCtx(0, cookie_));
  cookie_ = 0;
  CLSID found{};
  EXPECT_NE(::CLSIDFromProgID(L"LevelWidgets.FlatCalendar.1", &found), S_OK);
}

}  // namespace
}  // namespace levelwidgets::activex
