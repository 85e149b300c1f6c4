#include <levelwidgets/host/script/script_events.h>

#include <levelwidgets/host/script/script_error.h>
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

// Calls the handler on top of the stack, which it takes off. Its errors are reported here: they are no
// business of the control.
void CallHandler(lua_State* L, const EventSource& source, RaisedEvent& raised) {
  CallFailure failure;
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
  if (!succeeded) {
    StateOf(L).ReportHandlerError(
        {source.form, source.control, raised.info.name, failure.message, failure.traceback});
  }
}

// Pushes the function `name` of the form's script, or else of the program.
bool PushNamedHandler(lua_State* L, const ScriptForm& form, const std::string& name) {
  if (form.environment) {
    form.environment.Push(L);
    lua_pushlstring(L, name.data(), name.size());
    const bool is_function = lua_rawget(L, -2) == LUA_TFUNCTION;
    lua_remove(L, -2);
    if (is_function) return true;
    lua_pop(L, 1);
  }
  lua_pushglobaltable(L);
  lua_pushlstring(L, name.data(), name.size());
  const bool is_function = lua_rawget(L, -2) == LUA_TFUNCTION;
  lua_remove(L, -2);
  if (!is_function) lua_pop(L, 1);
  return is_function;
}

// Listens to every event of `object`, whose handlers begin with one of `prefixes`; the first found is called.
void Connect(ScriptState& state, const std::shared_ptr<ScriptForm>& form, Object& object,
             const EventSource& source, const std::vector<std::string>& prefixes) {
  for (const EventInfo& event : object.Class().Events()) {
    std::vector<std::string> names;
    for (const std::string& prefix : prefixes) names.push_back(prefix + "_" + event.name);
    SubscribeByName(object, event.name,
                    [lua = std::weak_ptr(state.Lua()), form = std::weak_ptr(form), source,
                     names = std::move(names)](RaisedEvent& raised) {
                      const auto alive = lua.lock();
                      const auto owner = form.lock();
                      if (!alive || !owner) return;
                      lua_State* L = StateOf(alive.get()).Running();
                      luaL_checkstack(L, 20, "events inside events");
                      for (const std::string& name : names) {
                        if (!PushNamedHandler(L, *owner, name)) continue;
                        CallHandler(L, source, raised);
                        return;
                      }
                    });
  }
}

// Listens by the function at index 3 to the event named at index 2.
int Listen(lua_State* L, Object& object, EventSource source) {
  const std::string event = luaL_checkstring(L, 2);
  luaL_checktype(L, 3, LUA_TFUNCTION);
  lua_settop(L, 3);
  ScriptState& state = StateOf(L);
  const auto handler = std::make_shared<ScriptRef>(state.TakeRef(L));
  SubscribeByName(object, event, [lua = std::weak_ptr(state.Lua()), handler, source](RaisedEvent& raised) {
    const auto alive = lua.lock();
    if (!alive) return;
    lua_State* running = StateOf(alive.get()).Running();
    luaL_checkstack(running, 20, "events inside events");
    handler->Push(running);
    CallHandler(running, source, raised);
  });
  return 0;
}

}  // namespace

void ConnectForm(ScriptState& state, const std::shared_ptr<ScriptForm>& form) {
  const std::string& name = form->form->Name();
  // The name `form` is a global in the form's own script only.
  std::vector<std::string> prefixes{name};
  if (form->environment) prefixes.insert(prefixes.begin(), "form");
  Connect(state, form, *form->form, {name, ""}, prefixes);
}

void ConnectControl(ScriptState& state, const std::shared_ptr<ScriptForm>& form, HostedControl& control) {
  const auto instance = control.GetControl();
  Connect(state, form, *instance, {form->form->Name(), control.Name()}, {control.Name()});
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
