// The fixture of tests of components.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/activex/testing/component_module.h>
#include <levelwidgets/activex/testing/container.h>
#include <levelwidgets/frame/variant.h>

namespace levelwidgets::activex {

// What a call by name ends in: a value, or an error.
struct CallResult {
  HRESULT result = S_OK;
  VARIANT value = {};
  std::string source;
  std::string description;
  HRESULT number = S_OK;  // of an exception

  CallResult() = default;
  CallResult(const CallResult&) = delete;
  CallResult& operator=(const CallResult&) = delete;
  CallResult(CallResult&& other) noexcept;
  ~CallResult() { ::VariantClear(&value); }
};

// A value for a call. It keeps what it holds.
class Value {
 public:
  Value() = default;  // left out
  Value(int number);
  Value(double number);
  Value(const char* text);
  Value(bool flag);
  Value(IUnknown* object);
  Value(const VARIANT& value);
  Value(const Value& other) : Value(other.value_) {}
  Value& operator=(const Value&) = delete;
  ~Value() { ::VariantClear(&value_); }
  VARIANT& Get() { return value_; }

 private:
  VARIANT value_ = {};
};

CallResult Invoke(IUnknown* object, DISPID member, WORD flags, std::vector<Value> arguments = {});
CallResult Invoke(IUnknown* object, const char* member, WORD flags, std::vector<Value> arguments = {});
CallResult Get(IUnknown* object, const char* property, std::vector<Value> indices = {});
CallResult Put(IUnknown* object, const char* property, std::vector<Value> indices_and_value);
CallResult Call(IUnknown* object, const char* method, std::vector<Value> arguments = {});
DISPID IdOf(IUnknown* object, const char* member);
// "12", "Save", "Nothing", "Empty": of a value that came back; "error 9" of an error.
std::string Shown(const CallResult& result);

// A window, and containers in it. Fails a test that leaves a drawing object, a window or a reference behind.
class ComponentTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  HWND Window() const { return window_; }
  // A container with a component of the class that is in place, has been shown and answers.
  void Embed(const char* class_name);
  // The same, not yet in place; `saved` is given to it, or it is new.
  void Site(const char* class_name, IStream* saved = nullptr);
  HRESULT Verb(LONG verb);
  // Dispatches what is pending.
  void Settle();
  // What the system itself has kept of drawing objects until now is not the test's.
  void ForgetDrawingObjects();
  // Ends the component that is embedded, as containers do.
  void Close();
  // Another container's window where a test has destroyed it.
  void RenewWindow();

  TestContainer& Container() { return *container_.Get(); }
  IUnknown* Object() { return object_.Get(); }
  template <typename I>
  ComPtr<I> Interface() {
    return As<I>(object_);
  }
  HWND ControlWindow();
  // Hears of the component's events from now on.
  TestSink& Listen();
  // Hears of its changes.
  void ListenToChanges();

 private:
  HWND window_ = nullptr;
  ComPtr<TestContainer> container_;
  ComPtr<IUnknown> object_;
  ComPtr<TestSink> sink_;
  std::string class_name_;
  std::size_t objects_before_ = 0;
};

}  // namespace levelwidgets::activex
