#include <levelwidgets/activex/object/dispatch.h>

#include <levelwidgets/activex/com/com_object.h>
#include <levelwidgets/activex/identity/identifiers.h>
#include <levelwidgets/activex/object/invoke.h>
#include <levelwidgets/activex/object/native_guid.h>

namespace levelwidgets::activex {

namespace {

class ObjectDispatch : public ComObject<IDispatch, ISupportErrorInfo, IProvideClassInfo, OwnObject> {
 public:
  ObjectDispatch(std::shared_ptr<Runtime> runtime, ObjectRef object)
      : runtime_(std::move(runtime)), object_(std::move(object)) {
    runtime_->NoteDispatch(*object_, this);
  }
  ~ObjectDispatch() override { runtime_->ForgetDispatch(*object_); }

  // Also by the interface that the type library gives the class: typed clients ask for that.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** found) override {
    const ClassIdentity* const identity = IdentityOf(object_->Class().Name());
    const bool is_ours = identity && ::IsEqualIID(iid, Native(identity->interface_id));
    return ComObject::QueryInterface(is_ours ? IID_IDispatch : iid, found);
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (!runtime_->OnOwnThread()) return RPC_E_WRONG_THREAD;
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** found) override {
    if (!runtime_->OnOwnThread()) return RPC_E_WRONG_THREAD;
    if (!found) return E_POINTER;
    *found = nullptr;
    return index == 0 ? MembersInTypeLibrary(object_->Class().Name(), found) : DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (!runtime_->OnOwnThread()) return RPC_E_WRONG_THREAD;
    return IdsOfNames(object_->Class(), names, count, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override {
    if (!runtime_->OnOwnThread()) return RPC_E_WRONG_THREAD;
    if (!::IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    const ComPtr<ObjectDispatch> keep(this);  // a member may make its caller let go of the object
    return InvokeMember(*runtime_, *object_, member, flags, parameters, result, exception);
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID) override {
    return runtime_->OnOwnThread() ? S_OK : RPC_E_WRONG_THREAD;
  }

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** found) override {
    if (!runtime_->OnOwnThread()) return RPC_E_WRONG_THREAD;
    return found ? ClassInTypeLibrary(object_->Class().Name(), found) : E_POINTER;
  }

  ObjectRef Inner() override { return object_; }

 private:
  void Destroy() override {
    runtime_->EndObject([this] { delete this; });
  }

  std::shared_ptr<Runtime> runtime_;
  ObjectRef object_;
};

}  // namespace

ComPtr<IDispatch> DispatchFor(Runtime& runtime, const ObjectRef& object) {
  if (!object) return nullptr;
  if (IDispatch* const known = runtime.DispatchOf(*object)) return known;
  return ComPtr<IDispatch>::Taking(new ObjectDispatch(Runtime::OfThread(), object));
}

}  // namespace levelwidgets::activex
