#include <levelwidgets/activex/control/browse_part.h>

#include <algorithm>

#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/activex/com/task_memory.h>
#include <levelwidgets/activex/control/component.h>
#include <levelwidgets/activex/object/members.h>
#include <levelwidgets/activex/object/native_guid.h>
#include <levelwidgets/activex/object/values.h>
#include <levelwidgets/pages/registry.h>

namespace levelwidgets::activex {

namespace {

// --- Pages ---------------------------------------------------------------------------------------

// The class identifiers of those that show properties of `info`.
std::vector<GUID> PageIdsOf(const ClassInfo& info) {
  std::vector<GUID> ids;
  for (const PageInfo* page : PagesOf(info.Name()))
    ids.push_back(Native(IdentityOfPage(page->name)->class_id));
  return ids;
}

// --- Properties ----------------------------------------------------------------------------------

const PropertyInfo* PropertyAt(const ClassInfo& info, DISPID property) {
  return MemberTable::Of(info).Find(property).property;
}

const EnumerationInfo* EnumerationAt(const ClassInfo& info, DISPID property) {
  const PropertyInfo* const found = PropertyAt(info, property);
  return found && !found->Indexed() ? found->type.enumeration : nullptr;
}

PropertyCategory CategoryOf(const PropertyInfo& property) {
  if (property.is_collection) return kCategoryList;
  if (Has(property.flags, MemberFlags::kPlace)) return kCategoryPosition;
  constexpr MemberFlags kRange =
      MemberFlags::kRangeLow | MemberFlags::kRangeHigh | MemberFlags::kRangeValue | MemberFlags::kRangeStep;
  if (Has(property.flags, kRange)) return kCategoryScale;
  switch (property.type.kind) {
    case TypeKind::kColor:
    case TypeKind::kEnumeration: return kCategoryAppearance;
    case TypeKind::kFont: return kCategoryFont;
    case TypeKind::kPlain: break;
    default: return kCategoryMisc;
  }
  switch (property.type.type) {
    case VariantType::kString: return kCategoryText;
    case VariantType::kBoolean: return kCategoryBehavior;
    case VariantType::kDate: return kCategoryData;
    default: return kCategoryMisc;
  }
}

struct NamedCategory {
  PropertyCategory category;
  std::string_view name;
};
constexpr NamedCategory kCategoryNames[]{
    {kCategoryMisc, "Misc"},         {kCategoryFont, "Font"},
    {kCategoryPosition, "Position"}, {kCategoryAppearance, "Appearance"},
    {kCategoryBehavior, "Behavior"}, {kCategoryData, "Data"},
    {kCategoryList, "List"},         {kCategoryText, "Text"},
    {kCategoryScale, "Scale"},
};

// --- Safety --------------------------------------------------------------------------------------

DWORD SafetyOf(REFIID iid) {
  if (::IsEqualIID(iid, IID_IDispatch)) return INTERFACESAFE_FOR_UNTRUSTED_CALLER;
  const bool loads = ::IsEqualIID(iid, IID_IPersistStream) || ::IsEqualIID(iid, IID_IPersistStreamInit) ||
                     ::IsEqualIID(iid, IID_IPersistPropertyBag);
  return loads ? INTERFACESAFE_FOR_UNTRUSTED_DATA : 0;
}

}  // namespace

HRESULT BrowsePart::GetPages(CAUUID* pages) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!pages) return E_POINTER;
  return component_.Run([&] {
    const std::vector<GUID> ids = PageIdsOf(component_.Class());
    pages->pElems = TaskArray(ids);
    pages->cElems = static_cast<ULONG>(ids.size());
    return S_OK;
  });
}

HRESULT BrowsePart::GetDisplayString(DISPID property, BSTR* text) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!text) return E_POINTER;
  *text = nullptr;
  return component_.Run([&] {
    const EnumerationInfo* const enumeration = EnumerationAt(component_.Class(), property);
    if (!enumeration) return S_FALSE;
    const auto control = component_.SharedControl();
    const std::int32_t value = ToInt32(PropertyAt(component_.Class(), property)->get(*control));
    const auto item = std::ranges::find(enumeration->items, value, &EnumerationItem::value);
    if (item == enumeration->items.end()) return S_FALSE;
    *text = NewText(std::to_string(value) + " - " + std::string(item->name));
    return *text ? S_OK : E_OUTOFMEMORY;
  });
}

HRESULT BrowsePart::MapPropertyToPage(DISPID property, CLSID* page) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!page) return E_POINTER;
  *page = CLSID_NULL;
  const PropertyInfo* const found = PropertyAt(component_.Class(), property);
  if (!found) return DISP_E_MEMBERNOTFOUND;
  for (const PageInfo* each : PagesOf(component_.Class().Name())) {
    const auto shows = [found](const FieldBinding& binding) { return binding.property == found->name; };
    if (!std::ranges::any_of(PropertiesOn(*each), shows)) continue;
    *page = Native(IdentityOfPage(each->name)->class_id);
    return S_OK;
  }
  return PERPROP_E_NOPAGEAVAILABLE;
}

HRESULT BrowsePart::GetPredefinedStrings(DISPID property, CALPOLESTR* names, CADWORD* cookies) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!names || !cookies) return E_POINTER;
  *names = {};
  *cookies = {};
  const EnumerationInfo* const enumeration = EnumerationAt(component_.Class(), property);
  if (!enumeration) return S_FALSE;
  return component_.Run([&] {
    std::vector<LPOLESTR> texts;
    std::vector<DWORD> numbers;
    for (const EnumerationItem& item : enumeration->items) {
      texts.push_back(TaskText(std::to_string(item.value) + " - " + std::string(item.name)));
      numbers.push_back(static_cast<DWORD>(numbers.size()));
    }
    *names = {static_cast<ULONG>(texts.size()), TaskArray(texts)};
    *cookies = {static_cast<ULONG>(numbers.size()), TaskArray(numbers)};
    return S_OK;
  });
}

HRESULT BrowsePart::GetPredefinedValue(DISPID property, DWORD cookie, VARIANT* value) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!value) return E_POINTER;
  ::VariantInit(value);
  const EnumerationInfo* const enumeration = EnumerationAt(component_.Class(), property);
  if (!enumeration || cookie >= enumeration->items.size()) return E_INVALIDARG;
  value->vt = VT_I4;
  value->lVal = enumeration->items[cookie].value;
  return S_OK;
}

HRESULT BrowsePart::MapPropertyToCategory(DISPID property, PropertyCategory* category) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!category) return E_POINTER;
  const PropertyInfo* const found = PropertyAt(component_.Class(), property);
  *category = found ? CategoryOf(*found) : 0;
  return found ? S_OK : E_INVALIDARG;
}

HRESULT BrowsePart::GetCategoryName(PropertyCategory category, LCID, BSTR* name) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!name) return E_POINTER;
  *name = nullptr;
  const auto* const found = std::ranges::find(kCategoryNames, category, &NamedCategory::category);
  if (found == std::end(kCategoryNames)) return S_FALSE;
  *name = NewText(found->name);
  return *name ? S_OK : E_OUTOFMEMORY;
}

HRESULT BrowsePart::GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  if (!supported || !enabled) return E_POINTER;
  *supported = *enabled = SafetyOf(iid);
  return *supported != 0 ? S_OK : E_NOINTERFACE;
}

HRESULT BrowsePart::SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) {
  if (!component_.OnOwnThread()) return RPC_E_WRONG_THREAD;
  const DWORD supported = SafetyOf(iid);
  if (supported == 0) return E_NOINTERFACE;
  // They are safe whether or not anybody asks for it.
  return (mask & enabled & ~supported) != 0 ? E_FAIL : S_OK;
}

}  // namespace levelwidgets::activex
