// Errors of the library as callers of the component interface see them.
#pragma once

#include <new>
#include <string_view>

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets::activex {

// Numbers of the automation layer (13) become what scripts show as these (0x800A000D); those of controls stay
// as they are.
HRESULT ResultOf(const Error& error);

// Leaves number, source and description for the caller of a member by name. `source` stands for an error that
// has none.
void FillException(EXCEPINFO& exception, const Error& error, std::string_view source);

// Leaves source and description where the caller of any other method may ask for them, and returns the
// number.
HRESULT Fail(const Error& error);

// The result of `call`, which returns one and may throw.
template <typename Call>
HRESULT Guarded(Call call) {
  try {
    return call();
  } catch (const Error& error) {
    return Fail(error);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace levelwidgets::activex
