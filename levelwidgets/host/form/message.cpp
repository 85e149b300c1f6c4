#include <levelwidgets/host/form/message.h>

#include <algorithm>
#include <string_view>

#include <levelwidgets/host/form/form_scale.h>
#include <levelwidgets/host/form/modal.h>
#include <levelwidgets/host/form/question_parts.h>

namespace levelwidgets {

namespace {

constexpr TwipSize kSign{Twips(480), Twips(480)};
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
    FlatLabel& label = AddText(*form_, "lblSign", sign->text, {{kQuestionMargin, kQuestionMargin}, kSign});
    label.SetFont(MakeFont({.name = "Tahoma", .size = 20, .bold = true}));
    label.SetAlignment(ksxAlignmentConstants::ksxCenter);
    SetSteadyColors(label, form_->BackColor(), sign->color);
    text_left_ = kQuestionMargin + kSign.width + kQuestionGap;
    bottom_ = kQuestionMargin + kSign.height;
  }

  void AddLines() {
    FlatLabel& first =
        AddText(*form_, "lbl1", "", {{text_left_, kQuestionMargin}, TwipSize{Twips(15), kQuestionLine}});
    const Ruler ruler(first.GetSurface());
    const std::vector<std::string> lines = LinesOf(options_.text, ruler);
    // Beside the sign a short text stands in its middle.
    const Twips height(kQuestionLine.value * static_cast<float>(lines.size()));
    Twips top = kQuestionMargin + Twips(std::max(0.0f, (bottom_ - kQuestionMargin - height).value / 2));
    for (std::size_t i = 0; i < lines.size(); ++i, top = top + kQuestionLine) {
      const std::string name = "lbl" + std::to_string(i + 1);
      const TwipSize size{Twips(ruler.WidthOf(lines[i]) + 60), kQuestionLine};
      if (i > 0) AddText(*form_, name, lines[i], {{text_left_, top}, size});
      right_ = std::max(right_, text_left_ + size.width);
    }
    first.SetCaption(CaptionOf(lines[0]));
    form_->Find("lbl1")->Move({text_left_, top - height}, {right_ - text_left_, kQuestionLine});
    bottom_ = std::max(bottom_, top);
  }

  // In the middle below the text.
  void AddButtons() {
    const auto count = static_cast<float>(options_.buttons.size());
    const Twips row(count * kQuestionButton.width.value + (count - 1) * kQuestionGap.value);
    const Twips width = std::max(right_, kQuestionMargin + row) + kQuestionMargin;
    TwipPoint at{Twips((width - row).value / 2), bottom_ + kQuestionMargin};
    for (const std::string& caption : options_.buttons) {
      const std::string name = "cmd" + std::to_string(buttons_.size() + 1);
      buttons_.push_back(&AddButton(*form_, name, caption, {at, kQuestionButton}));
      at.x = at.x + kQuestionButton.width + kQuestionGap;
    }
    form_->Find("cmd1")->SetDefault(true);
    form_->Find("cmd" + std::to_string(buttons_.size()))->SetCancel(true);
    form_->Find("cmd1")->SetFocus();
    form_->SetWidth(width);
    form_->SetHeight(at.y + kQuestionButton.height + kQuestionMargin);
    form_->Centre();
  }

  const MessageOptions& options_;
  std::shared_ptr<Form> form_;
  std::vector<FlatButton*> buttons_;
  Twips text_left_ = kQuestionMargin;
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
