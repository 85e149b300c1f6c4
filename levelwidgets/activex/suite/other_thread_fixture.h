// Calls from a thread to which a component does not belong.
#pragma once

#include <functional>

#include <levelwidgets/activex/testing/component_fixture.h>

namespace levelwidgets::activex {

// Runs `call` on a thread of its own and waits, while the messages of this one go on.
inline void OnAnotherThread(const std::function<void()>& call) {
  const auto run = [](LPVOID given) -> DWORD {
    (*static_cast<const std::function<void()>*>(given))();
    return 0;
  };
  HANDLE const thread =
      ::CreateThread(nullptr, 0, run, const_cast<std::function<void()>*>(&call), 0, nullptr);
  ASSERT_NE(thread, nullptr);
  while (::MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
    MSG message = {};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
  }
  ::CloseHandle(thread);
}

}  // namespace levelwidgets::activex
