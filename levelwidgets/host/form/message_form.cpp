#include <levelwidgets/host/form/message_form.h>

#include <algorithm>
#include <string_view>

#include <levelwidgets/frame/paint.h>
#include <levelwidgets/host/form/message_sign.h>
#include <levelwidgets/host/form/question_parts.h>

namespace levelwidgets {

namespace {

constexpr TwipSize kSign{Twips(480), Twips(480)};
constexpr float kLongestLine = 6000;  // twips
constexpr float kMostLines = 40;
constexpr Twips kLeastWidth(2700);  // a short title is seen whole

// --- Lines -------------------------------------------------------------------------------------------

bool FitsOnALine(std::string_view text, const Surface& surface) {
  return WidthOf(text, surface).value <= kLongestLine;
}

// At least one character.
std::size_t LengthOfCutWord(std::string_view text, const Surface& surface) {
  std::size_t length = 0;
  while (length < text.size()) {
    std::size_t next = length + 1;
    while (next < text.size() && (static_cast<unsigned char>(text[next]) & 0xC0) == 0x80) ++next;
    if (length > 0 && !FitsOnALine(text.substr(0, next), surface)) break;
    length = next;
  }
  return length;
}

// The beginning of `text` that fits on a line: whole words, or what fits of a long one.
std::size_t FittingLength(std::string_view text, const Surface& surface) {
  if (FitsOnALine(text, surface)) return text.size();
  std::size_t fitting = 0;
  for (std::size_t end = text.find(' '); end != std::string_view::npos; end = text.find(' ', end + 1)) {
    if (!FitsOnALine(text.substr(0, end), surface)) break;
    fitting = end;
  }
  return fitting > 0 ? fitting : LengthOfCutWord(text, surface);
}

std::vector<std::string> LinesOf(std::string_view text, const Surface& surface) {
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
      const std::size_t length = FittingLength(line, surface);
      lines.emplace_back(line.substr(0, length));
      line.remove_prefix(length);
      line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    } while (!line.empty());
    if (is_last) return lines;
  }
}

std::string ButtonName(std::int32_t number) { return "cmd" + std::to_string(number); }

// --- The form ----------------------------------------------------------------------------------------

// From the top left corner; the form's size is known at last.
class MessageForm {
 public:
  MessageForm(Platform& platform, const MessageOptions& options, const std::vector<std::string>& captions)
      : options_(options), form_(Form::Create(platform, {.name = "frmMessage", .caption = options.title})) {
    AddSign();
    AddLines();
    AddWholeText(platform.Windows());
    AddButtons(captions);
  }

  const std::shared_ptr<Form>& Get() const { return form_; }

 private:
  void AddSign() {
    DrawingApi& drawing = form_->GetPlatform().Drawing();
    const auto sign = SignOf(options_.style, TranslateColor(drawing, form_->BackColor()));
    if (!sign) return;
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
    const std::vector<std::string> lines = LinesOf(options_.text, first.GetSurface());
    // Beside the sign a short text stands in its middle.
    const Twips height(kQuestionLine.value * static_cast<float>(lines.size()));
    Twips top = kQuestionMargin + Twips(std::max(0.0f, (bottom_ - kQuestionMargin - height).value / 2));
    for (std::size_t i = 0; i < lines.size(); ++i, top = top + kQuestionLine) {
      const std::string name = "lbl" + std::to_string(i + 1);
      const TwipSize size{WidthOf(lines[i], first.GetSurface()) + Twips(60), kQuestionLine};
      if (i > 0) AddText(*form_, name, lines[i], {{text_left_, top}, size});
      right_ = std::max(right_, text_left_ + size.width);
    }
    first.SetCaption(CaptionOf(lines[0]));
    form_->Find("lbl1")->Move({text_left_, top - height}, {right_ - text_left_, kQuestionLine});
    bottom_ = std::max(bottom_, top);
  }

  // The lines that are seen are broken; whoever reads the desktop wants the text as it was given.
  void AddWholeText(WindowApi& windows) {
    windows.CreateWindowExA({.class_name = "STATIC",
                             .title = options_.text,
                             .style = kWsChild,
                             .rect = {},
                             .parent = form_->hWnd()});
  }

  // In the middle below the text.
  void AddButtons(const std::vector<std::string>& captions) {
    const auto count = static_cast<float>(captions.size());
    const Twips row(count * kQuestionButton.width.value + (count - 1) * kQuestionGap.value);
    const Twips width = std::max(kLeastWidth, std::max(right_, kQuestionMargin + row) + kQuestionMargin);
    TwipPoint at{Twips((width - row).value / 2), bottom_ + kQuestionMargin};
    std::int32_t number = 0;
    for (const std::string& caption : captions) {
      AddButton(*form_, ButtonName(++number), caption, {at, kQuestionButton});
      at.x = at.x + kQuestionButton.width + kQuestionGap;
    }
    MessageButton(*form_, 1)->SetDefault(true);
    MessageButton(*form_, 1)->SetFocus();
    form_->SetWidth(width);
    form_->SetHeight(at.y + kQuestionButton.height + kQuestionMargin);
    form_->Centre();
  }

  const MessageOptions& options_;
  std::shared_ptr<Form> form_;
  Twips text_left_ = kQuestionMargin;
  Twips right_;
  Twips bottom_;
};

}  // namespace

std::shared_ptr<Form> MakeMessageForm(Platform& platform, const MessageOptions& options,
                                      const std::vector<std::string>& captions) {
  if (captions.empty()) {
    throw Error(kInvalidCall, "LevelWidgets.Form", "A message needs a button to answer it with");
  }
  return MessageForm(platform, options, captions).Get();
}

std::shared_ptr<HostedControl> MessageButton(const Form& form, std::int32_t number) {
  return form.Find(ButtonName(number));
}

}  // namespace levelwidgets
