// What holds for every body of saved bytes: shared by the fuzzer and by the test that replays what the fuzzer
// has found.
#pragma once

#include <string>

#include <levelwidgets/activex/persist/saved_bytes.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/platform/driver.h>

namespace levelwidgets {

class SavedBytesPromises {
 public:
  SavedBytesPromises(Platform& platform, DesktopDriver& desktop) : platform_(platform), desktop_(desktop) {}

  // Of a byte, the position of a class, and a body that is loaded into a control of the class. "" when all of
  // them are kept.
  std::string Broken(std::string_view input) {
    if (input.empty()) return "";
    const std::string before = desktop_.LiveCounts();
    std::string broken = BrokenBy(static_cast<unsigned char>(input.front()), input.substr(1));
    if (broken.empty() && desktop_.LiveCounts() != before)
      broken = "left behind: " + desktop_.LiveCounts() + " instead of " + before;
    return broken;
  }

 private:
  std::string BrokenBy(std::size_t number, std::string_view body) {
    const std::string bytes = WithSavedHeader(body);
    PropertyBag saved;
    try {
      saved = FromSavedBytes(bytes);
    } catch (const Error& error) {
      return error.Number() == kInvalidFileFormat ? "" : "refused with another error: " + error.Description();
    }
    if (ToSavedBytes(saved) != bytes) return "written again, the same properties are other bytes";
    const ClassInfo& info = *ControlClasses()[number % ControlClasses().size()];
    PropertyBag again;
    const std::string broken = BrokenByLoading(info, saved, &again);
    if (!broken.empty() || again.Entries().empty()) return broken;
    // What a control has saved, its like reads, if with other values.
    return BrokenByLoading(info, FromSavedBytes(ToSavedBytes(again)), nullptr);
  }

  // Leaves what the control saves in `again`.
  std::string BrokenByLoading(const ClassInfo& info, const PropertyBag& saved, PropertyBag* again) {
    const auto form = Form::Create(platform_, {});
    const std::size_t windows = desktop_.LiveWindows();
    try {
      form->Add(info, "ctl", &saved);
    } catch (const Error&) {
      if (form->Find("ctl")) return "a refused control is in the form";
      return desktop_.LiveWindows() == windows ? "" : "a refused control has windows";
    }
    form->Show();
    try {
      desktop_.Settle();
    } catch (const Error&) {
      // What a paint or a tick raises goes to whoever waits for it.
    }
    try {
      if (again) form->Find("ctl")->GetControl()->OnWriteProperties(*again);
    } catch (const Error& error) {
      *again = {};
      // Numbers may have no room in what they are saved as.
      if (error.Number() != kOverflow) return "saving raised " + error.Description();
    }
    return "";
  }

  Platform& platform_;
  DesktopDriver& desktop_;
};

}  // namespace levelwidgets
