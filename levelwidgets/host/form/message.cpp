#include <levelwidgets/host/form/message.h>

#include <algorithm>
#include <string_view>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/host/form/form_scale.h>
#include <levelwidgets/host/form/modal.h>

namespace levelwidgets {

namespace {

constexpr Twips kMargin(225);
constexpr Twips kGap(120);
constexpr Twips kLineHeight(240);
constexpr TwipSize kSign{Twips(480), Twips(480)};
constexpr TwipSize kButton{Twips(1200), Twips(375)};
constexpr float kLongestLine = 6000;  // twips
constexpr float kMostLines = 40;

struct Sign {
  MessageStyle style;
  std::string_view text;
  Color color;
};

constexpr Sign kSigns[] = {{MessageStyle::kCritical, "x", Color(0x001C1CC4u)},
                           {MessageStyle::kQuestion, "?", Color(0x00A8590Bu)},
                           {MessageStyle::kWarning, "!", Color(0x000077C0u)},
                           {MessageStyle::kInformation, "i", Color(0x00A8590Bu)}};

// In a caption "&" marks the access key.
std::string Plain(std::string_view text) {
  std::string plain;
  for (const char c : text) plain += c == '&' ? "&&" : std::string(1, c);
  return plain;
}

// A label that looks the same whatever the pointer does.
FlatLabel& AddText(Form& form, const std::string& name, std::string_view text, const Placement& place) {
  FlatLabel& label = form.Add<FlatLabel>(name, place);
  form.Find(name)->SetTabStop(false);
  label.SetMouseUnderline(false);
  label.SetBackColor(form.BackColor());
  label.SetBackColorMouseOver(form.BackColor());
  label.SetBackColorPushed(form.BackColor());
  label.SetForeColorMouseOver(label.ForeColor());
  label.SetForeColorPushed(label.ForeColor());
  label.SetCaption(Plain(text));
  return label;
}

// --- Lines -------------------------------------------------------------------------------------------

class Ruler {
 public:
  explicit Ruler(const Surface& surface) : surface_(surface), scale_(surface.GetPlatform().Screen()) {}

  float WidthOf(std::string_view text) const {
    PixelSize size;
    surface_.Drawing().GetTextExtentPoint32A(surface_.hDC(), text, size);
    return scale_.TwipsX(size.width).value;
  }
  // The beginning of `text` that fits on a line: whole words, or what fits of a long one.
  std::size_t FittingLength(std::string_view text) const {
    if (WidthOf(text) <= kLongestLine) return text.size();
    std::size_t fitting = 0;
    for (std::size_t end = text.find(' '); end != std::string_view::npos; end = text.find(' ', end + 1)) {
      if (WidthOf(text.substr(0, end)) > kLongestLine) break;
      fitting = end;
    }
    return fitting > 0 ? fitting : LengthOfCutWord(text);
  }

 private:
  std::size_t LengthOfCutWord(std::string_view text) const {
    std::size_t length = 0;
    while (length < text.size()) {
      std::size_t next = length + 1;
      while (next < text.size() && (static_cast<unsigned char>(text[next]) & 0xC0) == 0x80) ++next;
      if (length > 0 && WidthOf(text.substr(0, next)) > kLongestLine) break;
      length = next;
    }
    return length;
  }

  const Surface& surface_;
  FormScale scale_;
};

std::vector<std::string> LinesOf(std::string_view text, const Ruler& ruler) {
  std::vector<std::string> lines;
  while (true) {
    std::string_view line = text.substr(0, text.find('\n'));
    const bool is_last = line.size() == text.size();
    text.remove_prefix(is_last ? text.size() : line.size() + 1);
    do {
      if (static_cast<float>(lines.size()) == kMostLines) {
        lines.back() = "...";
        return lines;
      }
      const std::size_t length = ruler.FittingLength(line);
      lines.emplace_back(line.substr(0, length));
      line.remove_prefix(length);
      line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    } while (!line.empty());
    if (is_last) return lines;
  }
}

// --- The form ----------------------------------------------------------------------------------------

// From the top left corner; the form's size is known at last.
class MessageForm {
 public:
  MessageForm(Platform& platform, const MessageOptions& options)
      : options_(options), form_(Form::Create(platform, {.name = "frmMessage", .caption = options.title})) {
    AddSign();
    AddLines();
    AddButtons();
  }

  const std::shared_ptr<Form>& Get() const { return form_; }
  template <typename OnPressed>
  void OnPress(const OnPressed& on_pressed) {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
      buttons_[i]->Click += [on_pressed, number = static_cast<std::int32_t>(i) + 1] { on_pressed(number); };
    }
  }

 private:
  void AddSign() {
    const auto sign = std::ranges::find(kSigns, options_.style, &Sign::style);
    if (sign == std::end(kSigns)) return;
    FlatLabel& label = AddText(*form_, "lblSign", sign->text, {{kMargin, kMargin}, kSign});
    label.SetFont(MakeFont({.name = "Tahoma", .size = 20, .bold = true}));
    label.SetAlignment(ksxAlignmentConstants::ksxCenter);
    for (const auto set :
         {&FlatLabel::SetForeColor, &FlatLabel::SetForeColorMouseOver, &FlatLabel::SetForeColorPushed}) {
      (label.*set)(sign->color);
    }
    text_left_ = kMargin + kSign.width + kGap;
    bottom_ = kMargin + kSign.height;
  }

  void AddLines() {
    FlatLabel& first = AddText(*form_, "lbl1", "", {{text_left_, kMargin}, TwipSize{Twips(15), kLineHeight}});
    const Ruler ruler(first.GetSurface());
    const std::vector<std::string> lines = LinesOf(options_.text, ruler);
    // Beside the sign a short text stands in its middle.
    const Twips height(kLineHeight.value * static_cast<float>(lines.size()));
    Twips top = kMargin + Twips(std::max(0.0f, (bottom_ - kMargin - height).value / 2));
    for (std::size_t i = 0; i < lines.size(); ++i, top = top + kLineHeight) {
      const std::string name = "lbl" + std::to_string(i + 1);
      const TwipSize size{Twips(ruler.WidthOf(lines[i]) + 60), kLineHeight};
      if (i > 0) AddText(*form_, name, lines[i], {{text_left_, top}, size});
      right_ = std::max(right_, text_left_ + size.width);
    }
    first.SetCaption(Plain(lines[0]));
    form_->Find("lbl1")->Move({text_left_, top - height}, {right_ - text_left_, kLineHeight});
    bottom_ = std::max(bottom_, top);
  }

  // In the middle below the text.
  void AddButtons() {
    const auto count = static_cast<float>(options_.buttons.size());
    const Twips row(count * kButton.width.value + (count - 1) * kGap.value);
    const Twips width = std::max(right_, kMargin + row) + kMargin;
    TwipPoint at{Twips((width - row).value / 2), bottom_ + kMargin};
    for (const std::string& caption : options_.buttons) {
      const std::string name = "cmd" + std::to_string(buttons_.size() + 1);
      buttons_.push_back(&form_->Add<FlatButton>(name, {at, kButton}));
      buttons_.back()->SetCaption(caption);
      at.x = at.x + kButton.width + kGap;
    }
    form_->Find("cmd1")->SetDefault(true);
    form_->Find("cmd" + std::to_string(buttons_.size()))->SetCancel(true);
    form_->Find("cmd1")->SetFocus();
    form_->SetWidth(width);
    form_->SetHeight(at.y + kButton.height + kMargin);
    form_->Centre();
  }

  const MessageOptions& options_;
  std::shared_ptr<Form> form_;
  std::vector<FlatButton*> buttons_;
  Twips text_left_ = kMargin;
  Twips right_;
  Twips bottom_;
};

}  // namespace

std::shared_ptr<Form> ShowMessage(Platform& platform, const MessageOptions& options,
                                  const std::vector<std::shared_ptr<Form>>& others,
                                  MessageAnswer on_answered) {
  if (options.buttons.empty()) {
    throw Error(kInvalidCall, "LevelWidgets.Form", "A message needs a button to answer it with");
  }
  MessageForm message(platform, options);
  const auto answer = std::make_shared<std::int32_t>(0);
  message.OnPress([answer, form = std::weak_ptr(message.Get())](std::int32_t number) {
    *answer = number;
    if (const auto open = form.lock()) open->Close();
  });
  ShowModal(message.Get(), others, [answer, told = std::move(on_answered)] {
    if (told) told(*answer);
  });
  return message.Get();
}

}  // namespace levelwidgets
