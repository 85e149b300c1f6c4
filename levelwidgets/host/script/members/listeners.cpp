#include <levelwidgets/host/script/members/listeners.h>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/script/lua/entry.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {

void PushArguments(lua_State* L, const RaisedEvent& raised) {
  lua_newtable(L);
  for (std::size_t i = 0; i < raised.values.size(); ++i) {
    const ArgumentInfo argument = raised.info.arguments[i];
    PushText(L, argument.name);
    PushVariant(L, raised.values[i], argument.type);
    lua_rawset(L, -3);
  }
}

// Takes back what the handler made of the by-reference arguments in the table on top of the stack.
void ReadBack(lua_State* L, RaisedEvent& raised) {
  for (std::size_t i = 0; i < raised.values.size(); ++i) {
    const ArgumentInfo argument = raised.info.arguments[i];
    if (!argument.by_reference) continue;
    PushText(L, argument.name);
    lua_gettable(L, -2);
    const Variant value = ToVariant(L, -1, argument.type);
    lua_pop(L, 1);
    try {
      raised.values[i] =
          argument.type.kind == TypeKind::kAny ? value : ConvertTo(argument.type.type, value, TextsOf(L));
    } catch (const Error& error) {
      throw Error(error.Number(), error.Source(),
                  "e." + std::string(argument.name) + " is of type " + std::string(argument.type.Name()) +
                      "; " + Describe(value) + " does not convert to it: " + error.Description());
    }
  }
}

// Calls the handler on top of the stack, which it takes off.
bool CallHandler(lua_State* L, RaisedEvent& raised, CallFailure& failure) {
  PushArguments(L, raised);
  lua_pushvalue(L, -1);
  lua_rotate(L, -3, 1);  // the arguments stay below the call
  bool succeeded = CallReporting(L, 1, 0, failure);
  if (succeeded) {
    try {
      ReadBack(L, raised);
    } catch (const Error& error) {
      succeeded = false;
      failure.message = error.what();
    }
  }
  lua_pop(L, 1);
  return succeeded;
}

}  // namespace

bool CallFound(const std::shared_ptr<ScriptRealm>& realm, const EventSource& source, RaisedEvent& raised,
               const std::function<bool(lua_State*)>& push) {
  CallFailure failure;
  bool found = false;
  bool succeeded = true;
  const bool entered = EnterRealm(realm, failure, [&](lua_State* L) {
    found = push(L);
    if (found) succeeded = CallHandler(L, raised, failure);
  });
  if (!(entered && succeeded) && !failure.told) {
    realm->Run().ReportHandlerError(*realm, {source.form, source.control, std::string(raised.info.name),
                                             failure.message, failure.traceback});
  }
  return found;
}

int Listen(lua_State* L, Object& object, EventSource source) {
  const std::string event = luaL_checkstring(L, 2);
  luaL_checktype(L, 3, LUA_TFUNCTION);
  lua_settop(L, 3);
  ScriptRealm& realm = RealmOf(L);
  const auto handler = std::make_shared<ScriptRef>(realm.TakeRef(L));
  SubscribeByName(object, event, [realm = realm.weak_from_this(), handler, source](RaisedEvent& raised) {
    const auto alive = realm.lock();
    if (!alive) return;
    CallFound(alive, source, raised, [&](lua_State* running) {
      handler->Push(running);
      return true;
    });
  });
  return 0;
}

int ListenToControl(lua_State* L) {
  const auto hosted = CheckControl(L, 1);
  const auto control = hosted->GetControl();
  const bool is_containers = hosted->Class().FindEvent(luaL_checkstring(L, 2)) != nullptr;
  Object& object = is_containers ? static_cast<Object&>(*hosted) : *control;
  return Listen(L, object, {hosted->GetForm()->Name(), hosted->Name()});
}

int ListenToObject(lua_State* L) {
  const ObjectRef object = ObjectAt(L, 1);
  return Listen(L, *object, {"", std::string(object->Class().Name())});
}

}  // namespace levelwidgets
