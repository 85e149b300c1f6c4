// The system's questions for a file.
#pragma once

#include <levelwidgets/platform/file_dialogs.h>
#include <levelwidgets/platform/win32/exception_relay.h>

namespace levelwidgets::win32 {

class Win32FileDialogs final : public FileDialogApi {
 public:
  explicit Win32FileDialogs(ExceptionRelay& relay) : relay_(relay) {}

  std::optional<std::string> GetOpenFileNameA(const FileDialog& dialog) override;
  std::optional<std::string> GetSaveFileNameA(const FileDialog& dialog) override;

 private:
  template <typename Call>
  std::optional<std::string> Ask(Call call, const FileDialog& dialog, unsigned long flags);

  ExceptionRelay& relay_;
};

}  // namespace levelwidgets::win32
