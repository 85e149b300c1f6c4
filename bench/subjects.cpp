#include <bench/subjects.h>

#include <array>
#include <stdexcept>

namespace levelwidgets::bench {

namespace {

constexpr int kTwips = 15;  // per pixel, in both directions

constexpr TwipSize InTwips(PixelSize size) {
  return {Twips(size.width * kTwips), Twips(size.height * kTwips)};
}

std::string LengthLine(const char* key, int pixels) {
  return std::string(key) + " = " + std::to_string(pixels * kTwips) + "\n";
}

std::string FormTable(PixelSize size) {
  return "[form]\nName = \"Orders\"\nCaption = \"Orders\"\n" + LengthLine("Width", size.width) +
         LengthLine("Height", size.height);
}

struct Kind {
  const char* class_name;
  const char* shown;  // the property with its text
};
constexpr std::array<Kind, 3> kKinds = {
    {{"FlatButton", "Caption"}, {"FlatLabel", "Caption"}, {"FlatTextBox", "Text"}}};

const Kind& KindOf(int i, Mix mix) {
  switch (mix) {
    case Mix::kLabelsAndButtons: return kKinds[static_cast<std::size_t>(i % 2)];
    case Mix::kWithTextBoxes: return kKinds[static_cast<std::size_t>(i % 3)];
    default: return kKinds[1];
  }
}

// The control number `i`.
std::string ControlTable(int i, const Kind& kind, PixelPoint corner, PixelSize size) {
  const std::string number = std::to_string(i);
  return std::string("\n[[control]]\nClass = \"") + kind.class_name + "\"\nName = \"ctl" + number + "\"\n" +
         LengthLine("Left", corner.x) + LengthLine("Top", corner.y) + LengthLine("Width", size.width) +
         LengthLine("Height", size.height) + "Properties = { " + kind.shown + " = \"N" + number + "\" }\n";
}

}  // namespace

ShownForm::ShownForm(PixelSize size) : form_(Form::Create(desktop_, {.size = InTwips(size)})) {
  form_->MoveTo({0, 0});
  form_->Show();
}

HostedControl& ShownForm::AddHosted(const ClassInfo& control_class, const std::string& name, PixelRect place,
                                    const PropertyBag* saved) {
  const TwipPoint corner{Twips(place.left * kTwips), Twips(place.top * kTwips)};
  return form_->Add(control_class, name, saved, {corner, InTwips({place.width(), place.height()})});
}

OneButton::OneButton(PixelSize size)
    : form_({size.width + 20, size.height + 20}),
      button_(form_.Add<FlatButton>("cmdSave", {10, 10, 10 + size.width, 10 + size.height})) {
  button_.SetCaption("&Save");
  form_.GetDesktop().Settle();
}

HundredButtons::HundredButtons() : form_({1000, 400}) {
  for (int i = 0; i < kCount; ++i) {
    const PixelPoint corner{i % kColumns * 100 + 5, i / kColumns * 40 + 4};
    const PixelRect place{corner.x, corner.y, corner.x + kButtonSize.width, corner.y + kButtonSize.height};
    buttons_.push_back(&form_.Add<FlatButton>("cmd" + std::to_string(i), place));
    const PixelRect on_screen = [&] {
      PixelRect rect;
      form_.GetDesktop().Windows().GetWindowRect(buttons_.back()->hWnd(), rect);
      return rect;
    }();
    path_.push_back({on_screen.left + 20, on_screen.top + 10});
    path_.push_back({on_screen.left + 21, on_screen.top + 10});
  }
  form_.GetDesktop().Settle();
  form_.GetDesktop().MovePointer(path_.front());
  next_ = 2;
}

void HundredButtons::Move() {
  form_.GetDesktop().MovePointer(path_[next_]);
  const std::size_t button = next_ / 2;
  if (next_ % 2 == 0) {
    Check(button == 0 ? buttons_.size() - 1 : button - 1, Color(0x00CDD9DDu));
  } else {
    Check(button, buttons_[button]->BackColorMouseOver());
  }
  if (++next_ == path_.size()) next_ = 0;
}

void HundredButtons::Check(std::size_t button, Color expected) const {
  if (buttons_[button]->BackColor() != expected) throw std::logic_error("the highlight has not followed");
}

namespace {

// `count` controls of the size, each of the kind that `kind_of` returns for its number.
template <typename KindOf>
std::string TextOfControls(int count, bool in_one_place, KindOf kind_of) {
  constexpr int kColumns = 25;
  constexpr int kRows = 40;
  constexpr PixelSize kCell{kFormSize.width / kColumns, kFormSize.height / kRows};
  constexpr PixelSize kSize{kCell.width - 2, kCell.height - 2};
  std::string text = FormTable(kFormSize);
  for (int i = 0; i < count; ++i) {
    const int cell = in_one_place ? 0 : i;
    const PixelPoint corner{cell % kColumns * kCell.width, cell / kColumns % kRows * kCell.height};
    text += ControlTable(i, kind_of(i), corner, kSize);
  }
  return text;
}

}  // namespace

std::string FormTextOf(int count, Mix mix) {
  return TextOfControls(count, mix == Mix::kLabelsInOnePlace,
                        [mix](int i) -> const Kind& { return KindOf(i, mix); });
}

std::string DropDownFormText(int count) {
  static constexpr Kind kDropDown{"FlatDropDown", "Text"};
  return TextOfControls(count, false, [](int) -> const Kind& { return kDropDown; });
}

std::string OneButtonFormText(PixelSize size) {
  return FormTable(size) + ControlTable(0, kKinds[0], {20, 20}, {120, 32});
}

std::shared_ptr<Form> LoadChecked(Platform& platform, const std::string& text) {
  const LoadedForm loaded = LoadFormText(platform, text, "measured.form.toml");
  if (!loaded.diagnostics.empty()) throw std::runtime_error(loaded.diagnostics.front().ToString());
  return loaded.form;
}

}  // namespace levelwidgets::bench
