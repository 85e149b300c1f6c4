// One button, whose click changes a label: on Windows in a native window, elsewhere on a desktop in memory.
// With --click the program does itself what a person would do, and tells what the label says then.
#include <iostream>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/host/form/run_form.h>
#include <levelwidgets/native/native.h>

using namespace levelwidgets;

int main(int argc, char**) {
  const auto platform = MakePlatform();
  const auto form = Form::Create(*platform, {.caption = "One button", .size = {Twips(3600), Twips(1200)}});

  auto& label =
      form->Add<FlatLabel>("lblState", {{Twips(120), Twips(120)}, TwipSize{Twips(3360), Twips(300)}});
  label.SetCaption("Not saved yet");

  auto& button = form->Add<FlatButton>("cmdSave", {{Twips(120), Twips(600)}});
  button.SetCaption("&Save");
  button.Click += [&] { label.SetCaption("Saved"); };

  if (argc == 1) return RunForm(*form);

  form->Show();
  DriverOf(*platform)->Click(form->Find("cmdSave")->ScreenCentre());
  std::cout << label.Caption() << "\n";
}
