#include <levelwidgets/activex/testing/container.h>

#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/controls/registry.h>

namespace levelwidgets::activex {

namespace {

std::string AsText(const VARIANT& value) {
  VARIANT text = {};
  if (FAILED(::VariantChangeTypeEx(&text, const_cast<VARIANT*>(&value), LOCALE_INVARIANT, 0, VT_BSTR)))
    return "?";
  const std::string result = TextOfBstr(text.bstrVal);
  ::VariantClear(&text);
  return result;
}

}  // namespace

HRESULT TestContainer::Called(const std::string& call, HRESULT otherwise) {
  calls_.push_back(call);
  if (on_call) {
    const ComPtr<TestContainer> keep(this);
    const auto copy = on_call;  // it may change it
    copy(call);
  }
  const auto answer = answers.find(call);
  return answer == answers.end() ? otherwise : answer->second;
}

HRESULT TestContainer::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                        LPRECT place, LPRECT seen, LPOLEINPLACEFRAMEINFO) {
  *frame = nullptr;
  *document = nullptr;
  *place = position;
  *seen = clip;
  const HRESULT result = Called("GetWindowContext");
  if (FAILED(result)) return result;
  *frame = this;
  AddRef();
  if (has_document) {
    *document = static_cast<IOleInPlaceFrame*>(this);
    AddRef();
  }
  return result;
}

HRESULT TestContainer::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
  return Called(object ? "SetActiveObject(object)" : "SetActiveObject(none)");
}

HRESULT TestContainer::TranslateAccelerator(LPMSG message, DWORD) {
  const HRESULT result = Called("TranslateAccelerator(" + std::to_string(message->message) + ", " +
                                    std::to_string(message->wParam) + ")",
                                S_FALSE);
  return takes_key && takes_key(*message) ? S_OK : result;
}

HRESULT TestContainer::Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                              UINT*) {
  const auto found = ambients.find(property);
  if (found == ambients.end()) return DISP_E_MEMBERNOTFOUND;
  return value ? ::VariantCopy(value, &found->second) : E_POINTER;
}

HRESULT TestSink::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                         UINT*) {
  std::string name = "?";
  for (const EventInfo& info : FindControlClass(class_name_)->Events()) {
    if (info.number == event) name = info.name;
  }
  std::vector<VARIANT*> arguments;
  std::string text;
  for (UINT i = parameters->cArgs; i > 0; --i) {
    arguments.push_back(&parameters->rgvarg[i - 1]);
    text += (text.empty() ? "" : ", ") + AsText(*arguments.back());
  }
  events_.push_back(name + "(" + text + ")");
  const auto handler = on_event;
  return handler ? handler(name, arguments) : S_OK;
}

}  // namespace levelwidgets::activex
