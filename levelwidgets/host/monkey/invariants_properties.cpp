// Invariants of properties and of what is saved.
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/host/monkey/exceptions.h>
#include <levelwidgets/host/monkey/invariant_checks.h>

namespace levelwidgets::monkey {

namespace {

bool IsOfType(const Variant& value, const MemberType& type) {
  return type.kind == TypeKind::kAny || value.Type() == type.type;
}

std::string Quoted(const Variant* value) { return value ? Describe(*value) : "nothing"; }

// Whether a value that is not saved loads as something else, on purpose.
bool ReadsOtherThanWritten(const ClassInfo& info, const std::string& key) {
  const PersistedKey stored = info.FindPersisted(key);
  const PropertyInfo* property = stored.field ? stored.field : stored.property;
  if (!property) return false;
  const DefaultValue& read = property->defaults.when_read;
  const DefaultValue& written = property->defaults.when_written;
  return read.kind != written.kind || !(read.Value() == written.Value());
}

std::string Difference(const ClassInfo& info, const PropertyBag& saved, const PropertyBag& loaded) {
  for (const auto* bag : {&saved, &loaded}) {
    for (const PropertyBag::Entry& entry : bag->Entries()) {
      const Variant* was = saved.Find(entry.name);
      const Variant* is = loaded.Find(entry.name);
      if (was && is && *was == *is) continue;
      if (info.OnlyWritten() && entry.name == info.OnlyWritten()->name) continue;
      if (!was && ReadsOtherThanWritten(info, entry.name)) continue;
      const PropertyInfo* property = info.FindProperty(entry.name);
      if (property && BecomesAnother(*property)) continue;
      return entry.name + " was saved as " + Quoted(was) + " and is, loaded, " + Quoted(is);
    }
  }
  return "";
}

// The first line that differs, of both.
std::string Difference(const std::string& saved, const std::string& again) {
  if (saved == again) return "";
  const auto at = static_cast<std::size_t>(std::ranges::mismatch(saved, again).in1 - saved.begin());
  const auto line = [at](const std::string& text) {
    const std::size_t begin = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
    return text.substr(begin, text.find('\n', at) - begin);
  };
  return "\"" + line(saved) + "\" is, loaded and saved again, \"" + line(again) + "\"";
}

FormOptions ScratchForm(const Form& like) {
  FormOptions options;
  options.name = "frmScratch";
  options.font = like.GetFont()->Description();
  options.back_color = like.BackColor();
  return options;
}

}  // namespace

std::string CheckTypes(const Subject& subject) {
  for (const auto& hosted : subject.form.Controls()) {
    const auto control = hosted->GetControl();
    for (const PropertyInfo& property : control->Class().Properties()) {
      if (property.Indexed()) continue;
      const Variant value = property.get(*control);
      if (IsOfType(value, property.type)) continue;
      return hosted->Name() + "." + std::string(property.name) + " is of type " +
             std::string(NameOf(value.Type())) + ", declared " + std::string(property.type.Name());
    }
  }
  return "";
}

namespace {

// How often a property of a control is said to have changed, as long as this lives.
class CountedNotices {
 public:
  CountedNotices(Form& form, const HostedControl& hosted, const PropertyInfo& property)
      : subscription_(form.PropertyChanged.Add([count = count_, owner = hosted.Name(), name = property.name](
                                                   std::string_view control, std::string_view changed) {
          if (control == owner && changed == name) ++*count;
        })) {}
  ~CountedNotices() { subscription_.End(); }
  CountedNotices(const CountedNotices&) = delete;
  CountedNotices& operator=(const CountedNotices&) = delete;
  int Count() const { return *count_; }

 private:
  std::shared_ptr<int> count_ = std::make_shared<int>(0);
  Subscription subscription_;
};

}  // namespace

std::string CheckWriteBack(const Subject& subject) {
  const auto hosted = subject.control;
  if (!hosted) return "";
  const auto control = hosted->GetControl();
  for (const PropertyInfo& property : control->Class().Properties()) {
    if (property.ReadOnly() || property.Indexed() || property.type.type == VariantType::kObject) continue;
    if (RefusesItsOwn(*control, property) || BecomesAnother(property)) continue;
    const Variant before = property.get(*control);
    const CountedNotices notices(subject.form, *hosted, property);
    try {
      property.set(*control, before);
    } catch (const Error& error) {
      return hosted->Name() + "." + std::string(property.name) + " = " + Describe(before) +
             ", which was read from it, is refused: " + error.what();
    }
    if (!hosted->GetControl()) return "";  // removed by a handler
    if (notices.Count() > 1) continue;     // assigned by a handler, too
    const Variant after = property.get(*control);
    if (before == after) continue;
    return hosted->Name() + "." + std::string(property.name) + " was " + Describe(before) + ", is " +
           Describe(after) + " after that was assigned";
  }
  return "";
}

namespace {

// What is there after something has come and gone must be what was there before.
class Balance {
 public:
  explicit Balance(memory::Desktop& desktop) : desktop_(desktop), before_(Now()) {}
  std::string Difference() const { return before_ == Now() ? "" : before_ + " became " + Now(); }

 private:
  std::string Now() const {
    return std::to_string(desktop_.LiveObjects()) + " drawing objects, " +
           std::to_string(desktop_.LiveWindows()) + " windows, " + std::to_string(desktop_.LiveTimers()) +
           " timers";
  }
  memory::Desktop& desktop_;
  std::string before_;
};

// Loads a copy of the control from what it saves, and lets it go.
std::string LoadAgain(const Subject& subject, const HostedControl& hosted, const PropertyBag& saved) {
  const auto scratch = Form::Create(subject.form.GetPlatform(), ScratchForm(subject.form));
  const Placement place{{}, TwipSize{hosted.Width(), hosted.Height()}};
  const HostedControl& loaded = scratch->Add(hosted.ControlClass(), hosted.Name(), &saved, place);
  const std::string difference = Difference(hosted.ControlClass(), saved, loaded.Properties());
  return difference.empty() ? "" : std::string(hosted.ControlClass().Name()) + "." + difference;
}

}  // namespace

std::string CheckBag(const Subject& subject) {
  const auto hosted = subject.control;
  if (!hosted || CannotLoadAgain(*hosted->GetControl())) return "";
  PropertyBag saved;
  try {
    saved = hosted->Properties();
  } catch (const Error& error) {
    return IsDocumented(error.Number()) ? "" : error.what();  // a value that its saved type has no room for
  }
  const Balance balance(subject.desktop);
  const std::string difference = LoadAgain(subject, *hosted, saved);
  return difference.empty() ? balance.Difference() : difference;
}

std::string CheckReload(const Subject& subject) {
  if (subject.form.Closed()) return "";
  for (const auto& hosted : subject.form.Controls()) {
    const bool is_public = FindControlClass(hosted->ControlClass().Name());  // form files know no other class
    if (!is_public || CannotLoadAgain(*hosted->GetControl())) return "";
  }
  std::string text;
  try {
    text = FormText(subject.form);
  } catch (const Error& error) {
    return IsDocumented(error.Number()) ? "" : error.what();
  }
  const Balance balance(subject.desktop);
  // What loads as something else than was saved, on purpose, is what it is after the first time.
  std::string again;
  for (const bool first : {true, false}) {
    const LoadedForm loaded = LoadFormText(subject.form.GetPlatform(), text, "saved.form.toml");
    for (const Diagnostic& diagnostic : loaded.diagnostics) {
      if (!diagnostic.of_desktop) return diagnostic.ToString();
    }
    again = FormText(*loaded.form);
    if (first) text = again;
  }
  const std::string difference = Difference(text, again);
  return difference.empty() ? balance.Difference() : difference;
}

}  // namespace levelwidgets::monkey
