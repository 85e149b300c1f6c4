// A scene: which controls a client shows, where, and what it sets them to. A file of lines
//
//   control NAME LEFT TOP WIDTH HEIGHT     in pixels
//   set MEMBER|ARGUMENT...|VALUE           a property of the control above
//   call MEMBER|ARGUMENT...                a method of it; "Columns.Add" is one of the object that Columns
//   gives
#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <tools/components/win32/com.h>

struct SceneStep {
  WORD kind = DISPATCH_METHOD;
  std::wstring member;
  std::vector<std::wstring> arguments;
};

struct SceneControl {
  std::string name;
  int left = 0, top = 0, width = 0, height = 0;
  std::vector<SceneStep> steps;
};

using Scene = std::vector<SceneControl>;

// Scenes are written in ASCII.
inline std::wstring Widen(const std::string& text) { return {text.begin(), text.end()}; }

inline SceneStep ReadStep(WORD kind, const std::string& line) {
  std::vector<std::wstring> words;
  std::istringstream in(line);
  for (std::string word; std::getline(in, word, '|');) words.push_back(Widen(word));
  return {.kind = kind, .member = words.front(), .arguments = {words.begin() + 1, words.end()}};
}

inline Scene ReadScene(const wchar_t* path) {
  Scene scene;
  std::ifstream file(Narrow(path));
  for (std::string line, verb, rest; std::getline(file, line);) {
    std::istringstream in(line);
    in >> verb;
    if (verb == "control") {
      SceneControl control;
      in >> control.name >> control.left >> control.top >> control.width >> control.height;
      scene.push_back(control);
    } else if (std::getline(in >> std::ws, rest)) {
      scene.back().steps.push_back(ReadStep(verb == "set" ? DISPATCH_PROPERTYPUT : DISPATCH_METHOD, rest));
    }
  }
  return scene;
}

// Does what a step says, by late binding. All arguments are texts, which the control converts.
inline void Take(IDispatchPtr object, const SceneStep& step) {
  std::wstring member = step.member;
  for (std::size_t dot = 0; (dot = member.find(L'.')) != std::wstring::npos; member.erase(0, dot + 1)) {
    object = static_cast<IDispatch*>(Get(object, member.substr(0, dot)));
  }
  std::vector<_variant_t> arguments;
  for (const std::wstring& argument : step.arguments) arguments.emplace_back(argument.c_str());
  Invoke(object, member, step.kind, arguments);
}
