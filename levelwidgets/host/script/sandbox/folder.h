// The one folder that a script in a sandbox reads from.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace levelwidgets {

// Whether `file` is an ordinary file in `folder` or below, wherever symbolic links lead to. "" is the current
// folder.
bool IsFileInFolder(const std::filesystem::path& folder, const std::filesystem::path& file);

// Raises ScriptFailure when the script at `path` of a form in `folder` is not there or below: nobody is shown
// a word of it.
void RequireScriptInFolder(const std::filesystem::path& folder, const std::string& path);

// The file at the relative `path` (UTF-8) in `folder` or below; nothing when there is none, or when it is
// elsewhere.
std::optional<std::string> FileInFolder(const std::filesystem::path& folder, const std::string& path);

// The same for the module `name`: letters, digits, "_" and "-", with "." between the names of folders.
std::optional<std::string> ModuleInFolder(const std::filesystem::path& folder, const std::string& name);

}  // namespace levelwidgets
