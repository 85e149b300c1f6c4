// How scripts fail, as whoever runs them hears of it.
#pragma once

#include <exception>
#include <functional>
#include <string>
#include <utility>

namespace levelwidgets {

// A script that ended by an error. The text says where, why and how it came there.
class ScriptFailure : public std::exception {
 public:
  explicit ScriptFailure(std::string text) : text_(std::move(text)) {}
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

// A script that was ended by an interrupt signal, see interrupt.h.
class ScriptInterruption : public ScriptFailure {
 public:
  using ScriptFailure::ScriptFailure;
};

// An error in an event handler. It is reported and goes no further: the form goes on.
struct HandlerError {
  std::string form;     // "" for an event of an object that is on none
  std::string control;  // "" for an event of the form itself; the class of an object that is no control
  std::string event;
  std::string message;  // file:line: what is wrong
  std::string traceback;

  // frmOrder.cmdSave Click: order.lua:3: ... and the traceback on lines of its own.
  std::string ToString() const;
};

// Gets whole lines of text for the user: errors in handlers, warnings of form files.
using ScriptReport = std::function<void(const std::string& text)>;

}  // namespace levelwidgets
