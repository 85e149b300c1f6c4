#include <levelwidgets/activex/server/class_factory.h>

#include <functional>

#include <levelwidgets/activex/com/com_object.h>
#include <levelwidgets/activex/control/component.h>
#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/dispatch.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/page/property_page_object.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets::activex {

namespace {

// What a factory makes objects with.
using Make = std::function<HRESULT(IUnknown* outer, REFIID iid, void** made)>;

class ClassFactory : public ComObject<IClassFactory> {
 public:
  explicit ClassFactory(Make make) : make_(std::move(make)) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** made) override {
    if (!made) return E_POINTER;
    *made = nullptr;
    return make_(outer, iid, made);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    if (lock) {
      ModuleLock::Add();
    } else {
      ModuleLock::Remove();
    }
    return S_OK;
  }

 private:
  const Make make_;
};

HRESULT MakeInstance(const ClassInfo& info, IUnknown* outer, REFIID iid, void** made) {
  if (!info.Creatable()) return Component::Create(info, outer, iid, made);
  if (outer) return CLASS_E_NOAGGREGATION;
  return Guarded([&] {
    const auto runtime = Runtime::OfThread();
    return DispatchFor(*runtime, info.CreateObject())->QueryInterface(iid, made);
  });
}

// Null for what nobody may make.
const ClassInfo* MadeClass(std::string_view name) {
  if (const ClassInfo* control = FindControlClass(name)) return control;
  const ClassInfo* const object = FindObjectClass(name);
  return object && object->Creatable() ? object : nullptr;
}

// Of the class or the page with this identifier; null for none.
Make MakeOf(REFCLSID class_id) {
  for (const ClassIdentity& identity : ClassIdentities()) {
    if (Native(identity.class_id) != class_id) continue;
    const ClassInfo* const info = MadeClass(identity.class_name);
    if (!info) return nullptr;
    return [info](IUnknown* outer, REFIID iid, void** made) { return MakeInstance(*info, outer, iid, made); };
  }
  for (const PageIdentity& identity : PageIdentities()) {
    if (Native(identity.class_id) != class_id) continue;
    const PageInfo& page = PageNamed(identity.page_name);
    return [&page](IUnknown* outer, REFIID iid, void** made) {
      return CreatePropertyPage(page, outer, iid, made);
    };
  }
  return nullptr;
}

}  // namespace

HRESULT FindClassFactory(REFCLSID class_id, REFIID iid, void** found) {
  if (!found) return E_POINTER;
  *found = nullptr;
  return Guarded([&] {
    Make make = MakeOf(class_id);
    if (!make) return CLASS_E_CLASSNOTAVAILABLE;
    return ComPtr<ClassFactory>::Taking(new ClassFactory(std::move(make)))->QueryInterface(iid, found);
  });
}

}  // namespace levelwidgets::activex
