// The entry of levelwidgets-doctor.
#include <windows.h>

#include <shellapi.h>

#include <iostream>

#include <levelwidgets/platform/win32/win32_text.h>
#include <tools/levelwidgets_doctor/gather.h>

int main() {
  // What a person types may be outside the code page.
  int count = 0;
  wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(levelwidgets::win32::FromWide(words[i]));
  ::LocalFree(words);
  return levelwidgets::doctor::RunDoctor(arguments, levelwidgets::doctor::GatherFacts, std::cout, std::cerr);
}
