#include <levelwidgets/activex/object/runtime.h>

#include <levelwidgets/activex/object/fonts.h>

namespace levelwidgets::activex {

namespace {
constexpr std::uint32_t kRunTasks = 0x8000;  // the first number that is a window's own
}  // namespace

class Runtime::Parking : public WindowClient {
 public:
  explicit Parking(WindowApi& windows) : windows_(windows) {
    WindowRequest request;
    request.style = kWsPopup;
    request.ex_style = kWsExToolWindow;
    request.client = this;
    window_ = windows_.CreateWindowExA(request);
  }
  ~Parking() override { windows_.DestroyWindow(window_); }
  Parking(const Parking&) = delete;
  Parking& operator=(const Parking&) = delete;

  WindowHandle Window() const { return window_; }
  void Post(std::function<void()> task) {
    if (tasks_.empty()) windows_.PostMessageA(window_, kRunTasks, 0, 0);
    tasks_.push_back(std::move(task));
  }
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    if (message == kRunTasks) {
      // One of them may end the last component, and this with it.
      const auto tasks = std::exchange(tasks_, {});
      for (const auto& task : tasks) task();
      return 0;
    }
    return windows_.DefWindowProcA(window, message, wparam, lparam);
  }

 private:
  WindowApi& windows_;
  WindowHandle window_;
  std::vector<std::function<void()>> tasks_;
};

std::shared_ptr<Runtime> Runtime::OfThread() {
  thread_local std::weak_ptr<Runtime> of_thread;
  std::shared_ptr<Runtime> runtime = of_thread.lock();
  if (!runtime) of_thread = runtime = std::make_shared<Runtime>();
  return runtime;
}

Runtime::Runtime() : fonts_(std::make_unique<Fonts>()) {}

Runtime::~Runtime() = default;

WindowHandle Runtime::ParkingWindow() {
  if (!parking_) parking_ = std::make_unique<Parking>(platform_.Windows());
  return parking_->Window();
}

void Runtime::Post(std::function<void()> task) {
  ParkingWindow();
  parking_->Post(std::move(task));
}

IDispatch* Runtime::DispatchOf(const Object& object) const {
  const auto found = dispatches_.find(&object);
  return found == dispatches_.end() ? nullptr : found->second;
}

}  // namespace levelwidgets::activex
