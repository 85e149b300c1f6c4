#include <levelwidgets/host/script/forms/events.h>

#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/members/listeners.h>

namespace levelwidgets {

namespace {

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
    for (const std::string& prefix : prefixes) names.push_back(prefix + "_" + std::string(event.name));
    SubscribeByName(object, event.name,
                    [form = std::weak_ptr(form), source, names = std::move(names)](RaisedEvent& raised) {
                      if (const auto alive = form.lock()) CallNamedHandler(alive, source, names, raised);
                    });
  }
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
  for (Object* events : {static_cast<Object*>(instance.get()), static_cast<Object*>(&control)}) {
    Connect(form, *events, {form->form->Name(), control.Name()}, {control.Name()});
  }
}

int ListenToForm(lua_State* L) {
  const auto form = CheckForm(L, 1);
  return Listen(L, *form->form, {form->form->Name(), ""});
}

}  // namespace levelwidgets
