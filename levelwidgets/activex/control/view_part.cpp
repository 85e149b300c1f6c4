#include <levelwidgets/activex/control/view_part.h>

#include <levelwidgets/activex/control/component.h>
#include <levelwidgets/activex/control/enumerations.h>
#include <levelwidgets/activex/control/printed_control.h>
#include <levelwidgets/platform/win32/native.h>

namespace levelwidgets::activex {

namespace {

bool IsWhole(DWORD aspect) { return aspect == DVASPECT_CONTENT || aspect == DVASPECT_OPAQUE; }

FORMATETC MetafileFormat() { return {CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, -1, TYMED_ENHMF}; }

bool IsMetafile(const FORMATETC& format) {
  return format.cfFormat == CF_ENHMETAFILE && (format.tymed & TYMED_ENHMF) != 0 &&
         format.dwAspect == DVASPECT_CONTENT;
}

bool Meets(const RECT& bounds, const RECT& at) {
  RECT common = {};
  return ::IntersectRect(&common, &bounds, &at) != FALSE;
}

}  // namespace

void ViewPart::NotifyChanged() {
  if (const auto sink = sink_; sink && !component_.Place().Active()) {
    if ((sink_flags_ & ADVF_ONLYONCE) != 0) sink_ = nullptr;
    sink->OnViewChange(DVASPECT_CONTENT, -1);
  }
  if (const auto listeners = data_listeners_) listeners->SendOnDataChange(this, 0, 0);
}

// --- Drawing -------------------------------------------------------------------------------------

void ViewPart::DrawInto(HDC target, const RECTL& bounds) {
  const auto control = component_.SharedControl();
  const PixelRect client = control->GetSurface().ClientPixels();
  const Bitmap picture({client.width(), client.height()});
  PrintWindows(component_.GetRuntime().GetPlatform().Windows(),
               win32::ToNative<HWND>(control->GetSurface().hWnd()), picture.Context());
  picture.CopyTo(target, bounds);
}

HRESULT ViewPart::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds, LPCRECTL,
                       BOOL(CALLBACK*)(ULONG_PTR), ULONG_PTR) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!target || !bounds) return E_INVALIDARG;
  if (!IsWhole(aspect)) return DV_E_DVASPECT;
  return component_.Run([&] {
    DrawInto(target, *bounds);
    return S_OK;
  });
}

HRESULT ViewPart::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** palette) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!palette) return E_POINTER;
  *palette = nullptr;
  return S_FALSE;
}

HRESULT ViewPart::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  sink_ = sink;
  sink_aspects_ = aspects;
  sink_flags_ = flags;
  if (sink && (flags & ADVF_PRIMEFIRST) != 0) NotifyChanged();
  return S_OK;
}

HRESULT ViewPart::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (aspects) *aspects = sink_aspects_;
  if (flags) *flags = sink_flags_;
  if (sink) *sink = ComPtr<IAdviseSink>(sink_).Detach();
  return S_OK;
}

HRESULT ViewPart::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!size) return E_POINTER;
  if (!IsWhole(aspect)) return DV_E_DVASPECT;
  *size = ToHimetric(component_.Size());
  return S_OK;
}

HRESULT ViewPart::GetRect(DWORD aspect, LPRECTL rect) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!rect) return E_POINTER;
  if (!IsWhole(aspect)) return DV_E_DVASPECT;
  const SIZEL size = ToHimetric(component_.Size());
  *rect = {0, 0, size.cx, size.cy};
  return S_OK;
}

HRESULT ViewPart::GetViewStatus(DWORD* status) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!status) return E_POINTER;
  *status = VIEWSTATUS_OPAQUE;
  return S_OK;
}

HRESULT ViewPart::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT at, LONG, DWORD* result) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!bounds || !result) return E_POINTER;
  if (!IsWhole(aspect)) return DV_E_DVASPECT;
  *result = ::PtInRect(bounds, at) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
  return S_OK;
}

HRESULT ViewPart::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT at, LONG, DWORD* result) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!bounds || !at || !result) return E_POINTER;
  if (!IsWhole(aspect)) return DV_E_DVASPECT;
  *result = Meets(*bounds, *at) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
  return S_OK;
}

HRESULT ViewPart::GetNaturalExtent(DWORD aspect, LONG part, DVTARGETDEVICE* device, HDC, DVEXTENTINFO*,
                                   LPSIZEL size) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  return GetExtent(aspect, part, device, size);
}

// --- Data ----------------------------------------------------------------------------------------

HRESULT ViewPart::GetData(FORMATETC* format, STGMEDIUM* medium) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!format || !medium) return E_POINTER;
  if (!IsMetafile(*format)) return DV_E_FORMATETC;
  return component_.Run([&]() -> HRESULT {
    const SIZEL size = ToHimetric(component_.Size());
    const RECT frame = {0, 0, size.cx, size.cy};
    HDC const target = ::CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
    if (!target) return E_OUTOFMEMORY;
    try {
      DrawInto(target, {0, 0, component_.Size().width, component_.Size().height});
    } catch (...) {
      ::DeleteEnhMetaFile(::CloseEnhMetaFile(target));
      throw;
    }
    *medium = {};
    medium->tymed = TYMED_ENHMF;
    medium->hEnhMetaFile = ::CloseEnhMetaFile(target);
    return medium->hEnhMetaFile ? S_OK : E_OUTOFMEMORY;
  });
}

HRESULT ViewPart::QueryGetData(FORMATETC* format) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!format) return E_POINTER;
  return IsMetafile(*format) ? S_OK : DV_E_FORMATETC;
}

HRESULT ViewPart::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* same) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!format || !same) return E_POINTER;
  *same = *format;
  same->ptd = nullptr;
  return DATA_S_SAMEFORMATETC;
}

HRESULT ViewPart::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!formats) return E_POINTER;
  *formats = nullptr;
  if (direction != DATADIR_GET) return E_NOTIMPL;
  return Guarded([&] {
    *formats = MakeEnumeration<IEnumFORMATETC, FORMATETC>({MetafileFormat()});
    return S_OK;
  });
}

HRESULT ViewPart::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!format || !sink || !cookie) return E_POINTER;
  if (!data_listeners_) {
    const HRESULT made = ::CreateDataAdviseHolder(data_listeners_.Receive());
    if (FAILED(made)) return made;
  }
  return data_listeners_->Advise(this, format, flags, sink, cookie);
}

HRESULT ViewPart::DUnadvise(DWORD cookie) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  return data_listeners_ ? data_listeners_->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT ViewPart::EnumDAdvise(IEnumSTATDATA** sinks) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!sinks) return E_POINTER;
  *sinks = nullptr;
  return data_listeners_ ? data_listeners_->EnumAdvise(sinks) : S_OK;
}

}  // namespace levelwidgets::activex
