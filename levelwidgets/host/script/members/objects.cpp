#include <levelwidgets/host/script/members/objects.h>

#include <levelwidgets/frame/enumerator.h>
#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/members/indexed.h>
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
  const Variant result = InvokeByReference(object, method.name, arguments, TextsOf(L));
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

// Upvalue 1 is the method's name; the control's own methods come before the container's.
int CallControl(lua_State* L) {
  const HostedRef hosted = CheckControl(L, 1);
  const std::string name = lua_tostring(L, lua_upvalueindex(1));
  const auto control = hosted->GetControl();
  Object& object = control->Class().FindMethod(name) ? static_cast<Object&>(*control) : *hosted;
  const MethodInfo* method = object.Class().FindMethod(name);
  if (!method) RaiseNoSuchControlMember(L, *hosted, name);
  return CallMethod(L, object, *method);
}

int ReadControl(lua_State* L) {
  const HostedRef hosted = CheckControl(L, 1);
  const std::string_view name = luaL_checkstring(L, 2);
  const auto control = hosted->GetControl();
  if (PushScriptMethod(L, 1, name)) return 1;
  // What the container adds has the container's meaning on every control.
  if (PushProperty(L, *hosted, name) || PushProperty(L, *control, name)) return 1;
  if (control->Class().FindMethod(name) || hosted->Class().FindMethod(name)) {
    lua_pushvalue(L, 2);
    lua_pushcclosure(L, Guarded<CallControl>, 1);
    return 1;
  }
  RefuseEvent(control->Class(), name);
  RefuseEvent(hosted->Class(), name);
  RaiseNoSuchControlMember(L, *hosted, name);
}

int WriteControl(lua_State* L) {
  const HostedRef hosted = CheckControl(L, 1);
  const std::string_view name = luaL_checkstring(L, 2);
  const auto control = hosted->GetControl();
  if (AssignProperty(L, *hosted, name, 3) || AssignProperty(L, *control, name, 3)) return 0;
  RefuseEvent(control->Class(), name);
  RefuseEvent(hosted->Class(), name);
  if (control->Class().FindMethod(name) || hosted->Class().FindMethod(name) || PushScriptMethod(L, 1, name)) {
    throw Error(kPropertyIsReadOnly, control->Class().QualifiedName(),
                std::string(control->Class().Name()) + "." + std::string(name) + " is a method");
  }
  RaiseNoSuchControlMember(L, *hosted, name);
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

// Upvalue 1 is the method's name.
int CallObject(lua_State* L) {
  const ObjectRef object = CheckObject(L);
  const std::string name = lua_tostring(L, lua_upvalueindex(1));
  const MethodInfo* method = object->Class().FindMethod(name);
  if (!method) RaiseNoSuchObjectMember(L, object->Class(), name);
  return CallMethod(L, *object, *method);
}

// The indexed property that list[1] stands for. Raises 438 when there is none.
const PropertyInfo& ItemsOf(const ClassInfo& info) {
  const PropertyInfo* items = info.FindProperty(info.DefaultMember());
  if (items && items->Indexed()) return *items;
  throw Error(kNoSuchMember, info.QualifiedName(), std::string(info.Name()) + " has no members by number");
}

int ReadObject(lua_State* L) {
  const ObjectRef object = CheckObject(L);
  if (lua_type(L, 2) != LUA_TSTRING) {
    PushIndexed(L, 1, ItemsOf(object->Class()));
    lua_pushvalue(L, 2);
    lua_gettable(L, -2);
    return 1;
  }
  const std::string_view name = lua_tostring(L, 2);
  if (PushScriptMethod(L, 1, name) || PushProperty(L, *object, name)) return 1;
  if (!object->Class().FindMethod(name)) {
    RefuseEvent(object->Class(), name);
    RaiseNoSuchObjectMember(L, object->Class(), name);
  }
  lua_pushvalue(L, 2);
  lua_pushcclosure(L, Guarded<CallObject>, 1);
  return 1;
}

int WriteObject(lua_State* L) {
  const ObjectRef object = CheckObject(L);
  const ClassInfo& info = object->Class();
  if (lua_type(L, 2) != LUA_TSTRING) {
    PushIndexed(L, 1, ItemsOf(info));
    lua_pushvalue(L, 2);
    lua_pushvalue(L, 3);
    lua_settable(L, -3);
    return 0;
  }
  const std::string_view name = lua_tostring(L, 2);
  if (AssignProperty(L, *object, name, 3)) return 0;
  RefuseEvent(info, name);
  if (info.FindMethod(name) || PushScriptMethod(L, 1, name)) {
    throw Error(kPropertyIsReadOnly, info.QualifiedName(),
                std::string(info.Name()) + "." + std::string(name) + " is a method");
  }
  RaiseNoSuchObjectMember(L, info, name);
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
  PushUserdata(L, kControlType, control);
  Remember(L, control.get());
}

const HostedRef* ControlAt(lua_State* L, int index) {
  return TestUserdata<HostedRef>(L, index, kControlType);
}

HostedRef CheckControl(lua_State* L, int index) {
  const HostedRef& control = CheckUserdata<HostedRef>(L, index, kControlType);
  if (!control->GetControl()) {
    throw Error(kInvalidCall, "LevelWidgets.Form", control->Name() + " is on no form any more");
  }
  return control;
}

void PushObject(lua_State* L, const ObjectRef& object) {
  if (!object) {
    lua_pushnil(L);
  } else if (const auto control = std::dynamic_pointer_cast<HostedControl>(object)) {
    PushControl(L, control);
  } else if (!PushKnown(L, object.get())) {
    PushUserdata(L, kObjectType, object);
    Remember(L, object.get());
  }
}

ObjectRef ObjectAt(lua_State* L, int index) {
  if (const ObjectRef* object = TestUserdata<ObjectRef>(L, index, kObjectType)) return *object;
  return ControlAt(L, index) ? CheckControl(L, index)->GetControl() : nullptr;
}

}  // namespace levelwidgets
