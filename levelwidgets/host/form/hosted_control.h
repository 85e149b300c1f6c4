// What a form adds to each control it holds: its name, place and part in keyboard handling.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/frame/control.h>
#include <levelwidgets/host/form/anchors.h>

namespace levelwidgets {

class Form;
struct Placement;

// The longest length and the farthest place that forms take: sums of a few of them are still pixels of 32
// bits.
inline constexpr Twips kMostTwips{1'000'000'000};

// The container's properties and events of one control, by name in Table() (Left, Top, Width, Height, Anchor,
// Visible, TabIndex, TabStop, Default, Cancel, Tag, ToolTipText, Name), and the site through which the
// control talks to its form. Outlives its removal from the form as long as somebody holds it; it then has no
// control.
class HostedControl : public Object, public ControlSite, public std::enable_shared_from_this<HostedControl> {
 public:
  static const ClassInfo& Table();
  // Only forms make them.
  HostedControl(Form& form, const ClassInfo& control_class, std::string name);

  // Null after the control was removed, or its form closed.
  const std::shared_ptr<Control>& GetControl() const { return control_; }
  Form* GetForm() const { return form_; }
  const ClassInfo& ControlClass() const { return control_class_; }

  // --- Properties -------------------------------------------------------------------------------

  const std::string& Name() const { return name_; }
  // Twips, relative to the form's inner area. More than kMostTwips in any direction raise 6.
  Twips Left() const { return position_.x; }
  void SetLeft(Twips left) { Move({left, position_.y}, size_); }
  Twips Top() const { return position_.y; }
  void SetTop(Twips top) { Move({position_.x, top}, size_); }
  // Negative lengths raise 5, and any beyond 1,000,000,000 twips raises 6.
  Twips Width() const { return size_.width; }
  void SetWidth(Twips width) { Move(position_, {width, size_.height}); }
  Twips Height() const { return size_.height; }
  void SetHeight(Twips height) { Move(position_, {size_.width, height}); }
  // The edges of the form that it keeps its distances from when the form is resized: "left", "top", "right"
  // and "bottom", with spaces or commas between. "" is "left top". With both edges of a direction it is
  // stretched, never below 0 twips. Raises 5 for any other word.
  std::string Anchor() const;
  void SetAnchor(const std::string& edges);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  // Place in the order of the Tab key; controls with equal numbers follow the order in which they were added.
  std::int32_t TabIndex() const { return tab_index_; }
  void SetTabIndex(std::int32_t index) { tab_index_ = index; }
  // Whether the Tab key stops here.
  bool TabStop() const { return tab_stop_; }
  void SetTabStop(bool stop) { tab_stop_ = stop; }
  // Enter clicks the default button, Escape the cancel button; a form has at most one of each, so that
  // setting it here clears it elsewhere.
  bool Default() const { return default_; }
  void SetDefault(bool is_default);
  bool Cancel() const { return cancel_; }
  void SetCancel(bool is_cancel);
  const std::string& Tag() const { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }
  const std::string& ToolTipText() const { return tool_tip_text_; }
  // Shown below the pointer once that has been over the control for half a second.
  void SetToolTipText(std::string text);

  // --- Methods ----------------------------------------------------------------------------------

  void Move(TwipPoint position, TwipSize size);
  // Gives it the keyboard focus, unless the control that has it is not valid and keeps it; raises 5 when it
  // is hidden or disabled.
  void SetFocus();
  // 0 brings it to the front of its siblings, 1 sends it to the back; anything else raises 5.
  void ZOrder(std::int32_t position);
  // The bag that the control would save.
  PropertyBag Properties() const;
  // Whether it is there, shown and enabled.
  bool CanTakeInput() const;
  // Outer rectangle in screen pixels.
  PixelRect ScreenRect() const;
  // Where a person would click it, in screen pixels.
  PixelPoint ScreenCentre() const;

  // --- Events -----------------------------------------------------------------------------------

  // The control has got the keyboard focus, or lost it, also to another window.
  Event<> GotFocus;
  Event<> LostFocus;
  // The focus is about to go to another control of the form, or Enter to its default button; cancelled, it
  // stays, and the key or the press that moved it is lost. The way to the cancel button is always open.
  Event<bool&> Validate;

  const ClassInfo& Class() const override { return Table(); }

  // --- Site -------------------------------------------------------------------------------------

  Platform& GetPlatform() override { return platform_; }
  WindowHandle ParentWindow() override;
  bool UserMode() override;
  bool DisplayAsDefault() override { return default_; }
  std::string DisplayName() override { return name_; }
  FontRef AmbientFont() override;
  Color AmbientBackColor() override;
  Color AmbientForeColor() override;
  void PropertyChanged(std::string_view name) override;
  void FocusChanged(bool has_focus, WindowHandle other) override;
  bool HandsFocusOn(WindowHandle other, std::function<void()> settle) override;
  bool TakeKey(KeyMessage& key) override;
  bool AcceptsPress() override;
  void InputArrived(InputKind kind) override;
  bool TakeError(std::string_view event, const Error& error) override;

 private:
  friend class Form;
  // Creates the control and starts it: loaded from `saved`, or new when there is none. A listener may remove
  // it meanwhile.
  void Create(const PropertyBag* saved, const Placement& place);
  // SetFocus, once the control that has the focus lets it go.
  void TakeFocus();
  // The form's inner size has changed.
  void FollowForm();
  void NotePlace();
  void PlaceControl();
  void CheckPlace(TwipPoint position, TwipSize size) const;
  // From now on the form has nothing from the control, nor the control from the form.
  void Disconnect();
  // Disconnects and gives up the control.
  void Detach();

  Platform& platform_;
  Form* form_;
  const std::weak_ptr<Form> origin_;  // also after the removal
  const ClassInfo& control_class_;
  std::shared_ptr<Control> control_;
  std::string name_;
  TwipPoint position_;
  TwipSize size_;
  Anchors anchors_;
  Span across_;  // as it was placed last; the form may have changed its size since
  Span down_;
  bool visible_ = true;
  bool focus_known_ = false;  // GotFocus has been raised, LostFocus not yet
  std::int32_t tab_index_ = 0;
  bool tab_stop_ = true;
  bool default_ = false;
  bool cancel_ = false;
  std::string tag_;
  std::string tool_tip_text_;
};

// What adding a control raises when a listener removes it, or closes the form, before it has been added.
Error RemovedWhileAdded(const HostedControl& control);

}  // namespace levelwidgets
