#include <levelwidgets/host/monkey/invariants.h>

#include <levelwidgets/host/monkey/exceptions.h>
#include <levelwidgets/host/monkey/invariant_checks.h>

namespace levelwidgets::monkey {

namespace {

using When = Invariant::When;

constexpr Invariant kInvariants[] = {
    {"focus", "The focus belongs to a window that there is and that is shown.", When::kAlways, CheckFocus},
    {"capture", "The capture belongs to a window that there is.", When::kAlways, CheckCapture},
    {"active window", "The active window is a top-level window that is shown.", When::kAlways, CheckActive},
    {"windows", "Every window on the form is that of a control on the form.", When::kAlways, CheckWindows},
    {"types", "Every property of a control reads as its declared type.", When::kNowAndThen, CheckTypes},
    {"write back", "A property takes back what was read from it and stays as it is.", When::kNowAndThen,
     CheckWriteBack},
    {"bag", "What a control saves loads into a control that saves the same.", When::kNowAndThen, CheckBag},
    {"reload", "The form that is saved loads, and saves as the same form.", When::kNowAndThen, CheckReload},
    {"repaint", "What is on the screen is what painting everything again puts there.", When::kNowAndThen,
     CheckRepaint},
    {"paint inside", "A control that paints changes nothing, neither inside nor outside of its rectangle.",
     When::kNowAndThen, CheckPaintInside},
    {"hover", "Of two controls that the pointer visits, at most one shows itself as under it.",
     When::kNowAndThen, CheckHover},
};

std::string Counted(std::size_t count, const char* what) {
  return count == 0 ? "" : std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

std::span<const Invariant> Invariants() { return kInvariants; }

const Invariant* FindInvariant(std::string_view name) {
  const auto* found = std::ranges::find(kInvariants, name, &Invariant::name);
  return found == std::end(kInvariants) ? nullptr : found;
}

std::string Check(const Invariant& invariant, const Subject& subject) {
  std::string broken;
  try {
    broken = invariant.check(subject);
  } catch (const ThrownOnPurpose&) {
    throw;
  } catch (const Error& error) {
    if (!InputMayRaise(error, subject.form)) broken = error.what();
  } catch (const std::exception& error) {
    broken = error.what();
  }
  return broken.empty() ? "" : std::string(invariant.name) + ": " + broken;
}

std::string CheckAlways(const Subject& subject) {
  for (const Invariant& invariant : kInvariants) {
    if (invariant.when != When::kAlways) continue;
    if (std::string broken = Check(invariant, subject); !broken.empty()) return broken;
  }
  return "";
}

std::string CloseEverything(memory::Desktop& desktop) {
  std::vector<WindowHandle> open;
  for (const memory::Window* window : desktop.Windows().Tree().Desktop().children) {
    open.push_back(window->handle);
  }
  for (const WindowHandle window : open) desktop.Windows().SendMessageA(window, kWmClose, 0, 0);
  desktop.Settle();
  std::string left;
  for (const std::string& counted :
       {Counted(desktop.LiveObjects(), "drawing object"), Counted(desktop.LiveWindows(), "window"),
        Counted(desktop.LiveTimers(), "timer")}) {
    if (!counted.empty()) left += (left.empty() ? "" : ", ") + counted;
  }
  return left;
}

bool IsDocumented(std::int32_t error_number) {
  constexpr std::int32_t kAutomation[] = {kInvalidCall,
                                          kOverflow,
                                          kSubscriptOutOfRange,
                                          kDivisionByZero,
                                          kTypeMismatch,
                                          kInvalidPropertyValue,
                                          kPropertyIsReadOnly,
                                          kNoSuchMember,
                                          kWrongNumberOfArguments,
                                          kKeyInUse};
  return std::ranges::find(kAutomation, error_number) != std::end(kAutomation) ||
         (error_number >= ObjectErrorNumber(kInvalidTabCode) &&
          error_number <= ObjectErrorNumber(kInvalidRowCountCode));
}

}  // namespace levelwidgets::monkey
