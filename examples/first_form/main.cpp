#include <levelwidgets/native/native_windows.h>

#include "greeting.h"

int main() {
  const auto windows = NativeWindows::Open();
  const GreetingForm greeting(windows->GetPlatform());
  greeting.form->Show();
  return windows->Run();  // until the form is closed
}
