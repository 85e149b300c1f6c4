// A control's saved properties, in whatever its container keeps them.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/control/component_part.h>

namespace levelwidgets::activex {

class PersistPart : public ComponentPart<Extends<IPersistStreamInit, IPersistStream, IPersist>,
                                         IPersistStorage, IPersistPropertyBag> {
 public:
  using ComponentPart::ComponentPart;

  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
  HRESULT STDMETHODCALLTYPE IsDirty() override;

  // --- A stream ---------------------------------------------------------------------------------

  HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
  HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clear_dirty) override;
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
  // Of a stream and of a bag.
  HRESULT STDMETHODCALLTYPE InitNew() override;

  // --- A storage: the stream kContents in it ------------------------------------------------------

  HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL same_as_load) override;
  HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE HandsOffStorage() override;

  // --- A property bag -----------------------------------------------------------------------------

  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) override;
  // What equals its default is not written, whatever `all` says: loading finds the default.
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clear_dirty, BOOL all) override;

 private:
  HRESULT MakeNew();
};

}  // namespace levelwidgets::activex
