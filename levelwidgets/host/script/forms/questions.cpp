#include <levelwidgets/host/script/forms/questions.h>

#include <filesystem>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/files/folder.h>
#include <levelwidgets/host/form/file_question.h>
#include <levelwidgets/host/form/message.h>
#include <levelwidgets/host/form/modal.h>
#include <levelwidgets/host/script/forms/environment.h>
#include <levelwidgets/host/script/forms/events.h>
#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/lua/entry.h>
#include <levelwidgets/host/script/sandbox/sandbox.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/option_table.h>

namespace levelwidgets {

namespace {

constexpr char kEvent[] = "on_closed";

// Calls a function of a script with what a person has answered, later.
class Answer {
 public:
  // Of the function on top of the stack, which is taken off.
  Answer(lua_State* L, std::string form)
      : realm_(RealmOf(L).weak_from_this()),
        handler_(std::make_shared<ScriptRef>(RealmOf(L).TakeRef(L))),
        form_(std::move(form)) {}

  void operator()() const {
    Call([](lua_State*) { return 0; });
  }
  void operator()(std::int32_t number) const {
    Call([&](lua_State* L) {
      lua_pushinteger(L, number);
      return 1;
    });
  }
  void operator()(const std::optional<std::string>& text) const {
    Call([&](lua_State* L) {
      if (text) {
        lua_pushlstring(L, text->data(), text->size());
      } else {
        lua_pushnil(L);
      }
      return 1;
    });
  }

 private:
  // `push` puts the arguments on the stack and returns how many.
  template <typename Push>
  void Call(Push push) const {
    const auto realm = realm_.lock();
    if (!realm || !*handler_) return;
    CallFailure failure;
    bool succeeded = true;
    const bool entered = EnterRealm(realm, failure, [&](lua_State* L) {
      handler_->Push(L);
      succeeded = CallReporting(L, push(L), 0, failure);
    });
    if ((entered && succeeded) || failure.told) return;
    realm->Run().ReportHandlerError(*realm, {form_, "", kEvent, failure.message, failure.traceback});
  }

  std::weak_ptr<ScriptRealm> realm_;
  std::shared_ptr<ScriptRef> handler_;
  std::string form_;
};

// The function on top of the stack, which is taken off; nothing for nil.
std::optional<Answer> TakeAnswer(lua_State* L, const std::string& form) {
  if (lua_isnil(L, -1)) {
    lua_pop(L, 1);
    return {};
  }
  if (!lua_isfunction(L, -1)) throw Error(kTypeMismatch, "LevelWidgets.Form", "on_closed takes a function");
  return Answer(L, form);
}

MessageStyle StyleOf(std::int32_t number) {
  for (const MessageStyle style : {MessageStyle::kPlain, MessageStyle::kCritical, MessageStyle::kQuestion,
                                   MessageStyle::kWarning, MessageStyle::kInformation}) {
    if (static_cast<std::int32_t>(style) == number) return style;
  }
  throw Error(kInvalidCall, "LevelWidgets.Message",
              "A message's style is 0, 16 (critical), 32 (question), 48 (warning) or 64 (information)");
}

int TypeOfField(lua_State* L, int index, const char* field) {
  const int type = lua_getfield(L, index, field);
  lua_pop(L, 1);
  return type;
}

// A list of captions, or the number or the name of a set.
void TakeButtons(lua_State* L, const OptionTable& table, MessageOptions& options) {
  switch (TypeOfField(L, 1, "buttons")) {
    case LUA_TNUMBER: options.set = SetOf(MessageButtons{table.Whole("buttons", 0)}).buttons_of; break;
    case LUA_TSTRING: options.set = SetNamed(table.Text("buttons", "")).buttons_of; break;
    default:
      options.buttons.clear();
      for (const Variant& caption : table.List("buttons", {})) options.buttons.push_back(ToText(caption));
  }
}

MessageOptions OptionsOf(lua_State* L) {
  luaL_checktype(L, 1, LUA_TTABLE);
  const OptionTable table(L, 1, "Message", {"buttons", kEvent, "style", "text", "title"}, TextsOf(L));
  MessageOptions options;
  options.text = table.Text("text", "");
  options.title = table.Text("title", options.title);
  options.style = StyleOf(table.Whole("style", 0));
  if (table.Has("buttons")) TakeButtons(L, table, options);
  return options;
}

// --- Files -------------------------------------------------------------------------------------------

// Where the question begins. In a sandbox nothing is outside the form's own folder.
std::string FolderToAsk(lua_State* L, const std::string& folder) {
  const ScriptRealm& realm = RealmOf(L);
  if (!realm.IsSandbox()) return folder.empty() ? folder : PathBesideCaller(L, folder);
  const auto path = realm.Folder() / PathOf(folder);
  std::error_code missing;
  if (!std::filesystem::is_directory(path.empty() ? "." : path, missing) ||
      !IsInFolder(realm.Folder(), path)) {
    throw Error(kInvalidCall, "LevelWidgets.FileQuestion",
                "There is no folder \"" + folder + "\" in the form's own folder");
  }
  return TextOfPath(path);
}

// A script in a sandbox names files by their way from the form's folder.
FileAnswer AnswerFrom(const std::string& root, const Answer& answer) {
  if (root.empty()) return answer;
  return [answer, root](const std::optional<std::string>& path) {
    std::error_code missing;
    const auto folder = std::filesystem::canonical(PathOf(root), missing);
    if (!path) return answer(path);
    const std::u8string name = PathOf(*path).lexically_relative(folder).generic_u8string();
    answer(std::optional(std::string(name.begin(), name.end())));
  };
}

int AskScriptForFile(lua_State* L, bool to_save) {
  luaL_checktype(L, 1, LUA_TTABLE);
  const OptionTable table(L, 1, "FileQuestion", {"filter", "folder", "name", kEvent, "title"}, TextsOf(L));
  FileQuestion question;
  question.to_save = to_save;
  question.title = table.Text("title", "");
  question.name = table.Text("name", "");
  question.folder = FolderToAsk(L, table.Text("folder", ""));
  if (table.Has("filter")) {
    for (const Variant& pattern : table.List("filter", {})) question.patterns.push_back(ToText(pattern));
  }
  if (RealmOf(L).IsSandbox()) {
    const auto& folder = RealmOf(L).Folder();
    question.root = folder.empty() ? "." : TextOfPath(folder);
  }
  lua_getfield(L, 1, kEvent);
  const auto answer = TakeAnswer(L, question.title.empty() ? to_save ? "Save as" : "Open" : question.title);
  ScriptState& state = StateOf(L);
  const auto form = AskForFile(state.FormPlatform(), question, state.Forms(),
                               answer ? AnswerFrom(question.root, *answer) : nullptr);
  if (!form) return 0;  // the system asks
  PushForm(L, state.Keep(form, nullptr, RealmOf(L)));
  return 1;
}

}  // namespace

int AskForFileToOpen(lua_State* L) { return AskScriptForFile(L, false); }

int AskForFileToSave(lua_State* L) {
  RefuseInSandbox(L, "lw.save_file", "writes no files");
  return AskScriptForFile(L, true);
}

int ShowFormModal(lua_State* L) {
  const auto form = CheckForm(L, 1);
  lua_settop(L, 2);
  const auto answer = TakeAnswer(L, form->form->Name());
  RaiseLoadOnce(*form);
  if (form->form->Closed()) return 0;
  ShowModal(form->form, StateOf(L).Forms(), answer ? std::function<void()>(*answer) : nullptr);
  return 0;
}

int NewMessage(lua_State* L) {
  const MessageOptions options = OptionsOf(L);
  lua_getfield(L, 1, kEvent);
  const auto answer = TakeAnswer(L, options.title);
  ScriptState& state = StateOf(L);
  const auto others = state.Forms();
  const auto kept = std::make_shared<std::shared_ptr<void>>(state.KeepMessage(RealmOf(L)));
  const auto message =
      ShowMessage(state.FormPlatform(), options, others, [answer, kept](std::int32_t button) {
        kept->reset();
        if (answer) (*answer)(button);
      });
  if (!message) return 0;  // the system shows it
  kept->reset();           // it is a form
  PushForm(L, state.Keep(message, nullptr, RealmOf(L)));
  return 1;
}

}  // namespace levelwidgets
