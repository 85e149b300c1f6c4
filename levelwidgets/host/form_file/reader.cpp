#include <levelwidgets/host/form_file/reader.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include <levelwidgets/host/files/atomic_file.h>
#include <levelwidgets/host/files/whole_file.h>
#include <levelwidgets/host/form_file/lost_text.h>
#include <levelwidgets/host/form_file/values.h>

namespace levelwidgets {

namespace {

using Keys = std::vector<const PropertyInfo*>;

// [form], and not [form.something] alone.
bool HasHeader(const FormNode& table, std::string_view header) {
  std::string inside;
  for (const char c : header) {
    if (c != ' ' && c != '\t' && c != '"' && c != '\'') inside += c;
  }
  return table.shape == FormNode::Shape::kHeader && inside == "[" + table.key + "]";
}

bool AreHeaderTables(const FormNode& controls) {
  return controls.kind == FormNode::Kind::kList &&
         std::ranges::all_of(controls.children, [](const FormNode& table) {
           return table.IsTable() && table.shape == FormNode::Shape::kHeader;
         });
}

// Whether `key` is a length of the form's window, which is then in `options`.
bool TakeLength(FormOptions& options, const PropertyInfo& key, const Variant& value) {
  if (!Has(key.flags, MemberFlags::kPlace)) return false;
  const Twips length(ToSingle(value));
  if (Has(key.flags, MemberFlags::kLeft)) options.left = length;
  if (Has(key.flags, MemberFlags::kTop)) options.top = length;
  if (Has(key.flags, MemberFlags::kWidth)) options.size.width = length;
  if (Has(key.flags, MemberFlags::kHeight)) options.size.height = length;
  return true;
}

bool Contains(std::initializer_list<std::string_view> names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

}  // namespace

std::shared_ptr<Form> FormReader::Read() {
  const FormNode& root = report_.Document().Root();
  if (!CheckRoot(root)) return nullptr;
  ReadForm(report_.Document().FormTable());
  names_.reserve(report_.Document().ControlTables().size());
  for (const FormNode& table : report_.Document().ControlTables()) ReadControl(table);
  return form_;
}

std::string FormReader::Quoted(const FormNode& node) const {
  return text::Printable(report_.Document().TextOf(node.span), 60);
}

bool FormReader::CheckRoot(const FormNode& root) {
  WarnOfUnknown(root, "a form file", {}, {"form", "control"});
  const FormNode* controls = root.Find("control");
  const bool controls_right = !controls || AreHeaderTables(*controls);
  if (!controls_right) {
    report_.Error(controls->key_span.begin, "each control is a table of its own, begun with [[control]]");
  }
  const FormNode* form = root.Find("form");
  if (!form) {
    report_.Error(0, "there is no [form] table; a form file begins with one");
  } else if (!form->IsTable() || !HasHeader(*form, report_.Document().TextOf(form->span))) {
    report_.Error(form->key_span.begin, "the form is a table of its own, begun with [form]");
    return false;
  }
  return form && controls_right;
}

void FormReader::CheckLength(const FormNode& node, const PropertyInfo& key, std::optional<Variant>& value) {
  if (!value || key.type.type != VariantType::kSingle) return;
  const float length = ToSingle(*value);
  if (length < 0 && Has(key.flags, MemberFlags::kExtent)) {
    report_.Error(node.span.begin, std::string(key.name) + " cannot be negative; " + Quoted(node) + " is");
  } else if (std::fabs(length) > kMostTwips.value) {
    report_.Error(node.span.begin,
                  std::string(key.name) + " is at most 1000000000 twips; " + Quoted(node) + " is too far");
  } else {
    return;
  }
  value.reset();
}

FormReader::Values FormReader::ReadKeys(const FormNode& table, const Keys& keys) {
  Values values;
  values.reserve(keys.size());
  for (const PropertyInfo* key : keys) {
    auto& [node, value] = values.emplace_back(table.Find(key->name), std::nullopt);
    if (!node) continue;
    value = ReadValue(*node, key->name, TypeOf(*key), report_);
    CheckLength(*node, *key, value);
    if (key->name != "Tag") WarnOfLostText(*node, std::string(key->name));  // which nobody sees
  }
  return values;
}

void FormReader::WarnOfLostText(const FormNode& node, const std::string& key) {
  if (node.IsTable()) {
    for (const FormNode& child : node.children) WarnOfLostText(child, key + "." + child.key);
  }
  if (node.kind != FormNode::Kind::kString) return;
  const auto lost = FindLostText(std::get<std::string>(node.scalar), platform_.Conversions());
  if (!lost) return;
  // Where it is written as an escape, the text as a whole is the place.
  const std::size_t inside = report_.Document().TextOf(node.span).find(lost->first);
  report_.DesktopWarning(
      node.span.begin + (inside == std::string_view::npos ? 0 : inside),
      key + " has " + lost->message + ", which the desktop's code page lacks: \"?\" is shown instead");
}

void FormReader::WarnOfUnknown(const FormNode& table, std::string_view what, const Keys& keys,
                               std::initializer_list<std::string_view> others,
                               const ClassInfo* control_class) {
  for (const FormNode& child : table.children) {
    if (Contains(others, child.key) || std::ranges::find(keys, child.key, &PropertyInfo::name) != keys.end())
      continue;
    std::string message = std::string(what) + " has no key \"" + child.key + "\"";
    const PropertyInfo* property = control_class ? control_class->FindProperty(child.key) : nullptr;
    if (property && property->persisted) {
      message += "; it is one of the control's own, which stand in Properties";
    } else {
      std::vector<std::string_view> candidates(others);
      for (const PropertyInfo* key : keys) candidates.push_back(key->name);
      message += Suggestion(child.key, candidates);
    }
    report_.Warning(child.key_span.begin, message);
  }
}

// --- The form ----------------------------------------------------------------------------------------

void FormReader::ReadForm(const FormNode& table) {
  WarnOfUnknown(table, "a form", FormKeys(), {"Name", "Script"});
  FormOptions options;
  if (const FormNode* name = table.Find("Name")) {
    options.name = ReadString(*name, "Name", report_).value_or(options.name);
    WarnOfName(*name, options.name);
  }
  if (const FormNode* script = table.Find("Script")) ReadScript(*script);
  const Values values = ReadKeys(table, FormKeys());
  // Place and size are given at once: what is not placed stands in the middle by its size.
  std::vector<bool> given(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i].second) given[i] = TakeLength(options, *FormKeys()[i], *values[i].second);
  }
  form_ = Form::Create(platform_, options);
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i].second && !given[i]) FormKeys()[i]->set(*form_, *values[i].second);
  }
}

void FormReader::WarnOfName(const FormNode& node, const std::string& name) {
  if (name.empty() || IsControlName(name)) return;
  report_.Warning(node.span.begin, "no handler can be named after " + Quoted(node) +
                                       ": a name that a script can use is a letter or \"_\", then letters, "
                                       "digits and \"_\"");
}

void FormReader::ReadScript(const FormNode& node) {
  const auto value = ReadString(node, "Script", report_);
  if (!value) return;
  const bool is_cut = value->find('\0') != std::string::npos;
  const std::filesystem::path script = is_cut ? "" : PathOf(*value);
  if (script.empty() || script.has_root_path() || std::ranges::find(script, "..") != script.end()) {
    report_.Error(node.span.begin,
                  "Script is the name of a file beside the form; " + Quoted(node) + " is none");
    return;
  }
  const std::filesystem::path path = PathOf(report_.File()).parent_path() / script;
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  const auto size = std::filesystem::is_regular_file(status) ? std::filesystem::file_size(path, error) : 0;
  const std::string name = "the script " + Quoted(node);
  if (!std::filesystem::exists(status)) {
    report_.Error(node.span.begin, "there is no script " + Quoted(node) + " beside the form");
  } else if (!std::filesystem::is_regular_file(status)) {
    report_.Error(node.span.begin, name + " is a folder or a device, not an ordinary file");
  } else if (size > kLargestFile) {
    report_.Error(node.span.begin, name + " has " + std::to_string(size) + " bytes; at most " +
                                       std::to_string(kLargestFile) + " are taken");
  } else {
    script_ = TextOfPath(path);
  }
}

}  // namespace levelwidgets
