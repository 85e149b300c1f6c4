// Builds a form from its file's tree and reports everything that is wrong with it.
#pragma once

#include <unordered_map>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form_file/report.h>

namespace levelwidgets {

class FormReader {
 public:
  using ClassFinder = const ClassInfo* (*)(std::string_view name);
  FormReader(Platform& platform, FormReport& report, ClassFinder find_class = FindControlClass)
      : platform_(platform), report_(report), find_class_(find_class) {}

  // The form, with the controls that could be made: complete only when the report has no errors. Null when
  // there is no [form] table.
  std::shared_ptr<Form> Read();
  // The path of the form's script; "" when it names none.
  const std::string& Script() const { return script_; }

 private:
  using Values = std::vector<std::pair<const FormNode*, std::optional<Variant>>>;

  std::string Quoted(const FormNode& node) const;
  bool CheckRoot(const FormNode& root);
  // One value for each of `keys`: the node, null where the table lacks it, and what it says when that is
  // right.
  Values ReadKeys(const FormNode& table, const std::vector<const PropertyInfo*>& keys);
  // Of what the platform's code page lacks, in a text that is shown and in a font's name.
  void WarnOfLostText(const FormNode& node, const std::string& key);
  void CheckLength(const FormNode& node, const PropertyInfo& key, std::optional<Variant>& value);
  void WarnOfUnknown(const FormNode& table, std::string_view what,
                     const std::vector<const PropertyInfo*>& keys,
                     std::initializer_list<std::string_view> others,
                     const ClassInfo* control_class = nullptr);

  void ReadForm(const FormNode& table);
  void WarnOfName(const FormNode& node, const std::string& name);
  void ReadScript(const FormNode& node);

  void ReadControl(const FormNode& table);
  const ClassInfo* ReadClass(const FormNode& table);
  // "" when it is missing or cannot be used.
  std::string ReadName(const FormNode& table);
  void WarnOfHiddenName(const FormNode& node, std::string_view name);
  PropertyBag ReadProperties(const FormNode* node, const ClassInfo& control_class);
  // Null when the control refused something, which has been reported.
  std::shared_ptr<HostedControl> Add(const ClassInfo& control_class, const std::string& name,
                                     const FormNode& table, PropertyBag bag, const Placement& place);
  // Takes the refused value out of `bag`; false when it was not in it.
  bool ReportRefused(const PropertyRefused& refused, const ClassInfo& control_class, const FormNode& table,
                     PropertyBag& bag);
  // Each of a form's two roles is for one control.
  void WarnOfSecond(const FormNode* node, std::string_view role, const FormNode*& first);
  static Placement PlaceOf(const ClassInfo& control_class, const Values& placement);
  // The keys of the placement that are no place.
  void Assign(HostedControl& control, const Values& placement);
  void WarnOfUnknownProperties(const FormNode& node, const HostedControl& control);

  Platform& platform_;
  FormReport& report_;
  ClassFinder find_class_;
  std::shared_ptr<Form> form_;
  std::string script_;
  std::unordered_map<std::string_view, const FormNode*> names_;
  const FormNode* default_ = nullptr;  // the keys of the first control that has the role
  const FormNode* cancel_ = nullptr;
};

}  // namespace levelwidgets
