// What holds for every text that is loaded as a form: shared by the fuzzer and by the test that replays what
// the fuzzer has found.
#pragma once

#include <string>

#include <levelwidgets/host/form_file/document_testing.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/platform/driver.h>

namespace levelwidgets {

class FormFilePromises {
 public:
  FormFilePromises(Platform& platform, DesktopDriver& desktop) : platform_(platform), desktop_(desktop) {}

  // "" when all of them are kept.
  std::string Broken(const std::string& text) {
    const std::string before = desktop_.LiveCounts();
    std::string broken = BrokenBy(text);
    if (broken.empty() && desktop_.LiveCounts() != before)
      broken = "left behind: " + desktop_.LiveCounts() + " instead of " + before;
    return broken;
  }

 private:
  std::string BrokenBy(const std::string& text) {
    if (const auto plain = ReadPlainFormNodes(text); plain && TreeOf(*plain) != LibrarysTreeOf(text))
      return "the quick reader reads something else than the library";
    const LoadedForm loaded = LoadFormText(platform_, text, "form");
    if (loaded.HasErrors()) return loaded.form ? "a form in spite of errors" : "";
    if (!loaded.form) return "neither a form nor an error";
    if (FormText(*loaded.form, loaded.document.get()) != text)
      return "a save without changes changes the text";
    loaded.form->Show();
    desktop_.Settle();
    const std::string of_new_text = BrokenByNewText(*loaded.form);
    return of_new_text.empty() ? BrokenByEdits(loaded) : of_new_text;
  }

  std::string BrokenByNewText(const Form& form) {
    const std::string written = FormText(form);
    const LoadedForm again = LoadFormText(platform_, written, "new text");
    if (again.HasErrors()) return again.diagnostics.front().ToString() + "\n" + written;
    const std::string second = FormText(*again.form);
    return second == written ? "" : "another text of the same form:\n" + written + "\n" + second;
  }

  // The form after its changes, saved into its text, is the form that is loaded from that.
  std::string BrokenByEdits(const LoadedForm& loaded) {
    Form& form = *loaded.form;
    form.SetCaption("\"caption\"\n\xC3\xA4");
    form.SetFont(MakeFont({.name = "Arial", .size = 11, .bold = true}));
    if (!form.Controls().empty()) {
      form.Controls().front()->SetTag("'tag'\\");
      form.Controls().front()->SetLeft(Twips(17.5f));
      if (form.Controls().size() > 1) form.Remove(form.Controls().back()->Name());
    }
    const std::string saved = FormText(form, loaded.document.get());
    const LoadedForm again = LoadFormText(platform_, saved, "edited text");
    if (again.HasErrors()) return again.diagnostics.front().ToString() + "\n" + saved;
    const std::string expected = FormText(form);
    const std::string actual = FormText(*again.form);
    return actual == expected ? "" : "lost in the edited text:\n" + saved + "\n" + expected + "\n" + actual;
  }

  Platform& platform_;
  DesktopDriver& desktop_;
};

}  // namespace levelwidgets
