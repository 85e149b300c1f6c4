// An edit box for numbers with a keypad that drops down.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/frame/fixed_panel_control.h>

namespace levelwidgets {

enum class KeypadRequest;

// The keypad computes at once, from left to right, with the edit box as its display; "=" closes it and leaves
// the result. While it is open, keys drive it. The edit box takes any text, and no property is validated.
class FlatCalculator : public FixedPanelControl {
 public:
  static const ClassInfo& Table();
  explicit FlatCalculator(std::shared_ptr<ControlSite> site);
  ~FlatCalculator() override;

  // --- Properties -------------------------------------------------------------------------------
  // Each notifies.

  // Format of results and of Text; the general form when empty. Setting it formats the present text.
  const std::string& FormatString() const;
  void SetFormatString(std::string format);
  std::string Text() const { return ActiveEdit().Text(); }
  // Formatted; shown as given where the format does not apply to it.
  void SetText(std::string_view text);
  // The keypad: its background, its lines, the captions of all keys, and the keys of digits, operators and
  // the two that clear. An open keypad shows a new colour at once.
  Color CalcBackColor() const;
  void SetCalcBackColor(Color color);
  Color CalcBorderColor() const;
  void SetCalcBorderColor(Color color);
  Color CalcForeColor() const;
  void SetCalcForeColor(Color color);
  Color CalcDigitColor() const;
  void SetCalcDigitColor(Color color);
  Color CalcFunctionColor() const;
  void SetCalcFunctionColor(Color color);
  Color CalcClearColor() const;
  void SetCalcClearColor(Color color);

  // --- Events -----------------------------------------------------------------------------------
  // Besides those of the edit box.

  Event<> CalcUp;  // the keypad has closed

  // --- Notifications ----------------------------------------------------------------------------

  const ClassInfo& Class() const override { return Table(); }

 protected:
  bool PreparePanel() override;
  void PanelClosed() override { CalcUp.Raise(); }
  bool PanelKey(std::int16_t code) override;

 private:
  struct Inside;

  void AssignKeypadColor(std::string_view name, Color& kept, Color color);
  void MakeKeypad();
  void Carry(KeypadRequest request);
  void PressBackground(TwipPoint at);

  std::unique_ptr<Inside> inside_;
};

}  // namespace levelwidgets
