// What tests call the messages of windows.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include <levelwidgets/platform/constants.h>

namespace levelwidgets {

// "?" for a message that no test expects by name.
inline std::string NameOfMessage(std::uint32_t message) {
  static const std::map<std::uint32_t, const char*> names = {{kWmCreate, "Create"},
                                                             {kWmDestroy, "Destroy"},
                                                             {kWmMove, "Move"},
                                                             {kWmSize, "Size"},
                                                             {kWmActivate, "Activate"},
                                                             {kWmSetFocus, "SetFocus"},
                                                             {kWmKillFocus, "KillFocus"},
                                                             {kWmEnable, "Enable"},
                                                             {kWmPaint, "Paint"},
                                                             {kWmClose, "Close"},
                                                             {kWmShowWindow, "ShowWindow"},
                                                             {kWmCancelMode, "CancelMode"},
                                                             {kWmSetCursor, "SetCursor"},
                                                             {kWmMouseActivate, "MouseActivate"},
                                                             {kWmKeyDown, "KeyDown"},
                                                             {kWmKeyUp, "KeyUp"},
                                                             {kWmChar, "Char"},
                                                             {kWmSysKeyDown, "SysKeyDown"},
                                                             {kWmSysKeyUp, "SysKeyUp"},
                                                             {kWmSysChar, "SysChar"},
                                                             {kWmCommand, "Command"},
                                                             {kWmSysCommand, "SysCommand"},
                                                             {kWmMouseMove, "MouseMove"},
                                                             {kWmLButtonDown, "LButtonDown"},
                                                             {kWmLButtonUp, "LButtonUp"},
                                                             {kWmLButtonDblClk, "LButtonDblClk"},
                                                             {kWmRButtonDown, "RButtonDown"},
                                                             {kWmRButtonUp, "RButtonUp"},
                                                             {kWmRButtonDblClk, "RButtonDblClk"},
                                                             {kWmMButtonDown, "MButtonDown"},
                                                             {kWmMButtonUp, "MButtonUp"},
                                                             {kWmMouseWheel, "MouseWheel"},
                                                             {kWmCaptureChanged, "CaptureChanged"}};
  const auto found = names.find(message);
  return found == names.end() ? "?" : found->second;
}

}  // namespace levelwidgets
