#include <levelwidgets/platform/tracing/parts.h>

namespace levelwidgets::tracing {
namespace {

class TracingClock final : public ClockApi {
 public:
  TracingClock(ClockApi& target, CallLog& log) : target_(target), log_(log) {}

  TimerHandle SetTimer(std::uint32_t interval_ms, std::function<void()> tick) override {
    log_.Record("SetTimer", interval_ms);
    return target_.SetTimer(interval_ms, std::move(tick));
  }
  bool KillTimer(TimerHandle timer) override {
    return log_.Pass("KillTimer", target_, &ClockApi::KillTimer, timer);
  }
  std::size_t LiveTimers() const override {
    log_.Record("LiveTimers");
    return target_.LiveTimers();
  }

  std::uint64_t GetTickCount() override {
    return log_.Pass("GetTickCount", target_, &ClockApi::GetTickCount);
  }
  Date Now() override { return log_.Pass("Now", target_, &ClockApi::Now); }

  void Post(std::function<void()> call) override {
    log_.Record("Post");
    target_.Post(std::move(call));
  }
  int Run() override { return log_.Pass("Run", target_, &ClockApi::Run); }
  void Quit(int status) override { log_.Pass("Quit", target_, &ClockApi::Quit, status); }
  void DoEvents() override { log_.Pass("DoEvents", target_, &ClockApi::DoEvents); }

 private:
  ClockApi& target_;
  CallLog& log_;
};

class TracingScreen final : public ScreenApi {
 public:
  TracingScreen(ScreenApi& target, CallLog& log) : target_(target), log_(log) {}

  PixelSize Size() override { return log_.Pass("Size", target_, &ScreenApi::Size); }
  float Width() override { return log_.Pass("Width", target_, &ScreenApi::Width); }
  float Height() override { return log_.Pass("Height", target_, &ScreenApi::Height); }
  std::vector<Monitor> Monitors() override { return log_.Pass("Monitors", target_, &ScreenApi::Monitors); }
  float TwipsPerPixelX() override { return log_.Pass("TwipsPerPixelX", target_, &ScreenApi::TwipsPerPixelX); }
  float TwipsPerPixelY() override { return log_.Pass("TwipsPerPixelY", target_, &ScreenApi::TwipsPerPixelY); }
  PixelSize DotsPerInch() override { return log_.Pass("DotsPerInch", target_, &ScreenApi::DotsPerInch); }

 private:
  ScreenApi& target_;
  CallLog& log_;
};

}  // namespace

std::unique_ptr<ClockApi> Trace(ClockApi& target, CallLog& log) {
  return std::make_unique<TracingClock>(target, log);
}

std::unique_ptr<ScreenApi> Trace(ScreenApi& target, CallLog& log) {
  return std::make_unique<TracingScreen>(target, log);
}

}  // namespace levelwidgets::tracing
