#include <levelwidgets/activex/page/property_page_object.h>

#include <algorithm>
#include <optional>
#include <vector>

#include <levelwidgets/activex/com/com_object.h>
#include <levelwidgets/activex/com/task_memory.h>
#include <levelwidgets/activex/page/dispatch_target.h>
#include <levelwidgets/activex/page/page_window.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets::activex {

namespace {

class PropertyPageObject : public ComObject<Extends<IPropertyPage2, IPropertyPage>, ISupportErrorInfo> {
 public:
  explicit PropertyPageObject(const PageInfo& info)
      : page_(PropertyPage::Create(info, runtime_->GetPlatform().Conversions())),
        self_(std::make_shared<PropertyPageObject*>(this)) {
    page_->ChangedNotified += [weak = std::weak_ptr(self_)] {
      if (const auto self = weak.lock()) (*self)->NotifyChange();
    };
  }
  ~PropertyPageObject() override { self_.reset(); }

  // --- The frame --------------------------------------------------------------------------------------

  HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* site) override {
    return Run([&] {
      if (site && site_) return E_UNEXPECTED;
      site_ = site;
      return S_OK;
    });
  }

  HRESULT STDMETHODCALLTYPE Activate(HWND parent, LPCRECT place, BOOL) override {
    if (!place) return E_POINTER;
    return Run([&] {
      if (!::IsWindow(parent)) return E_INVALIDARG;
      if (window_) return E_UNEXPECTED;
      window_ = PageWindow::Open(runtime_, page_, parent, [weak = std::weak_ptr(self_)](MSG& message) {
        const auto self = weak.lock();
        return self && (*self)->FrameUses(message);
      });
      window_->Place(*place);
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE Deactivate() override {
    return Run([&] {
      const auto window = std::exchange(window_, nullptr);
      if (!window) return E_UNEXPECTED;
      window->Close();
      return S_OK;
    });
  }

  HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* info) override {
    if (!info) return E_POINTER;
    return Run([&] {
      if (!size_) size_ = PageWindow::SizeOf(runtime_, page_->Info());
      *info = {};
      info->cb = sizeof *info;
      info->size = {size_->width, size_->height};
      info->pszTitle = TaskText(page_->Info().title);
      return S_OK;
    });
  }

  HRESULT STDMETHODCALLTYPE Show(UINT command) override {
    if (command != SW_SHOW && command != SW_SHOWNORMAL && command != SW_HIDE) return E_INVALIDARG;
    return WithWindow([&](PageWindow& window) { window.Show(command != SW_HIDE); });
  }
  HRESULT STDMETHODCALLTYPE Move(LPCRECT place) override {
    if (!place) return E_POINTER;
    return WithWindow([&](PageWindow& window) { window.Place(*place); });
  }
  HRESULT STDMETHODCALLTYPE Help(LPCOLESTR) override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) override {
    if (!message) return E_POINTER;
    return Run([&] {
      const auto window = window_;
      return window && window->Exists() ? window->Translate(*message) : S_FALSE;
    });
  }

  // --- The objects ------------------------------------------------------------------------------------

  // A page that cannot read the first of them shows nothing, and holds none.
  HRESULT STDMETHODCALLTYPE SetObjects(ULONG count, IUnknown** objects) override {
    if (count > 0 && !objects) return E_POINTER;
    return Run([&] {
      std::vector<PageTargetRef> targets;
      targets_.clear();
      for (ULONG i = 0; i < count; ++i) {
        const auto object = As<IDispatch>(objects[i]);
        if (!object) return Empty(objects[i] ? E_NOINTERFACE : E_POINTER);
        targets_.push_back(std::make_shared<DispatchTarget>(runtime_, object));
        targets.push_back(targets_.back());
      }
      try {
        page_->SelectionChanged(std::move(targets));
      } catch (const Error& error) {
        return Empty(Fail(error));
      }
      return S_OK;
    });
  }
  // An edit that marks nothing is still to be written.
  HRESULT STDMETHODCALLTYPE IsPageDirty() override {
    return Run([&] { return page_->Edited() ? S_OK : S_FALSE; });
  }
  HRESULT STDMETHODCALLTYPE Apply() override {
    return Run([&] {
      page_->ApplyChanges();
      return S_OK;
    });
  }

  HRESULT STDMETHODCALLTYPE EditProperty(DISPID property) override {
    return Run([&]() -> HRESULT {
      const std::string_view field = FieldOf(property);
      if (field.empty()) return E_INVALIDARG;
      return WithWindow([&](PageWindow& window) { window.Focus(field); });
    });
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID) override { return S_OK; }

 private:
  // The result of `call` on the thread of the page, which lives until it ends.
  template <typename Call>
  HRESULT Run(Call call) {
    if (!runtime_->OnOwnThread()) return RPC_E_WRONG_THREAD;
    const ComPtr<PropertyPageObject> keep(this);
    return Guarded(call);
  }
  template <typename Deed>
  HRESULT WithWindow(Deed deed) {
    return Run([&] {
      const auto window = window_;
      if (!window || !window->Exists()) return E_UNEXPECTED;
      deed(*window);
      return S_OK;
    });
  }

  HRESULT Empty(HRESULT result) {
    targets_.clear();
    page_->SelectionChanged({});
    return result;
  }

  void NotifyChange() {
    const ComPtr<PropertyPageObject> keep(this);
    const auto site = site_;
    if (site && page_->Changed()) site->OnStatusChange(PROPPAGESTATUS_DIRTY | PROPPAGESTATUS_VALIDATE);
  }
  bool FrameUses(MSG& message) {
    const ComPtr<PropertyPageObject> keep(this);
    const auto site = site_;
    return site && site->TranslateAccelerator(&message) == S_OK;
  }

  // The field that shows the property to which the first object gives that number; "" for none.
  std::string_view FieldOf(DISPID property) const {
    if (targets_.empty() || property == DISPID_UNKNOWN) return {};
    for (const auto& [field, name] : PropertiesOn(page_->Info())) {
      if (targets_.front()->NumberOf(name) == property) return field;
    }
    return {};
  }

  const std::shared_ptr<Runtime> runtime_ = Runtime::OfThread();
  const std::shared_ptr<PropertyPage> page_;
  std::shared_ptr<PropertyPageObject*> self_;  // null once it ends
  ComPtr<IPropertyPageSite> site_;
  std::vector<std::shared_ptr<DispatchTarget>> targets_;
  std::shared_ptr<PageWindow> window_;  // while it is active
  std::optional<PixelSize> size_;
};

}  // namespace

HRESULT CreatePropertyPage(const PageInfo& info, IUnknown* outer, REFIID iid, void** made) {
  if (!made) return E_POINTER;
  *made = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  return Guarded([&] {
    return ComPtr<PropertyPageObject>::Taking(new PropertyPageObject(info))->QueryInterface(iid, made);
  });
}

}  // namespace levelwidgets::activex
