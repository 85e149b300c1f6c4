#include <levelwidgets/host/form/file_question.h>

#include <filesystem>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/form/file_question_form.h>
#include <levelwidgets/host/form/system_question.h>
#include <levelwidgets/platform/file_dialogs.h>

namespace levelwidgets {

namespace {

// The system's question has no notion of this program's current folder.
std::string AbsoluteFolder(const std::string& folder) {
  if (folder.empty()) return folder;
  std::error_code error;
  return TextOfPath(std::filesystem::absolute(PathOf(folder), error).make_preferred());
}

std::optional<std::string> PathFromSystem(FileDialogApi& dialogs, const FileQuestion& question,
                                          WindowHandle owner) {
  const FileDialog dialog{.owner = owner,
                          .title = question.title,
                          .folder = AbsoluteFolder(question.folder),
                          .name = question.name,
                          .patterns = question.patterns};
  return question.to_save ? dialogs.GetSaveFileNameA(dialog) : dialogs.GetOpenFileNameA(dialog);
}

}  // namespace

std::shared_ptr<Form> AskForFile(Platform& platform, const FileQuestion& question,
                                 const std::vector<std::shared_ptr<Form>>& others, FileAnswer on_answered) {
  FileDialogApi* const dialogs = question.root.empty() ? FileDialogsOf(platform) : nullptr;
  if (!dialogs) return ShowFileQuestion(platform, question, others, std::move(on_answered));
  AskSystem(
      platform, others,
      [dialogs, question](WindowHandle owner) { return PathFromSystem(*dialogs, question, owner); },
      std::move(on_answered));
  return nullptr;
}

}  // namespace levelwidgets
