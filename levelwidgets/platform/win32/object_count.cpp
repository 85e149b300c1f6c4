#include <levelwidgets/platform/win32/object_count.h>

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <span>

#include <levelwidgets/platform/constants.h>
#include <levelwidgets/platform/win32/window_class.h>

// The process environment block.
extern "C" NTSYSAPI void* NTAPI RtlGetCurrentPeb();

namespace levelwidgets::win32 {
namespace {

// An entry of the handle table that gdi32 shares with the process.
struct TableEntry {
  std::uint64_t object;
  std::uint32_t owner;
  std::uint8_t kind;  // the part of the handle that says what it is of
  std::uint8_t generation;
  std::uint8_t type;
  std::uint8_t flags;
  std::uint64_t user_pointer;
};
static_assert(sizeof(TableEntry) == 24 && offsetof(TableEntry, kind) == 12);

constexpr std::size_t kTableEntries = 65536;

std::span<const TableEntry> HandleTable() {
  constexpr std::size_t kPointerInBlock = sizeof(void*) == 8 ? 0xF8 : 0x94;
  const char* const block = static_cast<const char*>(RtlGetCurrentPeb());
  const auto* const table = *reinterpret_cast<const TableEntry* const*>(block + kPointerInBlock);
  return {table, table ? kTableEntries : 0};
}

// Contexts of windows and regions are left out: the window manager makes and keeps them as it likes.
bool IsCounted(const TableEntry& entry) {
  constexpr std::uint8_t kKindBits = 0x7F;
  if (entry.type == 0) return false;
  switch (entry.kind & kKindBits) {
    case 0x09:  // bitmap
    case 0x0A:  // font
    case 0x10:  // brush
    case 0x30:  // pen
    case 0x41:  // memory context
    case 0x50:  // extended pen
      return true;
    default: return false;
  }
}

// A form with an edit box: an icon, a caption, a scroll bar and text.
bool ShowOneForm() {
  constexpr char kName[] = "LevelWidgetsFirst";
  constexpr DWORD kEditStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | ES_MULTILINE;
  const WindowClass window_class(kName, 0, reinterpret_cast<std::intptr_t>(&::DefWindowProcA));
  const auto instance = static_cast<HINSTANCE>(ModuleInstance());
  for (int color = 0; color < kSystemColorCount; ++color) ::GetSysColorBrush(color);
  const HWND form = ::CreateWindowExA(0, kName, kName, WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr, nullptr,
                                      instance, nullptr);
  ::CreateWindowExA(0, "EDIT", "text", kEditStyle, 0, 0, 100, 50, form, nullptr, instance, nullptr);
  ::ShowWindow(form, SW_SHOW);
  ::RedrawWindow(form, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
  return ::DestroyWindow(form) != FALSE;
}

}  // namespace

std::size_t CountDrawingObjects() {
  // Wine counts no objects for GetGuiResources, but its table holds nothing but this process's.
  if (const DWORD count = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS)) return count;
  const auto table = HandleTable();
  return static_cast<std::size_t>(std::count_if(table.begin(), table.end(), IsCounted));
}

void WarmUpDrawingObjects() { [[maybe_unused]] static const bool done = ShowOneForm(); }

}  // namespace levelwidgets::win32
