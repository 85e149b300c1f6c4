#include <levelwidgets/activex/object/runtime.h>

#include <levelwidgets/activex/object/fonts.h>

namespace levelwidgets::activex {

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
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override {
    return windows_.DefWindowProcA(window, message, wparam, lparam);
  }

 private:
  WindowApi& windows_;
  WindowHandle window_;
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

IDispatch* Runtime::DispatchOf(const Object& object) const {
  const auto found = dispatches_.find(&object);
  return found == dispatches_.end() ? nullptr : found->second;
}

}  // namespace levelwidgets::activex
