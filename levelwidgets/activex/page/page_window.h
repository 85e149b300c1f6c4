// A property page in the window of somebody else's frame.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/object/runtime.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/property_frame/page_view.h>
#include <levelwidgets/pages/property_page.h>

namespace levelwidgets::activex {

// A form without a frame of its own, with the page's controls. It shows what a field refuses, and what a
// control raises, in a message of the system in front of the frame.
class PageWindow : public std::enable_shared_from_this<PageWindow> {
 public:
  // Whether the frame uses a key that leads out of the page.
  using OfferKey = std::function<bool(MSG& message)>;

  // Hidden, and as large as the page. Raises 7 when there is no window to be had.
  static std::shared_ptr<PageWindow> Open(std::shared_ptr<Runtime> runtime,
                                          const std::shared_ptr<PropertyPage>& page, HWND frame,
                                          OfferKey offer);
  // What a page takes, in pixels.
  static PixelSize SizeOf(const std::shared_ptr<Runtime>& runtime, const PageInfo& page);
  ~PageWindow();
  PageWindow(const PageWindow&) = delete;
  PageWindow& operator=(const PageWindow&) = delete;

  // False once the frame has destroyed it.
  bool Exists() const { return !form_->Closed(); }
  void Close();
  void Show(bool visible);
  // In pixels of the frame's window.
  void Place(const RECT& place);
  // S_OK when the page has used the message; S_FALSE when it is the frame's.
  HRESULT Translate(MSG& message);
  // Gives the focus to the field, if there is such a field and it can take it.
  void Focus(std::string_view field);

 private:
  PageWindow(std::shared_ptr<Runtime> runtime, std::shared_ptr<Form> form, OfferKey offer)
      : runtime_(std::move(runtime)), form_(std::move(form)), offer_(std::move(offer)) {}

  void Fill(const std::shared_ptr<PropertyPage>& page);
  void TakeKey(std::int16_t& code, std::int16_t shift);
  bool HasAccessKey(std::int16_t character) const;
  bool IsAtEnd(bool forward) const;
  bool MayBeLeft() const;
  void FieldLeft(const std::string& name);
  void Report(const std::string& text);
  void ShowReport(const std::string& text);
  HWND Window() const;
  HWND FrameRoot() const;
  std::shared_ptr<HostedControl> FieldWith(HWND window) const;

  const std::shared_ptr<Runtime> runtime_;
  const std::shared_ptr<Form> form_;
  const OfferKey offer_;
  MSG* message_ = nullptr;  // which the frame has offered, and no field has used yet
  bool left_ = false;       // to the frame: the key is its own
  bool reporting_ = false;
};

}  // namespace levelwidgets::activex
