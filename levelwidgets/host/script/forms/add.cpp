// form:add
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/script/forms/events.h>
#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/option_table.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {

constexpr std::string_view kSavedBag = "Properties";

const ClassInfo& FindClass(std::string_view name) {
  if (const ClassInfo* info = FindControlClass(name)) return *info;
  std::vector<std::string_view> names;
  std::string list;
  for (const ClassInfo* info : ControlClasses()) {
    names.push_back(info->Name());
    list += (list.empty() ? "" : ", ") + std::string(info->Name());
  }
  std::string text = "There is no control class \"" + std::string(name) + "\"";
  const std::string_view nearest = NearestName(name, names);
  text += nearest.empty() ? "." : "; did you mean \"" + std::string(nearest) + "\"?";
  throw Error(kInvalidCall, "LevelWidgets.Form", text + " The classes: " + list);
}

// What may stand in the table of a control of this class.
std::vector<std::string_view> AssignableNames(const ClassInfo& info) {
  std::vector<std::string_view> names{kSavedBag};
  for (const ClassInfo* members : {&HostedControl::Table(), &info}) {
    for (const PropertyInfo& property : members->Properties()) {
      if (!property.ReadOnly() && property.indices.size() < 2) names.push_back(property.name);
    }
  }
  return names;
}

// The bag in the table on top of the stack.
PropertyBag BagOfTable(lua_State* L, const ClassInfo& info) {
  PropertyBag bag;
  std::vector<std::string_view> names;
  for (const PropertyInfo* property : info.Persisted()) names.push_back(property->name);
  for (const std::string& key : KeysOfTable(L, -1, info.Name())) {
    const PersistedKey stored = info.FindPersisted(key);
    if (!stored.property) RaiseNoSuchMember(info.Name(), key, names);
    lua_getfield(L, -1, key.c_str());
    bag.WriteProperty(key, ToVariant(L, -1, stored.type), {});
    lua_pop(L, 1);
  }
  return bag;
}

HostedControl& Create(lua_State* L, Form& form, const ClassInfo& info, const std::string& name, int table,
                      const Placement& place) {
  if (table == 0) return form.Add(info, name, nullptr, place);
  lua_getfield(L, table, kSavedBag.data());
  if (lua_isnil(L, -1)) return form.Add(info, name, nullptr, place);
  luaL_checktype(L, -1, LUA_TTABLE);
  const PropertyBag bag = BagOfTable(L, info);
  return form.Add(info, name, &bag, place);
}

Placement PlaceOf(const ClassInfo& info, const OptionTable& values) {
  Placement place{{}, info.DefaultSize()};
  for (const PropertyInfo& property : HostedControl::Table().Properties()) {
    Twips* const length = LengthOf(place, property.flags);
    if (length) *length = values.Length(property.name, *length);
  }
  return place;
}

void AssignList(Object& object, const PropertyInfo& property, const std::vector<Variant>& list,
                const TextConversions& texts) {
  std::array<Variant, 1> index;
  for (std::size_t i = 0; i < list.size(); ++i) {
    index[0] = static_cast<std::int32_t>(i + 1);
    SetIndexedByName(object, property.name, index, list[i], texts);
  }
}

// The control's own properties, then what is left of the container's: each in the order of its class table.
// An indexed property takes a list of its values from index 1.
void Assign(HostedControl& hosted, const OptionTable& values, const TextConversions& texts) {
  const auto keep = hosted.shared_from_this();
  for (const bool containers : {false, true}) {
    const auto control = hosted.GetControl();
    if (!control) return;  // a handler of its notices has removed it
    Object& object = containers ? static_cast<Object&>(hosted) : *control;
    for (const PropertyInfo& property : object.Class().Properties()) {
      const PropertyInfo* const containers_own = HostedControl::Table().FindProperty(property.name);
      const bool is_containers = containers_own != nullptr;
      const bool is_place = is_containers && Has(containers_own->flags, MemberFlags::kPlace);
      if (is_place || is_containers != containers || !values.Has(property.name)) continue;
      if (property.Indexed()) {
        AssignList(object, property, values.List(property.name, property.type), texts);
      } else {
        SetByName(object, property.name, values.Value(property.name, property.type), texts);
      }
    }
  }
}

}  // namespace

int AddControl(lua_State* L) {
  const auto form = CheckForm(L, 1);
  const ClassInfo& info = FindClass(luaL_checkstring(L, 2));
  const std::string name = luaL_checkstring(L, 3);
  const int table = lua_isnoneornil(L, 4) ? 0 : 4;
  const OptionTable values(L, 4, info.Name(), AssignableNames(info), TextsOf(L));
  const auto control = Create(L, *form->form, info, name, table, PlaceOf(info, values)).shared_from_this();
  try {
    ConnectControl(form, *control);
    Assign(*control, values, TextsOf(L));
  } catch (const Error&) {
    // A handler may have put another one in its place.
    if (form->form->Find(name) == control) form->form->Remove(name);
    throw;
  }
  if (!control->GetControl()) throw RemovedWhileAdded(*control);
  PushControl(L, control);
  return 1;
}

}  // namespace levelwidgets
