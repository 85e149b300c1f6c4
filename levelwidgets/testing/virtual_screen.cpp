#include <levelwidgets/testing/virtual_screen.h>

#ifndef _WIN32

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace levelwidgets {

namespace {

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
    if (poll(&ready, 1, kPatience) != 1 || read(pipe, &c, 1) != 1)
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

// The screen's pixels, read through the X server, which gives them between two drawings.
class VirtualScreen::Pixels {
 public:
  explicit Pixels(const std::string& display) : connection_(connect_(display.c_str(), nullptr)) {
    if (connection_failed_(connection_)) throw std::runtime_error("no connection to the screen " + display);
    const xcb_screen_t& screen = *screens_(setup_(connection_)).data;
    root_ = screen.root;
    size_ = {screen.width_in_pixels, screen.height_in_pixels};
  }
  Pixels(const Pixels&) = delete;
  Pixels& operator=(const Pixels&) = delete;
  ~Pixels() {
    disconnect_(connection_);
    dlclose(library_);
  }

  const PixelSize& Size() const { return size_; }
  void Read() {
    const auto cookie =
        get_image_(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_, 0, 0,
                   static_cast<std::uint16_t>(size_.width), static_cast<std::uint16_t>(size_.height), ~0u);
    image_.reset(get_image_reply_(connection_, cookie, nullptr));
    if (!image_) throw std::runtime_error("the screen cannot be read");
    first_ = reinterpret_cast<const std::uint32_t*>(image_data_(image_.get()));
  }
  // As it was read last: 0xXXRRGGBB each.
  const std::uint32_t* Row(int y) const { return first_ + static_cast<std::ptrdiff_t>(y) * size_.width; }

 private:
  struct Free {
    void operator()(void* reply) const { std::free(reply); }
  };

  template <typename Function>
  Function* Load(const char* name) const {
    void* const found = library_ ? dlsym(library_, name) : nullptr;
    if (!found) throw std::runtime_error(std::string("libxcb.so.1 has no ") + name);
    return reinterpret_cast<Function*>(found);
  }

  // From where SDL has it: what is linked with this needs no library of X.
  void* library_ = dlopen("libxcb.so.1", RTLD_NOW);
  decltype(&xcb_connect) connect_ = Load<decltype(xcb_connect)>("xcb_connect");
  decltype(&xcb_disconnect) disconnect_ = Load<decltype(xcb_disconnect)>("xcb_disconnect");
  decltype(&xcb_connection_has_error) connection_failed_ =
      Load<decltype(xcb_connection_has_error)>("xcb_connection_has_error");
  decltype(&xcb_get_setup) setup_ = Load<decltype(xcb_get_setup)>("xcb_get_setup");
  decltype(&xcb_setup_roots_iterator) screens_ =
      Load<decltype(xcb_setup_roots_iterator)>("xcb_setup_roots_iterator");
  decltype(&xcb_get_image) get_image_ = Load<decltype(xcb_get_image)>("xcb_get_image");
  decltype(&xcb_get_image_reply) get_image_reply_ =
      Load<decltype(xcb_get_image_reply)>("xcb_get_image_reply");
  decltype(&xcb_get_image_data) image_data_ = Load<decltype(xcb_get_image_data)>("xcb_get_image_data");
  xcb_connection_t* connection_;
  xcb_window_t root_ = 0;
  PixelSize size_;
  std::unique_ptr<xcb_get_image_reply_t, Free> image_;
  const std::uint32_t* first_ = nullptr;
};

VirtualScreen::VirtualScreen() : folder_(NewFolder()) {
  int number[2];
  if (pipe2(number, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  server_ =
      std::make_unique<ChildProcess>(std::vector<std::string>{"Xvfb", "-displayfd", "3", "-screen", "0",
                                                              "800x600x24", "-nolisten", "tcp", "-noreset"},
                                     ChildProcess::Options{.inherited = number[1]});
  close(number[1]);
  name_ = ":" + LineFrom(number[0]);
  close(number[0]);

  pixels_ = std::make_unique<Pixels>(name_);
  StartManager();
}

// It may never show a window that comes while it starts.
void VirtualScreen::StartManager() {
  const std::filesystem::path started = folder_ / "manager_started";
  std::filesystem::remove(started);
  manager_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"openbox", "--startup", "touch " + started.string()},
      ChildProcess::Options{.environment = {{"DISPLAY", name_}}});
  if (!WaitUntil([&] { return std::filesystem::exists(started); }))
    throw std::runtime_error("the window manager does not start");
}

void VirtualScreen::EndManager() { manager_.reset(); }

VirtualScreen::~VirtualScreen() {
  pixels_.reset();
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

bool VirtualScreen::WaitUntilEmpty() const {
  return WaitUntil([&] {
    const std::string windows = PrintedBy("xprop -root -notype _NET_CLIENT_LIST 2>/dev/null");
    return !windows.empty() && windows.find("0x") == std::string::npos;
  });
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

// Without calls in the inner loop, which programs that are not optimised take a long time for.
PixelRect VirtualScreen::FindIn(const PixelRect& area, ColorRef color, bool equal) const {
  const std::uint32_t sought = static_cast<std::uint32_t>(color.red()) << 16 |
                               static_cast<std::uint32_t>(color.green()) << 8 | color.blue();
  PixelRect found{area.right, area.bottom, area.left, area.top};
  for (int y = area.top; y < area.bottom; ++y) {
    const std::uint32_t* const row = pixels_->Row(y);
    for (int x = area.left; x < area.right; ++x) {
      if (((row[x] & 0xFFFFFF) == sought) != equal) continue;
      found = {std::min(found.left, x), std::min(found.top, y), std::max(found.right, x + 1), y + 1};
    }
  }
  return found.empty() ? PixelRect{} : found;
}

PixelRect VirtualScreen::Find(ColorRef color) const {
  pixels_->Read();
  return FindIn({0, 0, pixels_->Size().width, pixels_->Size().height}, color, true);
}

PixelRect VirtualScreen::FindDrawn(const PixelRect& area) const {
  pixels_->Read();
  const std::uint32_t first = pixels_->Row(area.top)[area.left];
  const ColorRef background{(first & 0xFF) << 16 | (first & 0xFF00) | (first >> 16 & 0xFF)};
  return FindIn(area, background, false);
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
