// A window with one button, whose click changes a label. With --click the program does itself what a person
// would do, and prints what the label says then.
#include <iostream>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/native/native_windows.h>

using namespace levelwidgets;

int main(int argc, char**) {
  const auto windows = NativeWindows::Open();
  const auto form =
      Form::Create(windows->GetPlatform(), {.caption = "One button", .size = {Twips(3600), Twips(1200)}});

  auto& label =
      form->Add<FlatLabel>("lblState", {{Twips(120), Twips(120)}, TwipSize{Twips(3360), Twips(300)}});
  label.SetCaption("Not saved yet");

  auto& button = form->Add<FlatButton>("cmdSave", {{Twips(120), Twips(600)}});
  button.SetCaption("&Save");
  button.Click += [&] { label.SetCaption("Saved"); };

  form->Show();
  if (argc == 1) return windows->Run();

  windows->Driver()->Click(form->Find("cmdSave")->ScreenCentre());
  std::cout << label.Caption() << "\n";
}
