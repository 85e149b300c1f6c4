#include <levelwidgets/host/form_file/text.h>

#include <algorithm>
#include <unordered_map>

#include <levelwidgets/host/form_file/document_edit.h>
#include <levelwidgets/host/form_file/values.h>

namespace levelwidgets {

namespace {

// --- New text --------------------------------------------------------------------------------------------

std::string Line(std::string_view key, const std::string& value) {
  return std::string(key) + " = " + value + "\n";
}

std::string PropertiesText(const std::vector<KeyChange>& properties) {
  std::string text;
  for (const KeyChange& property : properties) {
    text += (text.empty() ? "" : ", ") + std::string(property.key) + " = " +
            WriteValue(*property.value, property.type);
  }
  return "{ " + text + " }";
}

std::vector<KeyChange> AllProperties(const ControlState& control) {
  std::vector<KeyChange> properties;
  for (const auto& [name, value] : control.properties.Entries()) {
    properties.push_back({name, value, control.control_class->FindPersisted(name).type});
  }
  return properties;
}

// The control that is added as number `position`.
std::string ControlText(const ControlState& control, std::size_t position) {
  std::string text = "[[control]]\n" + Line("Class", WriteString(control.control_class->Name())) +
                     Line("Name", WriteString(control.name));
  for (std::size_t i = 0; i < PlacementKeys().size(); ++i) {
    const PropertyInfo& key = *PlacementKeys()[i];
    if (control.placement[i] == PlacementDefault(key, *control.control_class, position)) continue;
    text += Line(key.name, WriteValue(control.placement[i], key.type));
  }
  if (!control.properties.Entries().empty())
    text += Line("Properties", PropertiesText(AllProperties(control)));
  return text;
}

// --- Changes to a text -------------------------------------------------------------------------------------

std::vector<KeyChange> FormChanges(const FormDocument& original, const FormState& now) {
  std::vector<KeyChange> changes;
  if (now.name != original.Loaded().name) changes.push_back({"Name", now.name, MemberTypeOf<std::string>()});
  for (std::size_t i = 0; i < FormKeys().size(); ++i) {
    const PropertyInfo& key = *FormKeys()[i];
    if (!(now.values[i] == original.Loaded().values[i]))
      changes.push_back({key.name, now.values[i], key.type});
  }
  return changes;
}

// A key that the text has keeps standing there, even with its default.
std::vector<KeyChange> PlacementChanges(const FormNode& table, const ControlState& before,
                                        const ControlState& now, std::size_t position) {
  std::vector<KeyChange> changes;
  for (std::size_t i = 0; i < PlacementKeys().size(); ++i) {
    const PropertyInfo& key = *PlacementKeys()[i];
    const Variant as_loaded =
        table.Find(key.name) ? before.placement[i] : PlacementDefault(key, *now.control_class, position);
    if (!(now.placement[i] == as_loaded)) changes.push_back({key.name, now.placement[i], key.type});
  }
  return changes;
}

std::vector<KeyChange> PropertyChanges(const ControlState& before, const ControlState& now) {
  std::vector<KeyChange> changes;
  for (const auto& [name, value] : now.properties.Entries()) {
    const Variant* old = before.properties.Find(name);
    if (!old || !(*old == value))
      changes.push_back({name, value, now.control_class->FindPersisted(name).type});
  }
  for (const auto& [name, value] : before.properties.Entries()) {
    if (!now.properties.Find(name)) changes.push_back({name, std::nullopt});
  }
  return changes;
}

using ControlPairs = std::unordered_map<std::size_t, const ControlState*>;  // by the number of the table

// The controls whose tables stay: those at the head of the form that the text has, too, and in that order.
// One that was removed and added again has gone to the form's end.
ControlPairs KeptControls(const FormState& loaded, const FormState& now) {
  std::unordered_map<std::string_view, std::size_t> numbers;
  for (std::size_t i = 0; i < loaded.controls.size(); ++i) numbers.emplace(loaded.controls[i].name, i);
  ControlPairs kept;
  std::size_t next = 0;
  for (const ControlState& control : now.controls) {
    const auto found = numbers.find(control.name);
    if (found == numbers.end() || found->second < next) break;
    if (loaded.controls[found->second].control_class != control.control_class) break;
    kept.emplace(found->second, &control);
    next = found->second + 1;
  }
  return kept;
}

void ChangeControl(FormTextEditor& editor, const FormNode& table, const ControlState& before,
                   const ControlState& now, std::size_t position) {
  editor.Change(table, PlacementChanges(table, before, now, position));
  std::vector<KeyChange> changes = PropertyChanges(before, now);
  const FormNode* properties = table.Find("Properties");
  std::erase_if(changes, [properties](const KeyChange& change) {
    return !change.value && !(properties && properties->Find(change.key));
  });
  if (properties) {
    editor.Change(*properties, changes);
  } else if (!changes.empty()) {
    editor.AddLines(table, {"Properties = " + PropertiesText(changes)});
  }
}

void AppendBlock(std::string& text, std::string_view block, const std::string& newline) {
  if (!text.empty() && !text.ends_with('\n')) text += newline;
  text += newline;
  for (const char c : block) {
    if (c == '\n') {
      text += newline;
    } else {
      text += c;
    }
  }
}

}  // namespace

std::string NewFormText(const FormState& form) {
  std::string text = "[form]\n" + Line("Name", WriteString(form.name));
  for (std::size_t i = 0; i < FormKeys().size(); ++i) {
    const PropertyInfo& key = *FormKeys()[i];
    if (!(form.values[i] == FormDefault(key))) text += Line(key.name, WriteValue(form.values[i], key.type));
  }
  for (std::size_t i = 0; i < form.controls.size(); ++i) text += "\n" + ControlText(form.controls[i], i);
  return text;
}

std::string EditedFormText(const FormDocument& original, const FormState& form) {
  FormTextEditor editor(original);
  editor.Change(original.FormTable(), FormChanges(original, form));
  const ControlPairs kept = KeptControls(original.Loaded(), form);
  std::size_t position = 0;
  for (std::size_t i = 0; i < original.ControlTables().size(); ++i) {
    const FormNode& table = original.ControlTables()[i];
    const auto now = kept.find(i);
    if (now == kept.end()) {
      editor.RemoveBlock(table);
    } else {
      ChangeControl(editor, table, original.Loaded().controls[i], *now->second, position++);
    }
  }
  std::string text = editor.Apply();
  for (; position < form.controls.size(); ++position) {
    AppendBlock(text, ControlText(form.controls[position], position), editor.Newline());
  }
  return text;
}

}  // namespace levelwidgets
