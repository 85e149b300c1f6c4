#include <levelwidgets/controls/calculator/flat_calculator.h>

#include <optional>

#include <levelwidgets/controls/calculator/keypad.h>
#include <levelwidgets/frame/edit_rows.h>

namespace levelwidgets {

namespace {

constexpr KeypadColors kKeypad;

constexpr PopupLook kPanel{kWsPopup, DetachOrder::kExtendedStyleParentStyle, false};

}  // namespace

// What the keypad works with. It is made when it first opens.
struct FlatCalculator::Inside {
  class Display : public CalculatorDisplay {
   public:
    explicit Display(FlatCalculator& calculator) : calculator_(calculator) {}
    std::string Text() const override { return calculator_.Text(); }
    void ShowText(const std::string& text) override { calculator_.Edit().SetText(text); }
    void AssignText(const std::string& text) override { calculator_.SetText(text); }
    void SetCaretToSelectionLength() override {
      TextBox& edit = calculator_.Edit();
      edit.Select(edit.SelLength(), 0);
    }

   private:
    FlatCalculator& calculator_;
  };

  explicit Inside(FlatCalculator& calculator)
      : display(calculator), engine(calculator.GetSurface().GetPlatform().Conversions(), display) {}

  Display display;
  CalculatorEngine engine;
  KeypadColors colors;
  std::optional<Keypad> keypad;
};

const ClassInfo& FlatCalculator::Table() {
  using C = FlatCalculator;
  using Row = table::Row<C>;
  using Edit = table::EditRows<C>;
  static constexpr auto data = ClassTable(
      ControlClass<C>("FlatCalculator", "An edit box for numbers with a keypad that drops down.",
                      {Twips(1800), Twips(315)}),
      table::JoinProperties(
          Edit::Alignment(1), Edit::Look(2),
          Row::Property<&C::FormatString, &C::SetFormatString>(
              5, "FormatString", Always(""), "Format of results and of Text; the general form when empty.",
              {.flags = MemberFlags::kFormat}),
          Edit::Font(6), Edit::Handle(7), Edit::Selection(8),
          Row::Property<&C::Text, &C::SetText>(11, "Text", Always(""),
                                               "The text; a number is formatted by FormatString.",
                                               {.flags = MemberFlags::kBecomesAnother}),
          Edit::Strip(12),
          Row::Property<&C::CalcBackColor, &C::SetCalcBackColor>(15, "CalcBackColor", Always(kKeypad.back),
                                                                 "Background colour of the keypad."),
          Row::Property<&C::CalcBorderColor, &C::SetCalcBorderColor>(
              16, "CalcBorderColor", Always(kKeypad.border), "Colour of the lines around the keys."),
          Row::Property<&C::CalcForeColor, &C::SetCalcForeColor>(17, "CalcForeColor", Always(kKeypad.fore),
                                                                 "Colour of the captions of all keys."),
          Row::Property<&C::CalcDigitColor, &C::SetCalcDigitColor>(
              18, "CalcDigitColor", Always(kKeypad.digit), "Fill of the digits and the decimal point."),
          Row::Property<&C::CalcFunctionColor, &C::SetCalcFunctionColor>(
              19, "CalcFunctionColor", Always(kKeypad.function), "Fill of the operators."),
          Row::Property<&C::CalcClearColor, &C::SetCalcClearColor>(
              20, "CalcClearColor", Always(kKeypad.clear), "Fill of the two keys that clear.")),
      table::Persisted("Alignment", "BackColor", "ForeColor", "Enabled", "FormatString", "Font", "Text",
                       "DropDownBackColor", "DropDownBackColorMouseOver", "DropDownBackColorPushed",
                       "CalcBackColor", "CalcBorderColor", "CalcForeColor", "CalcDigitColor",
                       "CalcFunctionColor", "CalcClearColor"),
      table::Methods(),
      table::JoinEvents(Row::Event<&C::CalcUp>(1, "CalcUp", "", "The keypad has closed."), Edit::Events(2)));
  static constexpr ClassInfo info(data);
  return info;
}

FlatCalculator::FlatCalculator(std::shared_ptr<ControlSite> site)
    : FixedPanelControl(std::move(site), kPanel), inside_(std::make_unique<Inside>(*this)) {}

FlatCalculator::~FlatCalculator() = default;

// --- Properties --------------------------------------------------------------------------------------

const std::string& FlatCalculator::FormatString() const { return inside_->engine.FormatString(); }

void FlatCalculator::SetFormatString(std::string format) {
  Assign("FormatString", Then::kNotify, [&] {
    CalculatorEngine& engine = inside_->engine;
    engine.SetFormatString(std::move(format));
    Edit().SetText(engine.Formatted(Text()));
  });
}

void FlatCalculator::SetText(std::string_view text) {
  Assign("Text", Then::kNotify, [&] { Edit().SetText(inside_->engine.Formatted(text)); });
}

Color FlatCalculator::CalcBackColor() const { return inside_->colors.back; }
Color FlatCalculator::CalcBorderColor() const { return inside_->colors.border; }
Color FlatCalculator::CalcForeColor() const { return inside_->colors.fore; }
Color FlatCalculator::CalcDigitColor() const { return inside_->colors.digit; }
Color FlatCalculator::CalcFunctionColor() const { return inside_->colors.function; }
Color FlatCalculator::CalcClearColor() const { return inside_->colors.clear; }

void FlatCalculator::SetCalcBackColor(Color color) {
  AssignKeypadColor("CalcBackColor", inside_->colors.back, color);
}

void FlatCalculator::SetCalcBorderColor(Color color) {
  AssignKeypadColor("CalcBorderColor", inside_->colors.border, color);
}

void FlatCalculator::SetCalcForeColor(Color color) {
  AssignKeypadColor("CalcForeColor", inside_->colors.fore, color);
}

void FlatCalculator::SetCalcDigitColor(Color color) {
  AssignKeypadColor("CalcDigitColor", inside_->colors.digit, color);
}

void FlatCalculator::SetCalcFunctionColor(Color color) {
  AssignKeypadColor("CalcFunctionColor", inside_->colors.function, color);
}

void FlatCalculator::SetCalcClearColor(Color color) {
  AssignKeypadColor("CalcClearColor", inside_->colors.clear, color);
}

void FlatCalculator::AssignKeypadColor(std::string_view name, Color& kept, Color color) {
  Assign(name, Then::kNotify, [&] {
    kept = color;
    if (inside_->keypad) inside_->keypad->Show(inside_->colors);
  });
}

// --- Keypad ------------------------------------------------------------------------------------------

bool FlatCalculator::PreparePanel() {
  if (!inside_->keypad) MakeKeypad();
  inside_->engine.Open();
  return true;
}

void FlatCalculator::MakeKeypad() {
  PopupPanel& panel = NeedPanel();
  Keypad& keypad = inside_->keypad.emplace(panel, inside_->colors);
  keypad.KeyPressed += [this](CalculatorKey key) { Carry(inside_->engine.Press(key)); };
  panel.MouseDown += [this](std::int16_t button, std::int16_t, Twips x, Twips y) {
    if (button == kLeftButton) PressBackground({x, y});
  };
}

// Keys that have no meaning for the keypad do nothing while it is open, for the form either.
bool FlatCalculator::PanelKey(std::int16_t code) {
  const auto keep = Reference();
  Carry(inside_->engine.KeyDown(code));
  return true;
}

void FlatCalculator::Carry(KeypadRequest request) {
  if (request == KeypadRequest::kClose) HidePanel();
}

// The place on the panel is measured against the size of the control, on purpose.
void FlatCalculator::PressBackground(TwipPoint at) {
  if (IsOutside(GetSurface(), at)) HidePanel();
}

}  // namespace levelwidgets
