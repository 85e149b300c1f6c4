// Carries an exception out of a handler, past the system's frames, to the call that ran the handler.
#pragma once

#include <exception>
#include <utility>

namespace levelwidgets::win32 {

// Exceptions must not unwind frames of user32. A window procedure keeps what its handler throws (Guard);
// the call that made user32 run the procedure throws it on (Run). Of several exceptions within one call
// the first is kept. One that is kept outside any Run, in a message loop that is not ours, is thrown by
// the next outermost Run.
class ExceptionRelay {
 public:
  // For window procedures: the result of `handler`, or `otherwise` when it throws.
  template <typename Handler, typename Result>
  Result Guard(Handler handler, Result otherwise) {
    try {
      return handler();
    } catch (...) {
      if (!kept_) kept_ = std::current_exception();
      return otherwise;
    }
  }

  // Makes a call that may run window procedures, and throws what they kept. Calls nest: what an outer
  // call has kept so far is not thrown from an inner one.
  template <typename Call>
  auto Run(Call call) {
    const Outer outer(*this);
    const auto result = call();
    if (kept_) std::rethrow_exception(std::exchange(kept_, nullptr));
    return result;
  }

 private:
  class Outer {
   public:
    explicit Outer(ExceptionRelay& relay) : relay_(relay) {
      if (relay_.depth_++ > 0) kept_ = std::exchange(relay_.kept_, nullptr);
    }
    ~Outer() {
      --relay_.depth_;
      if (kept_) relay_.kept_ = kept_;
    }
    Outer(const Outer&) = delete;
    Outer& operator=(const Outer&) = delete;

   private:
    ExceptionRelay& relay_;
    std::exception_ptr kept_;
  };

  std::exception_ptr kept_;
  int depth_ = 0;
};

}  // namespace levelwidgets::win32
