#include <levelwidgets/testing/virtual_screen.h>

#ifndef _WIN32

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace levelwidgets {

namespace {

// Fields of the picture file that the server keeps its pixels in, each of 32 bits, the highest byte first.
constexpr std::size_t kHeaderSize = 0;
constexpr std::size_t kWidth = 4;
constexpr std::size_t kHeight = 5;
constexpr std::size_t kBytesPerRow = 12;
constexpr std::size_t kColorCount = 19;
constexpr std::size_t kColorBytes = 12;

std::uint32_t Field(const std::uint8_t* file, std::size_t index) {
  const std::uint8_t* at = file + index * 4;
  return static_cast<std::uint32_t>(at[0]) << 24 | static_cast<std::uint32_t>(at[1]) << 16 |
         static_cast<std::uint32_t>(at[2]) << 8 | at[3];
}

std::filesystem::path NewFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "levelwidgets_screen_XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::runtime_error("no folder for the screen: " + name);
  return name;
}

// The first line that comes through `pipe`.
std::string LineFrom(int pipe) {
  std::string line;
  for (char c = 0;;) {
    pollfd ready{pipe, POLLIN, 0};
    if (poll(&ready, 1, 60000) != 1 || read(pipe, &c, 1) != 1)
      throw std::runtime_error("Xvfb does not start");
    if (c == '\n') return line;
    line += c;
  }
}

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

}  // namespace

VirtualScreen::VirtualScreen() : folder_(NewFolder()) {
  int number[2];
  if (pipe2(number, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  server_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"Xvfb", "-displayfd", "3", "-screen", "0", "800x600x24", "-fbdir",
                               folder_.string(), "-nolisten", "tcp", "-noreset"},
      ChildProcess::Options{.inherited = number[1]});
  close(number[1]);
  name_ = ":" + LineFrom(number[0]);
  close(number[0]);

  const std::filesystem::path pixels = folder_ / "Xvfb_screen0";
  const int file = open(pixels.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) throw std::runtime_error("the screen's pixels are not in " + pixels.string());
  file_size_ = std::filesystem::file_size(pixels);
  file_ = static_cast<const std::uint8_t*>(mmap(nullptr, file_size_, PROT_READ, MAP_SHARED, file, 0));
  close(file);
  size_ = {static_cast<int>(Field(file_, kWidth)), static_cast<int>(Field(file_, kHeight))};
  first_pixel_ = Field(file_, kHeaderSize) + Field(file_, kColorCount) * kColorBytes;
  row_bytes_ = Field(file_, kBytesPerRow);

  // It may never show a window that comes while it starts.
  const std::filesystem::path started = folder_ / "manager_started";
  manager_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"openbox", "--startup", "touch " + started.string()},
      ChildProcess::Options{.environment = {{"DISPLAY", name_}}});
  if (!WaitUntil([&] { return std::filesystem::exists(started); }))
    throw std::runtime_error("the window manager does not start");
}

VirtualScreen::~VirtualScreen() {
  if (file_) munmap(const_cast<std::uint8_t*>(file_), file_size_);
  manager_.reset();
  server_.reset();
  std::error_code failed;
  std::filesystem::remove_all(folder_, failed);
}

bool VirtualScreen::Try(const std::string& words) const {
  std::vector<std::string> command = Words(words);
  command.insert(command.begin(), "xdotool");
  return ChildProcess(command, {.environment = {{"DISPLAY", name_}}}).Ended() == 0;
}

void VirtualScreen::Do(const std::string& words) const {
  if (!Try(words)) throw std::runtime_error("xdotool cannot " + words);
}

void VirtualScreen::DoAtLast(const std::string& words) const {
  if (!WaitUntil([&] { return Try(words); })) throw std::runtime_error("xdotool cannot " + words);
}

// Asked for again and again: a window manager does not hear of a window that it does not know yet.
void VirtualScreen::Activate(const std::string& beginning) const {
  const auto is_active = [&] { return ActiveTitle().starts_with(beginning); };
  std::string pattern = "^" + beginning;
  std::ranges::replace(pattern, ' ', '.');  // one word
  const auto try_once = [&] {
    if (is_active()) return true;
    Try("search --onlyvisible --name " + pattern + " windowactivate");
    return WaitUntil(is_active, 1000);
  };
  if (!WaitUntil(try_once)) throw std::runtime_error("no window becomes active: " + beginning);
}

std::string VirtualScreen::PrintedBy(const std::string& shell_command) const {
  const std::string command = "export DISPLAY=" + name_ + "; " + shell_command;
  const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
  std::string printed;
  for (int c = 0; output && (c = std::fgetc(output.get())) != EOF;) printed += static_cast<char>(c);
  return printed;
}

// As the window manager shows it.
std::string VirtualScreen::TitleOf(const std::string& beginning) const {
  const std::string printed =
      PrintedBy("window=$(xdotool search --onlyvisible --name '^" + beginning +
                "' 2>/dev/null | tail -n 1) && LC_ALL=C.UTF-8 xprop -notype -id \"$window\" "
                "_NET_WM_VISIBLE_NAME 2>/dev/null");
  const std::size_t first = printed.find('"');
  const std::size_t last = printed.rfind('"');
  return first < last && last != std::string::npos ? printed.substr(first + 1, last - first - 1) : "";
}

std::string VirtualScreen::ActiveTitle() const {
  const std::string printed = PrintedBy("xdotool getactivewindow getwindowname 2>/dev/null");
  return printed.substr(0, printed.find('\n'));
}

ColorRef VirtualScreen::At(int x, int y) const {
  const std::uint8_t* pixel =
      file_ + first_pixel_ + static_cast<std::size_t>(y) * row_bytes_ + static_cast<std::size_t>(x) * 4;
  return {static_cast<std::uint32_t>(pixel[0]) << 16 | static_cast<std::uint32_t>(pixel[1]) << 8 | pixel[2]};
}

template <typename Wanted>
PixelRect VirtualScreen::FindIn(const PixelRect& area, const Wanted& is_wanted) const {
  PixelRect found{size_.width, size_.height, 0, 0};
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      if (!is_wanted(At(x, y))) continue;
      found = {std::min(found.left, x), std::min(found.top, y), std::max(found.right, x + 1),
               std::max(found.bottom, y + 1)};
    }
  }
  return found.empty() ? PixelRect{} : found;
}

PixelRect VirtualScreen::Find(ColorRef color) const {
  return FindIn({0, 0, size_.width, size_.height}, [&](ColorRef pixel) { return pixel == color; });
}

PixelRect VirtualScreen::FindDrawn(const PixelRect& area) const {
  const ColorRef background = At(area.left, area.top);
  return FindIn(area, [&](ColorRef pixel) { return pixel != background; });
}

PixelRect VirtualScreen::WaitFor(ColorRef color) const {
  PixelRect found;
  WaitUntil([&] { return !(found = Find(color)).empty(); });
  return found;
}

PixelRect VirtualScreen::WaitForAll(ColorRef color) const {
  constexpr int kLooks = 6;
  PixelRect found;
  int same = 0;
  WaitUntil([&] {
    const PixelRect now = Find(color);
    same = !now.empty() && now == found ? same + 1 : 0;
    found = now;
    return same == kLooks;
  });
  return found;
}

bool VirtualScreen::WaitWithout(ColorRef color) const {
  return WaitUntil([&] { return Find(color).empty(); });
}

}  // namespace levelwidgets

#endif
