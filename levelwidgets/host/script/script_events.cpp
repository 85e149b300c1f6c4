#include <levelwidgets/host/script/script_events.h>

#include <levelwidgets/host/script/script_entry.h>
#include <levelwidgets/host/script/script_forms.h>
#include <levelwidgets/host/script/script_objects.h>
#include <levelwidgets/host/script/script_values.h>

namespace levelwidgets {

namespace {

struct EventSource {
  std::string form;
  std::string control;  // "" for the form itself
};

void PushArguments(lua_State* L, const RaisedEvent& raised) {
  lua_newtable(L);
  for (std::size_t i = 0; i < raised.values.size(); ++i) {
    PushVariant(L, raised.values[i], raised.info.arguments[i].type);
    lua_setfield(L, -2, raised.info.arguments[i].name.c_str());
  }
}

// Takes back what the handler made of the by-reference arguments in the table on top of the stack.
void ReadBack(lua_State* L, RaisedEvent& raised) {
  for (std::size_t i = 0; i < raised.values.size(); ++i) {
    const ArgumentInfo& argument = raised.info.arguments[i];
    if (!argument.by_reference) continue;
    lua_getfield(L, -1, argument.name.c_str());
    const Variant value = ToVariant(L, -1, argument.type);
    lua_pop(L, 1);
    try {
      raised.values[i] =
          argument.type.type == VariantType::kEmpty ? value : ConvertTo(argument.type.type, value);
    } catch (const Error& error) {
      throw Error(error.Number(), error.Source(),
                  "e." + argument.name + " is of type " + argument.type.name + "; " + Describe(value) +
                      " does not convert to it: " + error.Description());
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

// Pushes the function that `push` finds in the realm, if there is one, and calls it for the event. Returns
// whether there was one. Errors are reported here: they are no business of the control.
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
    realm->Host().ReportHandlerError(
        *realm, {source.form, source.control, raised.info.name, failure.message, failure.traceback});
  }
  return found;
}

// Replaces the table on top of the stack by the first function in it that has one of the names, or takes it
// off when there is none.
bool PushFirstFunction(lua_State* L, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    lua_pushlstring(L, name.data(), name.size());
    if (lua_rawget(L, -2) == LUA_TFUNCTION) {
      lua_remove(L, -2);
      return true;
    }
    lua_pop(L, 1);
  }
  lua_pop(L, 1);
  return false;
}

// In the form's own script, then in the script that has opened the form.
void CallNamedHandler(const std::shared_ptr<ScriptForm>& form, const EventSource& source,
                      const std::vector<std::string>& names, RaisedEvent& raised) {
  const auto realm = form->realm;
  const auto opener = form->opener;
  if (realm && CallFound(realm, source, raised, [&](lua_State* L) {
        form->environment.Push(L);
        return PushFirstFunction(L, names);
      })) {
    return;
  }
  if (!opener) return;
  CallFound(opener, source, raised, [&](lua_State* L) {
    lua_pushglobaltable(L);
    return PushFirstFunction(L, names);
  });
}

// Listens to every event of `object`, whose handlers begin with one of `prefixes`; the first found is called.
void Connect(const std::shared_ptr<ScriptForm>& form, Object& object, const EventSource& source,
             const std::vector<std::string>& prefixes) {
  for (const EventInfo& event : object.Class().Events()) {
    std::vector<std::string> names;
    for (const std::string& prefix : prefixes) names.push_back(prefix + "_" + event.name);
    SubscribeByName(object, event.name,
                    [form = std::weak_ptr(form), source, names = std::move(names)](RaisedEvent& raised) {
                      if (const auto alive = form.lock()) CallNamedHandler(alive, source, names, raised);
                    });
  }
}

// Listens by the function at index 3 to the event named at index 2.
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

}  // namespace

void ConnectForm(const std::shared_ptr<ScriptForm>& form) {
  const std::string& name = form->form->Name();
  // The name `form` is a global in the form's own script only.
  std::vector<std::string> prefixes{name};
  if (form->environment) prefixes.insert(prefixes.begin(), "form");
  Connect(form, *form->form, {name, ""}, prefixes);
}

void ConnectControl(const std::shared_ptr<ScriptForm>& form, HostedControl& control) {
  const auto instance = control.GetControl();
  Connect(form, *instance, {form->form->Name(), control.Name()}, {control.Name()});
}

int ListenToControl(lua_State* L) {
  const auto hosted = CheckControl(L, 1);
  const auto control = hosted->GetControl();
  return Listen(L, *control, {hosted->GetForm()->Name(), hosted->Name()});
}

int ListenToForm(lua_State* L) {
  const auto form = CheckForm(L, 1);
  return Listen(L, *form->form, {form->form->Name(), ""});
}

int ListenToObject(lua_State* L) {
  const ObjectRef object = ObjectAt(L, 1);
  return Listen(L, *object, {"", object->Class().Name()});
}

}  // namespace levelwidgets
