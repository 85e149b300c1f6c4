#include <levelwidgets/native/native_windows.h>

#include "order_entry.h"

int main() {
  const auto windows = NativeWindows::Open();
  const OrderEntry order(windows->GetPlatform());
  order.form->Show();
  return windows->Run();  // until the form is closed
}
