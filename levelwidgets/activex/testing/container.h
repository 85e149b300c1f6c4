// A container that records what a component asks of it.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <levelwidgets/activex/com/component_interface.h>

#include <levelwidgets/activex/com/com_object.h>

namespace levelwidgets::activex {

// A call as "GetWindowContext" or "TranslateAccelerator(13)".
using CallJournal = std::vector<std::string>;

// Its window is somebody else's. Every answer can be changed, and every call may do something: `on_call` is
// called with the name of each before it is answered.
class TestContainer
    : public ComObject<IOleClientSite, Extends<IOleInPlaceSite, IOleWindow>, IOleControlSite, IDispatch,
                       Extends<IOleInPlaceFrame, IOleInPlaceUIWindow>, IPropertyNotifySink, IAdviseSink> {
 public:
  explicit TestContainer(HWND window) : window_(window) {}

  CallJournal TakeCalls() { return std::exchange(calls_, {}); }

  // What the next calls of a name answer, instead of success.
  std::map<std::string, HRESULT> answers;
  std::function<void(const std::string&)> on_call;
  // By their numbers. The container has no others.
  std::map<DISPID, VARIANT> ambients;
  RECT position = {0, 0, 80, 25};
  RECT clip = {0, 0, 10000, 10000};
  // Whether it has a document in the frame, which is a window of its own: its calls are the same.
  bool has_document = false;
  // Whether keys offered to it are used.
  std::function<bool(const MSG&)> takes_key;

  // --- IOleClientSite ---------------------------------------------------------------------------
  HRESULT STDMETHODCALLTYPE SaveObject() override { return Called("SaveObject"); }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override {
    *container = nullptr;
    return E_NOINTERFACE;
  }
  HRESULT STDMETHODCALLTYPE ShowObject() override { return Called("ShowObject"); }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return Called("OnShowWindow"); }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

  // --- IOleInPlaceSite, IOleInPlaceFrame ----------------------------------------------------------
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
    *window = window_;
    return Called("GetWindow");
  }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return Called("CanInPlaceActivate"); }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return Called("OnInPlaceActivate"); }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return Called("OnUIActivate"); }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                             LPRECT place, LPRECT seen, LPOLEINPLACEFRAMEINFO info) override;
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return Called("OnUIDeactivate"); }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return Called("OnInPlaceDeactivate"); }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return Called("OnPosRectChange"); }
  HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
  HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return Called("SetBorderSpace"); }
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override;
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

  // --- IOleControlSite ----------------------------------------------------------------------------
  HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return Called("OnControlInfoChanged"); }
  HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** extended) override {
    *extended = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message, DWORD held) override;
  HRESULT STDMETHODCALLTYPE OnFocus(BOOL focus) override {
    return Called(focus ? "OnFocus(1)" : "OnFocus(0)");
  }
  HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return Called("ShowPropertyFrame", E_NOTIMPL); }

  // --- IDispatch: the ambient properties ------------------------------------------------------------
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value,
                                   EXCEPINFO*, UINT*) override;

  // --- IPropertyNotifySink, IAdviseSink -------------------------------------------------------------
  HRESULT STDMETHODCALLTYPE OnChanged(DISPID property) override {
    return Called("OnChanged(" + std::to_string(property) + ")");
  }
  HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return Called("OnRequestEdit"); }
  void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override { Called("OnDataChange"); }
  void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override { Called("OnViewChange"); }
  void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
  void STDMETHODCALLTYPE OnSave() override {}
  void STDMETHODCALLTYPE OnClose() override { Called("OnClose"); }

 private:
  HRESULT Called(const std::string& call, HRESULT otherwise = S_OK);

  HWND window_;
  CallJournal calls_;
};

// Hears of a component's events: "MouseDown(1, 0, 150, 150)".
class TestSink : public ComObject<IDispatch> {
 public:
  // `class_name` is the class whose events come.
  explicit TestSink(std::string_view class_name) : class_name_(class_name) {}

  CallJournal TakeEvents() { return std::exchange(events_, {}); }
  // Is called with the event's name and its arguments in their order.
  std::function<HRESULT(const std::string&, std::vector<VARIANT*>&)> on_event;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                   EXCEPINFO*, UINT*) override;

 private:
  std::string class_name_;
  CallJournal events_;
};

}  // namespace levelwidgets::activex
