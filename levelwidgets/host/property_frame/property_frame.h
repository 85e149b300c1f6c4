// The window that shows the property pages of controls.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/pages/page_target.h>
#include <levelwidgets/pages/property_page.h>

namespace levelwidgets {

class PageView;

// A form with the pages of a class behind tabs (tabPages) and the buttons cmdOK, cmdCancel and cmdApply,
// which is enabled while a page is changed. OK and Apply write every page on which something was edited; what
// a control refuses is shown in a message, its page comes to the front, and the frame stays open. Cancel and
// Escape close it and write nothing more; what a page does at once has been done. Ctrl+Tab and Ctrl+Shift+Tab
// go round the pages.
//
// It holds the form: whoever holds the frame, or the form that it gives, keeps both. A listener may remove
// any of the form's controls, or close it.
class PropertyFrame : public std::enable_shared_from_this<PropertyFrame> {
 public:
  struct Options {
    std::string caption = "Properties";
    std::string_view class_name = {};         // whose pages are shown
    std::vector<const PageInfo*> pages = {};  // instead of those
    std::vector<PageTargetRef> selected = {};
    // What is shown with a message, and gets no input until it is answered; the frame alone if it is null.
    std::function<std::vector<std::shared_ptr<Form>>()> forms = {};
  };

  // Hidden. Raises 5 when there is no page to show, and what a page raises when it cannot show the selection.
  static std::shared_ptr<PropertyFrame> Create(Platform& platform, Options options);
  // The pages of the controls' class, for the first of them: shown at once. Raises 5 without a control, and
  // for one whose class has no pages. The caption names the control.
  static std::shared_ptr<PropertyFrame> Show(const std::vector<std::shared_ptr<HostedControl>>& controls);

  // Holds the frame as well.
  std::shared_ptr<Form> GetForm() { return {shared_from_this(), form_.get()}; }
  PropertyPage& Page(std::size_t number) const;  // from 0
  std::size_t PageCount() const;

  // What was edited and not applied is lost.
  void SelectionChanged(const std::vector<PageTargetRef>& selected);
  // Returns whether all has been written; otherwise the message says what was refused.
  bool Apply();
  // Brings a page to the front, unless the field with the focus refuses to be left. Counted from 1.
  void SelectPage(std::int16_t number);

 private:
  PropertyFrame(const std::shared_ptr<Form>& form, Options options);

  void AddPages();
  void AddButtons();
  void ListenToAll();
  template <typename... Args, typename Deed>
  void Listen(Event<Args...>& event, Deed deed);

  void FollowTab(std::int16_t former, std::int16_t number);
  void PressOK();
  void PressApply();
  void Close();
  void EndMessage();
  void BringToFront(std::int16_t number);
  void ShowPage(std::int16_t number);
  void ShowChanged();
  void TakeKey(std::int16_t& code, std::int16_t shift);
  void Report(const std::string& text);
  void ShowReport(const std::string& text);
  TwipSize PaneSize() const;

  const std::shared_ptr<Form> form_;
  const Options options_;
  std::vector<std::shared_ptr<PageView>> views_;
  bool reporting_ = false;
  std::shared_ptr<Form> message_;  // null where the system shows it
};

}  // namespace levelwidgets
