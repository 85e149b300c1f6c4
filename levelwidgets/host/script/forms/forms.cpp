#include <levelwidgets/host/script/forms/forms.h>

#include <levelwidgets/host/script/forms/environment.h>
#include <levelwidgets/host/script/forms/events.h>
#include <levelwidgets/host/script/forms/handler_names.h>
#include <levelwidgets/host/script/forms/questions.h>
#include <levelwidgets/host/script/lua/userdata.h>
#include <levelwidgets/host/script/members/objects.h>
#include <levelwidgets/host/script/sandbox/folder.h>
#include <levelwidgets/host/script/sandbox/sandbox.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/fonts.h>
#include <levelwidgets/host/script/values/option_table.h>
#include <levelwidgets/host/script/values/values.h>

namespace levelwidgets {

namespace {

constexpr char kFormType[] = "form";

using FormRef = std::shared_ptr<ScriptForm>;

// --- Members ---------------------------------------------------------------------------------------

[[noreturn]] void RaiseNoSuchFormMember(lua_State* L, const Form& form, std::string_view name) {
  std::vector<std::string_view> names = ScriptMethodNames(L, 1);
  for (const PropertyInfo& property : form.Class().Properties()) names.push_back(property.name);
  for (const auto& control : form.Controls()) names.push_back(control->Name());
  RaiseNoSuchMember("Form", name, names);
}

int ReadForm(lua_State* L) {
  const FormRef form = CheckForm(L, 1);
  const std::string_view name = luaL_checkstring(L, 2);
  if (PushScriptMethod(L, 1, name)) return 1;
  if (const PropertyInfo* property = form->form->Class().FindProperty(name)) {
    PushProperty(L, *form->form, *property);
    return 1;
  }
  if (const auto control = form->form->Find(name)) {
    PushControl(L, control);
    return 1;
  }
  RefuseEvent(form->form->Class(), name);
  RaiseNoSuchFormMember(L, *form->form, name);
}

int WriteForm(lua_State* L) {
  const FormRef form = CheckForm(L, 1);
  const std::string_view name = luaL_checkstring(L, 2);
  if (const PropertyInfo* property = form->form->Class().FindProperty(name)) {
    AssignProperty(L, *form->form, *property, 3);
    return 0;
  }
  RefuseEvent(form->form->Class(), name);
  if (form->form->Find(name) || PushScriptMethod(L, 1, name)) {
    throw Error(kPropertyIsReadOnly, "LevelWidgets.Form", "Form." + std::string(name) + " is read-only");
  }
  RaiseNoSuchFormMember(L, *form->form, name);
}

int FormToText(lua_State* L) {
  lua_pushfstring(L, "Form %s", CheckUserdata<FormRef>(L, 1, kFormType)->form->Name().c_str());
  return 1;
}

constexpr luaL_Reg kFormMetamethods[] = {{"__index", Guarded<ReadForm>},
                                         {"__newindex", Guarded<WriteForm>},
                                         {"__tostring", Guarded<FormToText>},
                                         {nullptr, nullptr}};

// --- Methods ---------------------------------------------------------------------------------------

int ShowForm(lua_State* L) {
  const FormRef form = CheckForm(L, 1);
  RaiseLoadOnce(*form);
  if (!form->form->Closed()) form->form->Show();
  return 0;
}

int HideForm(lua_State* L) {
  CheckForm(L, 1)->form->Hide();
  return 0;
}

// form:close(): whether it is closed; a handler of Unload may refuse
int CloseForm(lua_State* L) {
  lua_pushboolean(L, CheckForm(L, 1)->form->Close());
  return 1;
}

int RemoveControl(lua_State* L) {
  const FormRef form = CheckForm(L, 1);
  const std::string name = luaL_checkstring(L, 2);
  if (!form->form->Remove(name)) {
    throw Error(kInvalidCall, "LevelWidgets.Form",
                form->form->Name() + " has no control named \"" + name + "\"");
  }
  return 0;
}

// form:controls(): in the order added
int ListControls(lua_State* L) {
  const FormRef form = CheckForm(L, 1);
  lua_newtable(L);
  lua_Integer place = 0;
  for (const auto& control : form->form->Controls()) {
    PushControl(L, control);
    lua_rawseti(L, -2, ++place);
  }
  return 1;
}

int FormFileText(lua_State* L) {
  const FormRef form = CheckForm(L, 1);
  const std::string text = FormText(*form->form, form->document.get());
  lua_pushlstring(L, text.data(), text.size());
  return 1;
}

int SaveFormFile(lua_State* L) {
  const FormRef form = CheckForm(L, 1);
  RefuseInSandbox(L, "form:save", "writes no files");
  SaveForm(*form->form, PathAt(L, 2), form->document.get());
  return 0;
}

constexpr luaL_Reg kFormMethods[] = {{"add", Guarded<AddControl>},
                                     {"close", Guarded<CloseForm>},
                                     {"controls", Guarded<ListControls>},
                                     {"hide", Guarded<HideForm>},
                                     {"on", Guarded<ListenToForm>},
                                     {"remove", Guarded<RemoveControl>},
                                     {"save", Guarded<SaveFormFile>},
                                     {"show", Guarded<ShowForm>},
                                     {"show_modal", Guarded<ShowFormModal>},
                                     {"text", Guarded<FormFileText>},
                                     {nullptr, nullptr}};

std::string TextOf(const std::vector<Diagnostic>& diagnostics) {
  std::string text;
  for (const Diagnostic& diagnostic : diagnostics) {
    if (!text.empty()) text += '\n';
    text += diagnostic.ToString();
  }
  return text;
}

}  // namespace

void RaiseLoadOnce(ScriptForm& form) {
  // Its script may have closed it.
  if (!form.form->Closed() && !std::exchange(form.load_raised, true)) form.form->Loaded();
}

void OpenForms(lua_State* L) {
  DefineType<FormRef>(L, kFormType, kFormMetamethods);
  SetScriptMethods(L, kFormMethods);
  lua_pop(L, 1);
}

void PushForm(lua_State* L, const FormRef& form) { PushUserdata(L, kFormType, form); }

const FormRef* FormAt(lua_State* L, int index) { return TestUserdata<FormRef>(L, index, kFormType); }

FormRef CheckForm(lua_State* L, int index) {
  const FormRef& form = CheckUserdata<FormRef>(L, index, kFormType);
  if (form->form->Closed()) {
    throw Error(kInvalidCall, "LevelWidgets.Form", form->form->Name() + " is closed");
  }
  return form;
}

int NewForm(lua_State* L) {
  const OptionTable table(
      L, 1, "Form",
      {"Name", "Caption", "Left", "Top", "Width", "Height", "Font", "BackColor", "KeyPreview", "Design"},
      TextsOf(L));
  FormOptions options;
  options.name = table.Text("Name", options.name);
  options.caption = table.Text("Caption", options.caption);
  if (table.Has("Left")) options.left = table.Length("Left", Twips());
  if (table.Has("Top")) options.top = table.Length("Top", Twips());
  options.size = {table.Length("Width", options.size.width), table.Length("Height", options.size.height)};
  if (table.Has("Font")) options.font = ToFont(table.Value("Font"))->Description();
  if (table.Has("BackColor")) {
    options.back_color.value =
        ToInt32(table.Value("BackColor", Form::Table().FindProperty("BackColor")->type));
  }
  options.key_preview = table.Truth("KeyPreview", options.key_preview);
  options.design = table.Truth("Design", options.design);
  ScriptState& state = StateOf(L);
  const FormRef form =
      state.Keep(Form::Create(state.FormPlatform(), std::move(options)), nullptr, RealmOf(L));
  ConnectForm(form);
  PushForm(L, form);
  return 1;
}

FormRef LoadScriptForm(ScriptRealm& opener, const std::string& path) {
  ScriptState& state = StateOf(opener);
  LoadedForm loaded = LoadForm(state.FormPlatform(), path);
  if (loaded.HasErrors()) throw Error(kInvalidCall, "LevelWidgets.Form", TextOf(loaded.diagnostics));
  if (!loaded.diagnostics.empty()) state.Report(TextOf(loaded.diagnostics));
  const FormRef form = state.Keep(loaded.form, loaded.document, opener);
  try {
    if (!loaded.script.empty()) MakeEnvironment(state, form, opener, path);
    ConnectForm(form);
    for (const auto& control : std::vector(form->form->Controls())) ConnectControl(form, *control);
    if (!loaded.script.empty()) RunFormScript(*form, loaded.script);
  } catch (...) {
    state.Forget(form);
    throw;
  }
  RaiseLoadOnce(*form);
  WarnOfLostHandlers(form);
  return form;
}

int LoadFormFile(lua_State* L) {
  ScriptRealm& realm = RealmOf(L);
  const std::string path = PathAt(L, 1);
  if (!realm.IsSandbox()) {
    PushForm(L, LoadScriptForm(realm, PathBesideCaller(L, path)));
    return 1;
  }
  const auto file = FileInFolder(realm.Folder(), path);
  if (!file) {
    throw Error(kInvalidCall, "LevelWidgets.Form",
                "There is no form file \"" + path + "\" in the form's own folder");
  }
  PushForm(L, LoadScriptForm(realm, *file));
  return 1;
}

}  // namespace levelwidgets
