#include <levelwidgets/activex/control/persist_part.h>

#include <levelwidgets/activex/control/component.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/persist/container_bag.h>
#include <levelwidgets/activex/persist/container_stream.h>
#include <levelwidgets/activex/persist/saved_bytes.h>

namespace levelwidgets::activex {

namespace {

constexpr const wchar_t* kContents = L"Contents";
constexpr DWORD kAlone = STGM_SHARE_EXCLUSIVE;

}  // namespace

HRESULT PersistPart::GetClassID(CLSID* id) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!id) return E_POINTER;
  *id = Native(component_.Identity().class_id);
  return S_OK;
}

HRESULT PersistPart::IsDirty() {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  return component_.Dirty() ? S_OK : S_FALSE;
}

HRESULT PersistPart::MakeNew() {
  return component_.Run([&] {
    component_.Renew(nullptr);
    component_.SetDirty(false);
    return S_OK;
  });
}

// --- A stream ------------------------------------------------------------------------------------

HRESULT PersistPart::InitNew() { return MakeNew(); }

HRESULT PersistPart::Load(IStream* stream) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!stream) return E_POINTER;
  return component_.Run([&] {
    const PropertyBag saved = ReadFrom(*stream);
    component_.Renew(&saved);
    component_.SetDirty(false);
    return S_OK;
  });
}

HRESULT PersistPart::Save(IStream* stream, BOOL clear_dirty) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!stream) return E_POINTER;
  return component_.Run([&] {
    WriteTo(*stream, component_.Saved());
    if (clear_dirty) component_.SetDirty(false);
    return S_OK;
  });
}

HRESULT PersistPart::GetSizeMax(ULARGE_INTEGER* size) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!size) return E_POINTER;
  return component_.Run([&] {
    size->QuadPart = ToSavedBytes(component_.Saved()).size();
    return S_OK;
  });
}

// --- A storage -----------------------------------------------------------------------------------

HRESULT PersistPart::InitNew(IStorage* storage) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  return storage ? MakeNew() : E_POINTER;
}

HRESULT PersistPart::Load(IStorage* storage) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!storage) return E_POINTER;
  ComPtr<IStream> stream;
  const HRESULT opened = storage->OpenStream(kContents, nullptr, STGM_READ | kAlone, 0, stream.Receive());
  return FAILED(opened) ? opened : Load(stream.Get());
}

HRESULT PersistPart::Save(IStorage* storage, BOOL) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!storage) return E_POINTER;
  ComPtr<IStream> stream;
  const HRESULT created =
      storage->CreateStream(kContents, STGM_CREATE | STGM_WRITE | kAlone, 0, 0, stream.Receive());
  return FAILED(created) ? created : Save(stream.Get(), TRUE);
}

// Nothing of the storage is kept.
HRESULT PersistPart::SaveCompleted(IStorage*) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  return S_OK;
}

HRESULT PersistPart::HandsOffStorage() {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  return S_OK;
}

// --- A property bag ------------------------------------------------------------------------------

HRESULT PersistPart::Load(IPropertyBag* bag, IErrorLog* log) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!bag) return E_POINTER;
  return component_.Run([&] {
    const ContainerBag saved(component_.GetRuntime(), component_.Class(), *bag, log);
    component_.Renew(&saved);
    component_.SetDirty(false);
    return S_OK;
  });
}

HRESULT PersistPart::Save(IPropertyBag* bag, BOOL clear_dirty, BOOL) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!bag) return E_POINTER;
  return component_.Run([&] {
    WriteTo(component_.GetRuntime(), *bag, component_.Saved());
    if (clear_dirty) component_.SetDirty(false);
    return S_OK;
  });
}

}  // namespace levelwidgets::activex
