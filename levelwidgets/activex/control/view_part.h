// A control's picture, also where it has no window.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/control/component_part.h>

namespace levelwidgets::activex {

class ViewPart : public ComponentPart<Extends<IViewObjectEx, IViewObject2, IViewObject>, IDataObject> {
 public:
  using ComponentPart::ComponentPart;

  // The picture has changed.
  void NotifyChanged();

  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG part, void*, DVTARGETDEVICE*, HDC device, HDC target,
                                 LPCRECTL bounds, LPCRECTL window_bounds, BOOL(CALLBACK*)(ULONG_PTR),
                                 ULONG_PTR) override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                        LOGPALETTE** palette) override;
  HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG part, DVTARGETDEVICE*, LPSIZEL size) override;
  HRESULT STDMETHODCALLTYPE GetRect(DWORD aspect, LPRECTL rect) override;
  HRESULT STDMETHODCALLTYPE GetViewStatus(DWORD* status) override;
  HRESULT STDMETHODCALLTYPE QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT at, LONG close,
                                          DWORD* result) override;
  HRESULT STDMETHODCALLTYPE QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT at, LONG close,
                                         DWORD* result) override;
  HRESULT STDMETHODCALLTYPE GetNaturalExtent(DWORD aspect, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*,
                                             LPSIZEL size) override;

  // The picture as a metafile, for containers that keep one.
  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override;
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override;
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* same) override;
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                    DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** sinks) override;

 private:
  // Draws over the rectangle `bounds` of `target`, which is in the units of that context.
  void DrawInto(HDC target, const RECTL& bounds);

  ComPtr<IAdviseSink> sink_;
  DWORD sink_aspects_ = 0;
  DWORD sink_flags_ = 0;
  ComPtr<IDataAdviseHolder> data_listeners_;
};

}  // namespace levelwidgets::activex
