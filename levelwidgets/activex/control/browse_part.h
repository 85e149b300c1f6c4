// What property browsers want to know, and what a browser of pages may do.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>
#include <levelwidgets/activex/control/categorize_properties.h>
#include <levelwidgets/activex/control/component_part.h>

namespace levelwidgets::activex {

class BrowsePart
    : public ComponentPart<ISpecifyPropertyPages, IPerPropertyBrowsing, CategorizeProperties, IObjectSafety> {
 public:
  using ComponentPart::ComponentPart;

  HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override;

  // The name of an enumeration's item; S_FALSE for any other value.
  HRESULT STDMETHODCALLTYPE GetDisplayString(DISPID property, BSTR* text) override;
  HRESULT STDMETHODCALLTYPE MapPropertyToPage(DISPID property, CLSID* page) override;
  HRESULT STDMETHODCALLTYPE GetPredefinedStrings(DISPID property, CALPOLESTR* names,
                                                 CADWORD* cookies) override;
  HRESULT STDMETHODCALLTYPE GetPredefinedValue(DISPID property, DWORD cookie, VARIANT* value) override;

  HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID property, PropertyCategory* category) override;
  HRESULT STDMETHODCALLTYPE GetCategoryName(PropertyCategory category, LCID locale, BSTR* name) override;

  // Members by name, streams and bags take what anybody gives them.
  HRESULT STDMETHODCALLTYPE GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) override;
  HRESULT STDMETHODCALLTYPE SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) override;
};

}  // namespace levelwidgets::activex
