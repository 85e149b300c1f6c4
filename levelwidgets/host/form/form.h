// A form: a top-level window that holds controls.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include <levelwidgets/host/form/hosted_control.h>
#include <levelwidgets/host/form/tool_tip.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets {

// Each member has a default, so that a compiler has nothing to warn of where a program names only some.
struct FormOptions {
  std::string name = "frmForm";
  std::string caption = {};
  TwipSize size{Twips(6000), Twips(4500)};  // inner
  // Of the screen, the outer left top corner; in the middle where it is not given.
  std::optional<Twips> left = {};
  std::optional<Twips> top = {};
  FontDescription font = {};
  Color back_color = kButtonFace;
  bool key_preview = false;
  bool design = false;  // design mode: the controls get no input
  // A window of somebody else's: the form is a child of it, without a frame of its own and at (0, 0) in it
  // until MoveTo. None for a window on the desktop.
  WindowHandle parent = {};
};

// Where a control is put when it is added.
struct Placement {
  TwipPoint position = {};
  std::optional<TwipSize> size = {};  // the class's own when not given
};

// The length of `place`, which has a size, that the flags of a row name; null for flags that name none.
Twips* LengthOf(Placement& place, MemberFlags flags);

// Whether a script can have it as a global name: a letter or "_", then letters, digits and "_".
bool IsControlName(std::string_view name);

// By name in Table(): Name, Caption, Left, Top, Width, Height, Font, BackColor, KeyPreview, Design,
// ActiveControl and the events.
//
// A form is shared: whoever runs its code holds a reference, so that a handler may drop the last other one.
class Form : public Object, public WindowClient, public std::enable_shared_from_this<Form> {
 public:
  static const ClassInfo& Table();
  // Hidden.
  static std::shared_ptr<Form> Create(Platform& platform, FormOptions options);
  ~Form() override;

  // --- Properties -------------------------------------------------------------------------------

  const std::string& Name() const { return options_.name; }
  const std::string& Caption() const { return options_.caption; }
  void SetCaption(std::string caption);
  // The outer left top corner on the screen, twips. A form stands in the middle of the screen until it is
  // placed. More than kMostTwips in any direction raise 6.
  Twips Left() const;
  void SetLeft(Twips left);
  Twips Top() const;
  void SetTop(Twips top);
  // Whether Left or Top has been set, so that it is part of what a save keeps.
  bool LeftIsSet() const { return options_.left.has_value(); }
  bool TopIsSet() const { return options_.top.has_value(); }
  // Inner size, twips. Negative lengths raise 5, more than kMostTwips raise 6.
  Twips Width() const { return options_.size.width; }
  void SetWidth(Twips width) { SetSize({width, options_.size.height}); }
  Twips Height() const { return options_.size.height; }
  void SetHeight(Twips height) { SetSize({options_.size.width, height}); }
  // The ambient font of the controls, which get a copy each.
  FontRef GetFont() const { return font_; }
  void SetFont(FontRef font);
  Color BackColor() const { return options_.back_color; }
  void SetBackColor(Color color);
  // Whether the form hears every key before the control that it is for.
  bool KeyPreview() const { return options_.key_preview; }
  void SetKeyPreview(bool preview) { options_.key_preview = preview; }
  bool Design() const { return options_.design; }
  WindowHandle hWnd() const { return window_; }
  bool Closed() const { return !window_; }
  Platform& GetPlatform() const { return platform_; }

  // --- Methods ----------------------------------------------------------------------------------

  void Show();
  void Hide();
  // Raises Unload; closes the window and removes every control unless a listener cancels. Returns whether
  // closed.
  bool Close();
  // Moves it to the middle of the screen, unless Left or Top place it.
  void Centre() { PlaceWindow(); }
  // The form's client area moved to `screen` pixels (its outer left top corner); a child's to those of its
  // parent.
  void MoveTo(PixelPoint screen);

  // Adds a control of `control_class`: loaded from `saved`, or a new instance when null. It has its size from
  // the start, when it reads its properties. Raises 457 when the name is taken; 5 for what is no
  // IsControlName, when the form is closed, and when a listener removes the control or closes the form
  // meanwhile; PropertyRefused for what the control refuses of `saved`. Nothing is added then.
  HostedControl& Add(const ClassInfo& control_class, std::string name, const PropertyBag* saved = nullptr,
                     const Placement& place = {});
  // A new instance of the control class T.
  template <typename T>
  T& Add(std::string name, const Placement& place = {}) {
    return static_cast<T&>(*Add(T::Table(), std::move(name), nullptr, place).GetControl());
  }
  // Null when there is none of that name.
  std::shared_ptr<HostedControl> Find(std::string_view name) const;
  // False when there is none. The control is destroyed when its own code has returned.
  bool Remove(std::string_view name);
  // In the order added.
  const std::vector<std::shared_ptr<HostedControl>>& Controls() const { return controls_; }
  // The control with the keyboard focus; null when none has it.
  std::shared_ptr<HostedControl> ActiveControl() const;
  // The same for the table.
  ObjectRef ActiveControlObject() const { return ActiveControl(); }
  // Outer rectangle in screen pixels.
  PixelRect ScreenRect() const;

  // --- Events -----------------------------------------------------------------------------------

  Event<> Load;
  Event<> Resize;
  Event<> Activate;
  Event<> Deactivate;
  Event<bool&> Unload;
  // With KeyPreview, before the control does anything with the key and before it moves the focus or presses a
  // button. A key or character that a listener sets to 0 goes no further.
  Event<std::int16_t&, std::int16_t> KeyDown;  // code, shift
  Event<std::int16_t&> KeyPress;               // the character
  Event<std::int16_t&, std::int16_t> KeyUp;
  Event<std::string_view, std::string_view> PropertyChanged;  // control, property
  // Of no table: the form has left the screen, hidden or closed. Its window, if it is closed, is still the
  // active one.
  Event<> Gone;

  // Gets the errors that the code of a control, or of the form itself ("" as the control), raises by itself
  // while it handles a message or a tick: `event` names which. True when it has reported the error, which
  // then goes no further; without a handler errors pass through to whoever made the message or the tick
  // happen.
  using ErrorHandler = std::function<bool(std::string_view control, std::string_view event, const Error&)>;
  void SetErrorHandler(ErrorHandler handler) { error_handler_ = std::move(handler); }

  // Raises Load; whoever has filled the form calls it once, before the form is shown.
  void Loaded();

  const ClassInfo& Class() const override { return Table(); }
  LResult OnMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam) override;

 private:
  friend class HostedControl;
  Form(Platform& platform, FormOptions options);

  LResult HandleMessage(WindowHandle window, std::uint32_t message, WParam wparam, LParam lparam);
  bool TakeError(std::string_view control, std::string_view event, const Error& error) const;
  void CheckName(const std::string& name) const;
  void SetSize(TwipSize size);
  std::uint32_t Style() const;
  // Whether its window is this one, or is in it.
  bool IsIn(WindowHandle window) const;
  bool Minimised() const;
  PixelSize ClientSize() const;
  void Paint();
  void PlaceWindow();
  void ClientResized();
  void ClientMoved();
  void CloseWindow();
  void Forget(const std::shared_ptr<HostedControl>& control);

  // Keyboard: form_keyboard.cpp.
  bool TakeKey(KeyMessage& key);
  bool PreviewKey(KeyMessage& key);
  bool KeyMessageToForm(std::uint32_t message, WParam wparam);
  std::vector<HostedControl*> TabOrder() const;
  std::vector<HostedControl*> TabOrderFromFocus(bool forward) const;
  bool MoveFocus(bool forward);
  // Whether `next` may have the focus, or act in place of it: asks the control that has it.
  bool MayLeaveFor(const HostedControl& next);
  // Whether the control has it still.
  bool FocusCame(HostedControl& control);
  void FocusWent(const HostedControl& control);
  bool PressAccessKey(std::int16_t character);
  // Delivers the key to the control that has `role` (default or cancel button).
  bool ForwardTo(bool (HostedControl::*role)() const, std::int16_t key_ascii);
  void FocusFirst();
  bool ComesByTab() const;
  void SettleFocus();
  // To be called when a control has lost the focus to `other`: whether the focus may be on its way back, so
  // that `settle` will be called.
  bool HandsFocusOn(WindowHandle other, std::function<void()> settle);

  // Keeps at most one default and one cancel button.
  void BecomeDefault(HostedControl& control);
  void BecomeCancel(HostedControl& control);

  Platform& platform_;
  FormOptions options_;
  FontRef font_;
  WindowHandle window_;
  bool sizing_ = false;    // by SetSize
  PixelSize client_size_;  // that stands for options_.size
  std::vector<std::shared_ptr<HostedControl>> controls_;
  std::unordered_map<std::string_view, HostedControl*>
      by_name_;  // of controls_; the keys are the controls' own
  std::vector<std::function<void()>>
      leaving_;  // what has lost the focus to the form's window, which hands it on
  std::weak_ptr<HostedControl> active_control_;  // keeps its focus while the form is not active
  UsedKey used_key_;                             // by the form, while no control has the focus
  std::ptrdiff_t vacant_place_ = 0;  // in the order of the Tab key: of the control removed with the focus
  bool validating_ = false;
  ErrorHandler error_handler_;
  ToolTip tool_tip_;
};

}  // namespace levelwidgets
