#include <levelwidgets/platform/tracing/tracing_platform.h>

#include <levelwidgets/platform/tracing/parts.h>

namespace levelwidgets {

struct TracingPlatform::Parts {
  explicit Parts(Platform& target)
      : drawing(tracing::Trace(target.Drawing(), log)),
        windows(tracing::Trace(target.Windows(), log)),
        clock(tracing::Trace(target.Clock(), log)),
        screen(tracing::Trace(target.Screen(), log)),
        conversions(tracing::Trace(target.Conversions(), log)) {}

  tracing::CallLog log;
  std::unique_ptr<DrawingApi> drawing;
  std::unique_ptr<WindowApi> windows;
  std::unique_ptr<ClockApi> clock;
  std::unique_ptr<ScreenApi> screen;
  std::unique_ptr<ConversionApi> conversions;
};

TracingPlatform::TracingPlatform(Platform& target) : parts_(std::make_unique<Parts>(target)) {}
TracingPlatform::~TracingPlatform() = default;

void TracingPlatform::Start() { parts_->log.active = true; }
void TracingPlatform::Stop() { parts_->log.active = false; }
bool TracingPlatform::active() const { return parts_->log.active; }
void TracingPlatform::Note(std::string name, std::vector<TraceArgument> arguments) {
  parts_->log.Add({std::move(name), std::move(arguments)});
}

std::vector<TracedCall> TracingPlatform::TakeCalls() { return parts_->log.Take(); }

DrawingApi& TracingPlatform::Drawing() { return *parts_->drawing; }
WindowApi& TracingPlatform::Windows() { return *parts_->windows; }
ClockApi& TracingPlatform::Clock() { return *parts_->clock; }
ScreenApi& TracingPlatform::Screen() { return *parts_->screen; }
ConversionApi& TracingPlatform::Conversions() { return *parts_->conversions; }

}  // namespace levelwidgets
