#include <levelwidgets/activex/com/failure.h>

#include <levelwidgets/activex/com/com_ptr.h>
#include <levelwidgets/activex/com/com_text.h>

namespace levelwidgets::activex {

HRESULT ResultOf(const Error& error) {
  const std::int32_t number = error.Number();
  if (number > 0 && number <= 0xFFFF) return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
  return number < 0 ? number : E_FAIL;
}

void FillException(EXCEPINFO& exception, const Error& error, std::string_view source) {
  exception = {};
  exception.scode = ResultOf(error);
  exception.bstrSource = NewText(error.Source().empty() ? source : error.Source());
  exception.bstrDescription = NewText(error.Description());
}

HRESULT Fail(const Error& error) {
  ComPtr<ICreateErrorInfo> created;
  if (SUCCEEDED(::CreateErrorInfo(created.Receive()))) {
    created->SetSource(OwnedText(error.Source()).Get());
    created->SetDescription(OwnedText(error.Description()).Get());
    ::SetErrorInfo(0, As<IErrorInfo>(created).Get());
  }
  return ResultOf(error);
}

}  // namespace levelwidgets::activex
