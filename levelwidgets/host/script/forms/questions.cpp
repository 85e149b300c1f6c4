#include <levelwidgets/host/script/forms/questions.h>

#include <levelwidgets/host/form/message.h>
#include <levelwidgets/host/form/modal.h>
#include <levelwidgets/host/script/forms/events.h>
#include <levelwidgets/host/script/forms/forms.h>
#include <levelwidgets/host/script/lua/entry.h>
#include <levelwidgets/host/script/values/conversions.h>
#include <levelwidgets/host/script/values/option_table.h>

namespace levelwidgets {

namespace {

constexpr char kEvent[] = "on_closed";

// Calls a function of a script with numbers, later.
class Answer {
 public:
  // Of the function on top of the stack, which is taken off.
  Answer(lua_State* L, std::string form)
      : realm_(RealmOf(L).weak_from_this()),
        handler_(std::make_shared<ScriptRef>(RealmOf(L).TakeRef(L))),
        form_(std::move(form)) {}

  void operator()() const { Call({}); }
  void operator()(std::int32_t number) const { Call(number); }

 private:
  void Call(std::optional<std::int32_t> number) const {
    const auto realm = realm_.lock();
    if (!realm || !*handler_) return;
    CallFailure failure;
    bool succeeded = true;
    const bool entered = EnterRealm(realm, failure, [&](lua_State* L) {
      handler_->Push(L);
      if (number) lua_pushinteger(L, *number);
      succeeded = CallReporting(L, number ? 1 : 0, 0, failure);
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

MessageOptions OptionsOf(lua_State* L) {
  luaL_checktype(L, 1, LUA_TTABLE);
  const OptionTable table(L, 1, "Message", {"buttons", kEvent, "style", "text", "title"}, TextsOf(L));
  MessageOptions options;
  options.text = table.Text("text", "");
  options.title = table.Text("title", options.title);
  options.style = StyleOf(table.Whole("style", 0));
  if (table.Has("buttons")) {
    options.buttons.clear();
    for (const Variant& caption : table.List("buttons", {})) options.buttons.push_back(ToText(caption));
  }
  return options;
}

}  // namespace

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
  const auto message =
      ShowMessage(state.FormPlatform(), options, others, answer ? MessageAnswer(*answer) : nullptr);
  PushForm(L, state.Keep(message, nullptr, RealmOf(L)));
  return 1;
}

}  // namespace levelwidgets
