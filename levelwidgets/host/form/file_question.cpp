#include <levelwidgets/host/form/file_question.h>

#include <algorithm>
#include <filesystem>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/form/file_question_form.h>
#include <levelwidgets/host/form/modal.h>
#include <levelwidgets/platform/file_dialogs.h>

namespace levelwidgets {

namespace {

using Forms = std::vector<std::shared_ptr<Form>>;

// The one that is active; null when none is.
std::shared_ptr<Form> ActiveOf(Platform& platform, const Forms& forms) {
  const WindowHandle active = platform.Windows().GetActiveWindow();
  const auto found = std::ranges::find_if(
      forms, [&](const auto& form) { return !form->Closed() && form->hWnd() == active; });
  return found == forms.end() ? nullptr : *found;
}

// The system's question has no notion of this program's current folder.
std::string AbsoluteFolder(const std::string& folder) {
  if (folder.empty()) return folder;
  std::error_code error;
  return TextOfPath(std::filesystem::absolute(PathOf(folder), error).make_preferred());
}

std::optional<std::string> PathFromSystem(FileDialogApi& dialogs, Platform& platform,
                                          const FileQuestion& question, const Forms& others) {
  const auto owner = ActiveOf(platform, others);
  const FormsAtRest rest(others, owner.get());  // the system's question disables the owner itself
  const FileDialog dialog{.owner = owner ? owner->hWnd() : WindowHandle{},
                          .title = question.title,
                          .folder = AbsoluteFolder(question.folder),
                          .name = question.name,
                          .patterns = question.patterns};
  return question.to_save ? dialogs.GetSaveFileNameA(dialog) : dialogs.GetOpenFileNameA(dialog);
}

}  // namespace

std::shared_ptr<Form> AskForFile(Platform& platform, const FileQuestion& question, const Forms& others,
                                 FileAnswer on_answered) {
  FileDialogApi* const dialogs = question.root.empty() ? FileDialogsOf(platform) : nullptr;
  if (!dialogs) return ShowFileQuestion(platform, question, others, std::move(on_answered));
  // The system's call returns with the answer; its caller must not wait for it.
  const std::vector<std::weak_ptr<Form>> forms(others.begin(), others.end());
  platform.Clock().Post([dialogs, &platform, question, forms, told = std::move(on_answered)] {
    Forms open;
    for (const auto& form : forms) {
      if (auto alive = form.lock()) open.push_back(std::move(alive));
    }
    const auto path = PathFromSystem(*dialogs, platform, question, std::exchange(open, {}));
    if (told) told(path);
  });
  return nullptr;
}

}  // namespace levelwidgets
