#include <levelwidgets/host/form/file_question_form.h>

#include <algorithm>

#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/form/file_choice.h>
#include <levelwidgets/host/form/message.h>
#include <levelwidgets/host/form/modal.h>
#include <levelwidgets/host/form/question_parts.h>

namespace levelwidgets {

namespace {

constexpr char kFolder[] = "lblFolder", kBar[] = "scrFiles", kName[] = "txtName", kOK[] = "cmdOK",
               kCancel[] = "cmdCancel";
constexpr std::int32_t kRows = 12;
constexpr Twips kWidth(6000);
constexpr Twips kBarWidth(255);
constexpr Twips kLabelWidth(960);
constexpr TwipSize kNameBox{kWidth - kQuestionMargin - kQuestionMargin - kLabelWidth, Twips(315)};
constexpr std::size_t kLongestFolder = 60;  // bytes that are shown

constexpr std::int32_t kNone = -1;
constexpr std::int16_t kPageUp = 33, kPageDown = 34, kUp = 38, kDown = 40;

// A name may have any character; one that a label would not show is a "?".
std::string Shown(std::string_view name) {
  std::string shown(name);
  std::ranges::replace_if(
      shown, [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; }, '?');
  return CaptionOf(shown);
}

std::string EndOf(const std::string& text) {
  if (text.size() <= kLongestFolder) return text;
  std::size_t begin = text.size() - kLongestFolder;
  while ((static_cast<unsigned char>(text[begin]) & 0xC0) == 0x80) ++begin;
  return "..." + text.substr(begin);
}

// --- Places ------------------------------------------------------------------------------------------

Twips RowTop(std::int32_t row) {
  return kQuestionMargin + kQuestionLine + kQuestionGap +
         Twips(static_cast<float>(row) * kQuestionLine.value);
}

Twips NameTop() { return RowTop(kRows) + kQuestionGap; }

Placement RowPlace(std::int32_t row, bool beside_bar) {
  const Twips width = kWidth - kQuestionMargin - kQuestionMargin - (beside_bar ? kBarWidth : Twips());
  return {{kQuestionMargin, RowTop(row)}, TwipSize{width, kQuestionLine}};
}

// From the right.
Placement ButtonPlace(int number) {
  const float step = (kQuestionButton.width + kQuestionGap).value;
  return {{kWidth - kQuestionMargin + kQuestionGap - Twips(static_cast<float>(number) * step),
           NameTop() + kNameBox.height + kQuestionMargin},
          kQuestionButton};
}

std::string RowName(std::int32_t row) { return "lbl" + std::to_string(row + 1); }

void AddBar(Form& form) {
  FlatScroll& bar = form.Add<FlatScroll>(kBar, {{kWidth - kQuestionMargin - kBarWidth, RowTop(0)},
                                                TwipSize{kBarWidth, RowTop(kRows) - RowTop(0)}});
  bar.SetBackColor(kScrollTrack);
  bar.SetForeColor(kButtonText);
  bar.SetButtonColor(kButtonFace);
  bar.SetButtonColorPushed(kButtonFace);
  bar.SetButtonColorMouseOver(kButtonHighlight);
}

void AddControls(Form& form, const FileQuestion& question) {
  const Twips line = kWidth - kQuestionMargin - kQuestionMargin;
  AddText(form, kFolder, "", {{kQuestionMargin, kQuestionMargin}, TwipSize{line, kQuestionLine}});
  for (std::int32_t row = 0; row < kRows; ++row) AddText(form, RowName(row), "", RowPlace(row, false));
  AddBar(form);
  AddText(form, "lblName", "File name:",
          {{kQuestionMargin, NameTop() + Twips(45)}, TwipSize{kLabelWidth - kQuestionGap, kQuestionLine}});
  form.Add<FlatTextBox>(kName, {{kQuestionMargin + kLabelWidth, NameTop()}, kNameBox}).SetText(question.name);
  AddButton(form, kOK, question.to_save ? "&Save" : "&Open", ButtonPlace(2));
  AddButton(form, kCancel, "Cancel", ButtonPlace(1));
  AddFrame(form, "lblFilesFrame", {{kQuestionMargin, RowTop(0)}, TwipSize{line, RowTop(kRows) - RowTop(0)}});
  AddFrame(form, "lblNameFrame", {{kQuestionMargin + kLabelWidth, NameTop()}, kNameBox});
  form.Find(kBar)->SetTabStop(false);
  form.Find(kOK)->SetDefault(true);
  form.Find(kCancel)->SetCancel(true);
  form.Find(kName)->SetFocus();
  form.SetKeyPreview(true);
  form.SetWidth(kWidth);
  form.SetHeight(ButtonPlace(1).position.y + kQuestionButton.height + kQuestionMargin);
  form.Centre();
}

// --- Asking ------------------------------------------------------------------------------------------

// The listeners of the controls hold it; it does not hold the form. Scripts have the form as well, and may
// take controls away or close it at any event: each control is looked up when something is done with it.
class FileQuestionForm : public std::enable_shared_from_this<FileQuestionForm> {
 public:
  FileQuestionForm(const std::shared_ptr<Form>& form, const FileQuestion& question, FileAnswer on_answered)
      : form_(form),
        question_(question),
        on_answered_(std::move(on_answered)),
        choice_({.to_save = question.to_save,
                 .folder = PathOf(question.folder),
                 .patterns = question.patterns,
                 .root = PathOf(question.root)}) {}

  // Once it is shared, and the form has its controls.
  void Begin(Form& form) {
    const auto self = shared_from_this();
    for (std::int32_t row = 0; row < kRows; ++row) {
      With<FlatLabel>(form_, RowName(row), [&](FlatLabel& label) {
        label.Click += [self, row] { self->Select(self->top_ + row); };
        label.DblClick += [self, row] { self->GiveRow(row); };
      });
    }
    With<FlatScroll>(form_, kBar, [&](FlatScroll& bar) { bar.Change += [self] { self->FollowBar(); }; });
    With<FlatButton>(form_, kOK, [&](FlatButton& ok) { ok.Click += [self] { self->GiveName(); }; });
    With<FlatButton>(form_, kCancel, [&](FlatButton& cancel) { cancel.Click += [self] { self->Close(); }; });
    form.KeyDown += [self](std::int16_t& code, std::int16_t) { self->TakeKey(code); };
    // With the form and not later: the answer is called when there is a turn of the loop, if ever.
    form.Gone += [self] { self->note_.reset(); };
    ShowFolder();
  }

  void Answer() {
    if (on_answered_) on_answered_(path_);
  }

 private:
  std::string Name() const {
    std::string name;
    With<FlatTextBox>(form_, kName, [&](const FlatTextBox& box) { name = box.Text(); });
    return name;
  }
  void SetName(const std::string& name) const {
    With<FlatTextBox>(form_, kName, [&](FlatTextBox& box) { box.SetText(name); });
  }

  std::int32_t Count() const { return static_cast<std::int32_t>(choice_.Entries().size()); }
  // "" where there is none.
  FolderEntry Entry(std::int32_t index) const {
    return index >= 0 && index < Count() ? choice_.Entries()[static_cast<std::size_t>(index)] : FolderEntry{};
  }

  // --- What is shown --------------------------------------------------------------------------------

  // Where there is a root, the way to it is nobody's business.
  std::string FolderText() const {
    const std::filesystem::path& folder = choice_.Folder();
    if (question_.root.empty()) return EndOf(TextOfPath(folder));
    std::error_code missing;
    const auto root = std::filesystem::canonical(PathOf(question_.root), missing);
    return EndOf(TextOfPath(folder.lexically_relative(root.parent_path())));
  }

  void ShowFolder() {
    selected_ = kNone;
    top_ = 0;
    With<FlatLabel>(form_, kFolder, [&](FlatLabel& label) { label.SetCaption(Shown(FolderText())); });
    const bool needs_bar = Count() > kRows;
    if (const auto form = form_.lock()) {
      if (const auto bar = form->Find(kBar)) bar->SetVisible(needs_bar);
      for (std::int32_t row = 0; row < kRows; ++row) {
        const Placement place = RowPlace(row, needs_bar);
        if (const auto label = form->Find(RowName(row))) label->Move(place.position, *place.size);
      }
    }
    With<FlatScroll>(form_, kBar, [&](FlatScroll& bar) {
      bar.SetMax(std::max(1, Count() - kRows));
      bar.SetLargeChange(kRows);
      bar.SetValue(0);
    });
    ShowRows();
  }

  void ShowRows() const {
    for (std::int32_t row = 0; row < kRows; ++row) {
      const std::int32_t index = top_ + row;
      const FolderEntry entry = Entry(index);
      const bool selected = index == selected_;
      With<FlatLabel>(form_, RowName(row), [&](FlatLabel& label) {
        SetSteadyColors(label, selected ? kHighlight : kWindowBack, selected ? kHighlightText : kWindowText);
        label.SetCaption(entry.name.empty() ? "" : " " + Shown(entry.name) + (entry.is_folder ? "/" : ""));
      });
    }
  }

  // --- What a person does ---------------------------------------------------------------------------

  void FollowBar() {
    With<FlatScroll>(form_, kBar, [&](const FlatScroll& bar) { top_ = bar.Value(); });
    ShowRows();
  }

  void Select(std::int32_t index) {
    if (index < 0 || index >= Count()) return;
    selected_ = index;
    SetName(Entry(index).name);
    name_shown_ = Name();
    const std::int32_t top = std::clamp(top_, std::max(0, index - kRows + 1), index);
    if (top != top_) {
      With<FlatScroll>(form_, kBar, [&](FlatScroll& bar) { bar.SetValue(std::min(top, bar.Max())); });
    }
    ShowRows();
    const auto form = form_.lock();
    const auto box = form ? form->Find(kName) : nullptr;
    if (box && box->CanTakeInput()) box->SetFocus();
  }

  // The first press of the double click has selected it.
  void GiveRow(std::int32_t row) {
    if (top_ + row == selected_) GiveName();
  }

  void TakeKey(std::int16_t& code) {
    std::int32_t step = 0;
    switch (code) {
      case kUp: step = -1; break;
      case kDown: step = 1; break;
      case kPageUp: step = -kRows; break;
      case kPageDown: step = kRows; break;
      default: return;
    }
    code = 0;
    if (Count() > 0) Select(std::clamp(selected_ == kNone ? 0 : selected_ + step, 0, Count() - 1));
  }

  // A box that shows a name with "?" for characters that it lacks still means that file.
  void GiveName() {
    const std::string typed = Name();
    const bool as_selected = selected_ != kNone && typed == name_shown_;
    const FileChoice::Outcome outcome = choice_.Give(as_selected ? Entry(selected_).name : typed);
    switch (outcome.kind) {
      case FileChoice::Kind::kNothing: return;
      case FileChoice::Kind::kEntered: SetName(""); return ShowFolder();
      case FileChoice::Kind::kChosen: return Choose(TextOfPath(outcome.path));
      case FileChoice::Kind::kRefused: return Note({.text = outcome.reason, .style = MessageStyle::kWarning});
      case FileChoice::Kind::kExists: return AskToReplace(outcome.path);
    }
  }

  void AskToReplace(const std::filesystem::path& path) {
    Note({.text = "\"" + TextOfPath(path.filename()) + "\" exists. Replace it?",
          .style = MessageStyle::kQuestion,
          .buttons = {"&Replace", "&Keep"}},
         [weak = weak_from_this(), path](std::int32_t button) {
           const auto self = weak.lock();
           if (self && button == 1) self->Choose(TextOfPath(path));
         });
  }

  void Note(MessageOptions message, const MessageAnswer& on_answered = nullptr) {
    const auto form = form_.lock();
    if (!form || form->Closed()) return;
    message.title = form->Caption();
    note_ = ShowMessage(form->GetPlatform(), message, {form}, on_answered);
  }

  void Choose(std::string path) {
    path_ = std::move(path);
    if (!Close()) path_.reset();
  }

  // False when a listener of Unload keeps it open.
  bool Close() {
    const auto form = form_.lock();
    return !form || form->Close();
  }

  const std::weak_ptr<Form> form_;
  const FileQuestion question_;
  const FileAnswer on_answered_;
  FileChoice choice_;
  std::int32_t top_ = 0;           // entry in the first row
  std::int32_t selected_ = kNone;  // entry
  std::string name_shown_;         // for the selected one
  std::optional<std::string> path_;
  std::shared_ptr<Form> note_;
};

}  // namespace

std::shared_ptr<Form> ShowFileQuestion(Platform& platform, const FileQuestion& question,
                                       const std::vector<std::shared_ptr<Form>>& others,
                                       FileAnswer on_answered) {
  std::string title = question.title;
  if (title.empty()) title = question.to_save ? "Save as" : "Open";
  const auto form = Form::Create(platform, {.name = "frmFile", .caption = title});
  AddControls(*form, question);
  const auto asked = std::make_shared<FileQuestionForm>(form, question, std::move(on_answered));
  asked->Begin(*form);
  ShowModal(form, others, [asked] { asked->Answer(); });
  return form;
}

}  // namespace levelwidgets
