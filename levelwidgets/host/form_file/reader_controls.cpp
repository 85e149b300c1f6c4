#include <algorithm>
#include <charconv>

#include <levelwidgets/host/form_file/reader.h>
#include <levelwidgets/host/form_file/values.h>

namespace levelwidgets {

namespace {

// Sorted, both. The language's own words, and what a script in a sandbox has as globals.
constexpr std::string_view kScriptWords[] = {
    "and", "break", "do",  "else", "elseif", "end",    "false",  "for",  "function", "goto",  "if",
    "in",  "local", "nil", "not",  "or",     "repeat", "return", "then", "true",     "until", "while"};
constexpr std::string_view kScriptGlobals[] = {
    "_G",           "_VERSION",     "assert",  "collectgarbage", "coroutine", "error",
    "form",         "getmetatable", "ipairs",  "load",           "lw",        "math",
    "next",         "os",           "package", "pairs",          "pcall",     "print",
    "rawequal",     "rawget",       "rawlen",  "rawset",         "require",   "select",
    "setmetatable", "string",       "table",   "tonumber",       "tostring",  "type",
    "utf8",         "warn",         "xpcall"};

// How many values of the stored property, or items of the collection, there are.
std::int32_t CountOf(const PersistedKey& stored, const Control& control) {
  if (!stored.field) return stored.property->count(control);
  const Variant collection = stored.property->get(control);
  return stored.property->type.object_class().SavedItems()->count(*std::get<ObjectRef>(collection.Get()));
}

std::string NameOfMany(const PersistedKey& stored) {
  return (stored.field ? "items in " : "values of ") + std::string(stored.property->name);
}

// What an unknown `key` may be meant to be. Of an item's keys those that the item at the same position has.
std::vector<std::string> KnownKeys(const ClassInfo& control_class, std::string_view key) {
  std::vector<std::string> keys;
  for (const PropertyInfo* property : control_class.Persisted()) {
    if (!property->is_collection) {
      keys.emplace_back(property->name);
      continue;
    }
    const SavedItems& items = *property->type.object_class().SavedItems();
    keys.emplace_back(items.count_key);
    std::int32_t position = 0;
    if (!key.starts_with(items.prefix)) continue;
    std::from_chars(key.data() + items.prefix.size(), key.data() + key.size(), position);
    if (position < 1) continue;
    for (const PropertyInfo* field : items.item_class().Persisted()) {
      keys.push_back(items.KeyOf(position, *field));
    }
  }
  return keys;
}

}  // namespace

// --- Controls ----------------------------------------------------------------------------------------

void FormReader::ReadControl(const FormNode& table) {
  const ClassInfo* control_class = ReadClass(table);
  const std::string name = ReadName(table);
  const Values placement = ReadKeys(table, PlacementKeys());
  WarnOfUnknown(table, "a control", PlacementKeys(), {"Class", "Name", "Properties"}, control_class);
  WarnOfSecond(table.Find("Default"), "default", default_);
  WarnOfSecond(table.Find("Cancel"), "cancel", cancel_);
  const FormNode* properties = table.Find("Properties");
  if (properties && !properties->IsTable()) {
    report_.Error(properties->span.begin,
                  "Properties is a table, such as { Caption = \"OK\" }; " + Quoted(*properties) + " is none");
    return;
  }
  if (!control_class) return;
  PropertyBag bag = ReadProperties(properties, *control_class);
  // One without a usable name is made all the same, to hear what it refuses.
  const std::string made_as = name.empty() ? "_at_" + std::to_string(table.span.begin) : std::string(name);
  const auto control =
      Add(*control_class, made_as, table, std::move(bag), PlaceOf(*control_class, placement));
  if (!control) return;
  Assign(*control, placement);
  if (!control->GetControl()) {
    report_.Error(table.span.begin,
                  std::string(control_class->Name()) + ": " + RemovedWhileAdded(*control).Description());
  } else if (properties) {
    WarnOfUnknownProperties(*properties, *control);
  }
}

const ClassInfo* FormReader::ReadClass(const FormNode& table) {
  const FormNode* node = table.Find("Class");
  if (!node) {
    report_.Error(table.span.begin, "the control has no Class");
    return nullptr;
  }
  const auto name = ReadString(*node, "Class", report_);
  if (!name) return nullptr;
  const ClassInfo* found = find_class_(*name);
  if (!found) {
    std::vector<std::string_view> names;
    for (const ClassInfo* known : ControlClasses()) names.push_back(known->Name());
    report_.Error(node->span.begin, "there is no control class \"" + *name + "\"" + Suggestion(*name, names));
  }
  return found;
}

std::string FormReader::ReadName(const FormNode& table) {
  const FormNode* node = table.Find("Name");
  if (!node) {
    report_.Error(table.span.begin, "the control has no Name");
    return {};
  }
  if (!ReadString(*node, "Name", report_)) return {};
  const std::string& name = std::get<std::string>(node->scalar);
  if (!IsControlName(name)) {
    report_.Error(node->span.begin,
                  Quoted(*node) + " is no name: that is a letter or \"_\", then letters, digits and \"_\"");
    return {};
  }
  WarnOfHiddenName(*node, name);
  const auto [other, added] = names_.emplace(name, node);
  if (added) return name;
  const TextPosition at = report_.Document().PositionOf(other->second->span.begin);
  report_.Error(node->span.begin,
                "\"" + name + "\" is the name of the control on line " + std::to_string(at.line));
  return {};
}

void FormReader::WarnOfHiddenName(const FormNode& node, std::string_view name) {
  if (std::ranges::binary_search(kScriptWords, name)) {
    report_.Warning(node.span.begin,
                    "\"" + std::string(name) +
                        "\" is a word of the scripts' language; a script reaches the control as form[\"" +
                        std::string(name) + "\"]");
  } else if (std::ranges::binary_search(kScriptGlobals, name)) {
    report_.Warning(node.span.begin, "the control hides what scripts have as \"" + std::string(name) +
                                         "\"; another name keeps both");
  }
}

void FormReader::WarnOfSecond(const FormNode* node, std::string_view role, const FormNode*& first) {
  if (!node || !std::holds_alternative<bool>(node->scalar) || !std::get<bool>(node->scalar)) return;
  if (!first) {
    first = node;
    return;
  }
  const TextPosition at = report_.Document().PositionOf(first->span.begin);
  report_.Warning(node->span.begin, "the control on line " + std::to_string(at.line) + " is the " +
                                        std::string(role) + " button already; the last one is");
}

PropertyBag FormReader::ReadProperties(const FormNode* node, const ClassInfo& control_class) {
  PropertyBag bag;
  if (!node) return bag;
  for (const FormNode& child : node->children) {
    const PersistedKey stored = control_class.FindPersisted(child.key);
    // What no table names is handed to the control, which may know it all the same.
    const auto value = stored.property ? ReadValue(child, child.key, {stored.type, stored.stored_as}, report_)
                                       : ReadUntyped(child, report_.Document());
    if (value) bag.WriteProperty(child.key, *value, {});
    if (stored.property) WarnOfLostText(child, child.key);
  }
  return bag;
}

std::shared_ptr<HostedControl> FormReader::Add(const ClassInfo& control_class, const std::string& name,
                                               const FormNode& table, PropertyBag bag,
                                               const Placement& place) {
  // A control stops at the first value that it refuses: without that one it is asked again for the rest.
  for (bool refused_before = false;; refused_before = true) {
    try {
      HostedControl& control = form_->Add(control_class, name, &bag, place);
      return refused_before ? nullptr : control.shared_from_this();
    } catch (const PropertyRefused& refused) {
      if (!ReportRefused(refused, control_class, table, bag)) return nullptr;
    } catch (const Error& error) {
      report_.Error(table.span.begin, std::string(control_class.Name()) + ": " + error.Description());
      return nullptr;
    }
  }
}

bool FormReader::ReportRefused(const PropertyRefused& refused, const ClassInfo& control_class,
                               const FormNode& table, PropertyBag& bag) {
  const FormNode* properties = table.Find("Properties");
  const FormNode* node = properties ? properties->Find(refused.Property()) : nullptr;
  const std::string because = ": " + refused.Description();
  if (!node || !bag.Find(refused.Property())) {
    // It took its default for what the file does not give, or gives wrongly.
    report_.Error(table.span.begin, std::string(control_class.Name()) + " needs another " +
                                        refused.Property() + " here" + because);
    return false;
  }
  report_.Error(node->span.begin, std::string(control_class.Name()) + " refuses " + Quoted(*node) +
                                      " as its " + refused.Property() + because);
  PropertyBag rest;
  for (const auto& [name, value] : bag.Entries()) {
    if (name != refused.Property()) rest.WriteProperty(name, value, {});
  }
  bag = std::move(rest);
  return true;
}

Placement FormReader::PlaceOf(const ClassInfo& control_class, const Values& placement) {
  Placement place{{}, control_class.DefaultSize()};
  for (std::size_t i = 0; i < placement.size(); ++i) {
    Twips* const length = LengthOf(place, PlacementKeys()[i]->flags);
    const auto& value = placement[i].second;
    if (length && value) *length = Twips(ToSingle(*value));
  }
  return place;
}

void FormReader::Assign(HostedControl& control, const Values& placement) {
  for (std::size_t i = 0; i < placement.size(); ++i) {
    const PropertyInfo& key = *PlacementKeys()[i];
    const auto& value = placement[i].second;
    if (!value || Has(key.flags, MemberFlags::kPlace)) continue;
    try {
      key.set(control, *value);
    } catch (const Error& error) {
      report_.Error(placement[i].first->span.begin, error.Description());
    }
  }
}

void FormReader::WarnOfUnknownProperties(const FormNode& node, const HostedControl& control) {
  const ClassInfo& control_class = control.ControlClass();
  std::optional<PropertyBag> saved;
  for (const FormNode& child : node.children) {
    if (const PersistedKey stored = control_class.FindPersisted(child.key); stored.property) {
      const std::int32_t count = stored.index == 0 ? 0 : CountOf(stored, *control.GetControl());
      if (stored.index > count) {
        report_.Warning(child.key_span.begin, child.key + " is not loaded: there are " +
                                                  std::to_string(count) + " " + NameOfMany(stored));
      }
      continue;
    }
    if (!saved) saved = control.Properties();
    if (saved->Find(child.key)) continue;  // one of those that a control numbers itself
    const std::vector<std::string> keys = KnownKeys(control_class, child.key);
    const std::vector<std::string_view> names(keys.begin(), keys.end());
    report_.Warning(child.key_span.begin, std::string(control_class.Name()) + " has no property \"" +
                                              child.key + "\" to load" + Suggestion(child.key, names));
  }
}

}  // namespace levelwidgets
