#include <levelwidgets/host/script/members/objects.h>

#include <levelwidgets/frame/enumerator.h>
#include <levelwidgets/frame/known_members.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/members/indexed.h>
#include <levelwidgets/host/script/members/known_names.h>
#include <levelwidgets/host/script/members/listeners.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {

constexpr char kControlType[] = "control";
constexpr char kObjectType[] = "object";

using HostedRef = std::shared_ptr<HostedControl>;

// The values made so far, by the address of what they stand for; weak, so that unused ones go.
constexpr char kKnownValues[] = "levelwidgets.values";

// Pushes the value that stands for `address`, if there is one.
bool PushKnown(lua_State* L, const void* address) {
  luaL_getsubtable(L, LUA_REGISTRYINDEX, kKnownValues);
  const bool known = lua_rawgetp(L, -1, address) != LUA_TNIL;
  lua_remove(L, -2);
  if (!known) lua_pop(L, 1);
  return known;
}

void Remember(lua_State* L, const void* address) {
  luaL_getsubtable(L, LUA_REGISTRYINDEX, kKnownValues);
  lua_pushvalue(L, -2);
  lua_rawsetp(L, -2, address);
  lua_pop(L, 1);
}

// The arguments of `method` from index 2 on. Pure outputs need no place among them: where no more values are
// given than there are other arguments, the values are those.
std::vector<Variant> ArgumentsOf(lua_State* L, const MethodInfo& method) {
  const int top = lua_gettop(L);
  const auto inputs = std::ranges::count(method.arguments, false, &ArgumentInfo::output);
  const bool without_outputs = top - 1 <= inputs;
  std::vector<Variant> arguments;
  int index = 2;
  for (const ArgumentInfo& argument : method.arguments) {
    const bool given = index <= top && !(argument.output && without_outputs);
    arguments.push_back(given ? ToVariant(L, index++, argument.type) : Variant());
  }
  while (index <= top)
    arguments.push_back(ToVariant(L, index++));  // too many: refused with the method's name
  return arguments;
}

// Calls the method with the arguments from index 2 on. Returns how many values it has pushed: the result,
// then what the method left in its by-reference arguments; nil for neither.
int CallMethod(lua_State* L, Object& object, const MethodInfo& method) {
  std::vector<Variant> arguments = ArgumentsOf(L, method);
  const Variant result = InvokeKnown(object, method, arguments, TextsOf(L));
  int pushed = 0;
  if (method.result.kind != TypeKind::kNone) {
    PushVariant(L, result, method.result);
    ++pushed;
  }
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const ArgumentInfo argument = method.arguments[i];
    if (!argument.by_reference) continue;
    PushVariant(L, arguments[i], argument.type);
    ++pushed;
  }
  if (pushed > 0) return pushed;
  lua_pushnil(L);
  return 1;
}

// --- Controls --------------------------------------------------------------------------------------

[[noreturn]] void RaiseNoSuchControlMember(lua_State* L, const HostedControl& control,
                                           std::string_view name) {
  std::vector<std::string_view> names = control.ControlClass().MemberNames();
  for (const auto& more : {HostedControl::Table().MemberNames(), ScriptMethodNames(L, 1)}) {
    names.insert(names.end(), more.begin(), more.end());
  }
  RaiseNoSuchMember(control.ControlClass().Name(), name, names);
}

// The container's properties and methods are rows of a table of their own.
Object& OwnerOf(const PropertyInfo& property, HostedControl& hosted, Control& control) {
  return IsAmong(HostedControl::Table().Properties(), property) ? static_cast<Object&>(hosted) : control;
}
Object& OwnerOf(const MethodInfo& method, HostedControl& hosted, Control& control) {
  return IsAmong(HostedControl::Table().Methods(), method) ? static_cast<Object&>(hosted) : control;
}

// The control's own methods come before the container's.
const MethodInfo* FindControlMethod(const ClassInfo& control_class, std::string_view name) {
  const MethodInfo* own = control_class.FindMethod(name);
  return own ? own : HostedControl::Table().FindMethod(name);
}

int CallControl(lua_State* L) {
  const HostedRef hosted = CheckControl(L, 1);
  const auto control = hosted->GetControl();
  const auto look_up = [&](std::string_view name) {
    const MethodInfo* method = FindControlMethod(control->Class(), name);
    if (!method) RaiseNoSuchControlMember(L, *hosted, name);
    return method;
  };
  const MethodInfo& method = *MethodOf(L, control->Class(), look_up);
  return CallMethod(L, OwnerOf(method, *hosted, *control), method);
}

// Pushes what the name at index 2 stands for. What the container adds has its meaning on every control.
void LookUpOfControl(lua_State* L, const HostedControl& hosted) {
  const std::string_view name = lua_tostring(L, 2);
  const ClassInfo& control_class = hosted.ControlClass();
  if (PushScriptMethod(L, 1, name)) return;
  for (const ClassInfo* info : {&HostedControl::Table(), &control_class}) {
    if (const PropertyInfo* property = info->FindProperty(name)) return PushRow(L, *property);
  }
  if (const MethodInfo* method = FindControlMethod(control_class, name)) {
    return PushMethod(L, Guarded<CallControl>, control_class, *method);
  }
  RefuseEvent(control_class, name);
  RefuseEvent(HostedControl::Table(), name);
  RaiseNoSuchControlMember(L, hosted, name);
}

// The property that the name at index 2 is of the control at index 1. Null, with a function pushed, for a
// method.
const PropertyInfo* PropertyOfControl(lua_State* L, const HostedControl& hosted) {
  luaL_checkstring(L, 2);
  PushKnownName(L, [&] { LookUpOfControl(L, hosted); });
  return RowAt(L);
}

int ReadControl(lua_State* L) {
  HostedControl& hosted = *CheckOwn<HostedRef>(L, 1, kControlType);
  Control& control = *ControlOf(hosted);  // what is read runs no handler
  if (const PropertyInfo* property = PropertyOfControl(L, hosted)) {
    PushProperty(L, OwnerOf(*property, hosted, control), *property);
  }
  return 1;
}

[[noreturn]] void RefuseMethod(const ClassInfo& info, std::string_view name) {
  throw Error(kPropertyIsReadOnly, info.QualifiedName(),
              std::string(info.Name()) + "." + std::string(name) + " is a method");
}

int WriteControl(lua_State* L) {
  HostedControl& hosted = *CheckOwn<HostedRef>(L, 1, kControlType);
  const auto control = ControlOf(hosted);
  const PropertyInfo* property = PropertyOfControl(L, hosted);
  if (!property) RefuseMethod(control->Class(), lua_tostring(L, 2));
  AssignProperty(L, OwnerOf(*property, hosted, *control), *property, 3);
  return 0;
}

int ControlToText(lua_State* L) {
  const HostedRef& hosted = CheckUserdata<HostedRef>(L, 1, kControlType);
  PushText(L, std::string(hosted->ControlClass().Name()) + " " + hosted->Name());
  return 1;
}

// control:Move(left [, top [, width [, height]]])
int MoveControl(lua_State* L) {
  const HostedRef hosted = CheckControl(L, 1);
  const auto length = [L](int index, Twips present) {
    return Twips(static_cast<float>(luaL_optnumber(L, index, lua_Number{present.value})));
  };
  luaL_checknumber(L, 2);
  hosted->Move({length(2, hosted->Left()), length(3, hosted->Top())},
               {length(4, hosted->Width()), length(5, hosted->Height())});
  return 0;
}

// control:properties(): the bag it would save
int ControlProperties(lua_State* L) {
  const HostedRef hosted = CheckControl(L, 1);
  const PropertyBag bag = hosted->Properties();
  lua_newtable(L);
  lua_Integer place = 0;
  for (const PropertyBag::Entry& entry : bag.Entries()) {
    lua_newtable(L);
    lua_pushstring(L, entry.name.c_str());
    lua_setfield(L, -2, "Name");
    PushVariant(L, entry.value, hosted->ControlClass().FindPersisted(entry.name).type);
    lua_setfield(L, -2, "Value");
    lua_rawseti(L, -2, ++place);
  }
  return 1;
}

constexpr luaL_Reg kControlMetamethods[] = {{"__index", Guarded<ReadControl>},
                                            {"__newindex", Guarded<WriteControl>},
                                            {"__tostring", Guarded<ControlToText>},
                                            {nullptr, nullptr}};

constexpr luaL_Reg kControlMethods[] = {{"Move", Guarded<MoveControl>},
                                        {"on", Guarded<ListenToControl>},
                                        {"properties", Guarded<ControlProperties>},
                                        {nullptr, nullptr}};

// --- Other objects ---------------------------------------------------------------------------------

ObjectRef CheckObject(lua_State* L) { return CheckUserdata<ObjectRef>(L, 1, kObjectType); }

[[noreturn]] void RaiseNoSuchObjectMember(lua_State* L, const ClassInfo& info, std::string_view name) {
  std::vector<std::string_view> names = info.MemberNames();
  const std::vector<std::string_view> more = ScriptMethodNames(L, 1);
  names.insert(names.end(), more.begin(), more.end());
  RaiseNoSuchMember(info.Name(), name, names);
}

int CallObject(lua_State* L) {
  const ObjectRef object = CheckObject(L);
  const auto look_up = [&](std::string_view name) {
    const MethodInfo* method = object->Class().FindMethod(name);
    if (!method) RaiseNoSuchObjectMember(L, object->Class(), name);
    return method;
  };
  return CallMethod(L, *object, *MethodOf(L, object->Class(), look_up));
}

// The indexed property that list[1] stands for. Raises 438 when there is none.
const PropertyInfo& ItemsOf(const ClassInfo& info) {
  const PropertyInfo* items = info.FindProperty(info.DefaultMember());
  if (items && items->Indexed()) return *items;
  throw Error(kNoSuchMember, info.QualifiedName(), std::string(info.Name()) + " has no members by number");
}

// Pushes what the name at index 2 stands for.
void LookUpOfObject(lua_State* L, const ClassInfo& info) {
  const std::string_view name = lua_tostring(L, 2);
  if (PushScriptMethod(L, 1, name)) return;
  if (const PropertyInfo* property = info.FindProperty(name)) return PushRow(L, *property);
  if (const MethodInfo* method = info.FindMethod(name)) {
    return PushMethod(L, Guarded<CallObject>, info, *method);
  }
  RefuseEvent(info, name);
  RaiseNoSuchObjectMember(L, info, name);
}

// As PropertyOfControl.
const PropertyInfo* PropertyOfObject(lua_State* L, const ClassInfo& info) {
  PushKnownName(L, [&] { LookUpOfObject(L, info); });
  return RowAt(L);
}

int ReadObject(lua_State* L) {
  const Object& object = *CheckOwn<ObjectRef>(L, 1, kObjectType);
  if (lua_type(L, 2) != LUA_TSTRING) {
    PushIndexed(L, 1, ItemsOf(object.Class()));
    lua_pushvalue(L, 2);
    lua_gettable(L, -2);
  } else if (const PropertyInfo* property = PropertyOfObject(L, object.Class())) {
    PushProperty(L, object, *property);
  }
  return 1;
}

int WriteObject(lua_State* L) {
  Object& object = *CheckOwn<ObjectRef>(L, 1, kObjectType);
  if (lua_type(L, 2) != LUA_TSTRING) {
    PushIndexed(L, 1, ItemsOf(object.Class()));
    lua_pushvalue(L, 2);
    lua_pushvalue(L, 3);
    lua_settable(L, -3);
    return 0;
  }
  const PropertyInfo* property = PropertyOfObject(L, object.Class());
  if (!property) RefuseMethod(object.Class(), lua_tostring(L, 2));
  AssignProperty(L, object, *property, 3);
  return 0;
}

int ObjectToText(lua_State* L) {
  PushText(L, CheckObject(L)->Class().Name());
  return 1;
}

// Upvalue 1 is the enumerator; nil ends the loop.
int NextItem(lua_State* L) {
  const ObjectRef enumerator = CheckUserdata<ObjectRef>(L, lua_upvalueindex(1), kObjectType);
  PushVariant(L, static_cast<Enumerator&>(*enumerator).Next());
  return 1;
}

// for item in collection:each() do
int EachItem(lua_State* L) {
  PushObject(L, Enumerate(*CheckObject(L)));
  lua_pushcclosure(L, Guarded<NextItem>, 1);
  return 1;
}

constexpr luaL_Reg kObjectMetamethods[] = {{"__index", Guarded<ReadObject>},
                                           {"__newindex", Guarded<WriteObject>},
                                           {"__tostring", Guarded<ObjectToText>},
                                           {nullptr, nullptr}};

constexpr luaL_Reg kObjectMethods[] = {
    {"each", Guarded<EachItem>}, {"on", Guarded<ListenToObject>}, {nullptr, nullptr}};

constexpr ObjectValues kObjectValues{PushObject, ObjectAt};

}  // namespace

void OpenObjects(lua_State* L) {
  SetObjectValues(L, kObjectValues);
  lua_newtable(L);
  lua_createtable(L, 0, 1);
  lua_pushliteral(L, "v");
  lua_setfield(L, -2, "__mode");
  lua_setmetatable(L, -2);
  lua_setfield(L, LUA_REGISTRYINDEX, kKnownValues);

  DefineType<HostedRef>(L, kControlType, kControlMetamethods);
  SetScriptMethods(L, kControlMethods);
  DefineType<ObjectRef>(L, kObjectType, kObjectMetamethods);
  SetScriptMethods(L, kObjectMethods);
  lua_pop(L, 2);
}

void PushControl(lua_State* L, const HostedRef& control) {
  if (PushKnown(L, control.get())) return;
  PushUserdata(L, kControlType, control, kMemberUserValues);
  ShareKnownNames(L, control->ControlClass());
  Remember(L, control.get());
}

const HostedRef* ControlAt(lua_State* L, int index) {
  return TestUserdata<HostedRef>(L, index, kControlType);
}

const std::shared_ptr<Control>& ControlOf(const HostedControl& hosted) {
  if (const auto& control = hosted.GetControl()) return control;
  throw Error(kInvalidCall, "LevelWidgets.Form", hosted.Name() + " is on no form any more");
}

HostedRef CheckControl(lua_State* L, int index) {
  const HostedRef& control = CheckUserdata<HostedRef>(L, index, kControlType);
  ControlOf(*control);
  return control;
}

void PushObject(lua_State* L, const ObjectRef& object) {
  if (!object) {
    lua_pushnil(L);
  } else if (const auto control = std::dynamic_pointer_cast<HostedControl>(object)) {
    PushControl(L, control);
  } else if (!PushKnown(L, object.get())) {
    PushUserdata(L, kObjectType, object, kMemberUserValues);
    ShareKnownNames(L, object->Class());
    Remember(L, object.get());
  }
}

const ObjectRef* ObjectValueAt(lua_State* L, int index) {
  return TestUserdata<ObjectRef>(L, index, kObjectType);
}

ObjectRef ObjectAt(lua_State* L, int index) {
  if (const ObjectRef* object = ObjectValueAt(L, index)) return *object;
  return ControlAt(L, index) ? CheckControl(L, index)->GetControl() : nullptr;
}

}  // namespace levelwidgets
