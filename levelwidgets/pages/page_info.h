// What a property page is made of, as constant data.
#pragma once

#include <memory>
#include <span>
#include <string_view>

namespace levelwidgets {

class ConversionApi;
class PropertyPage;
struct PageInfo;

enum class FieldKind {
  kText,     // a text box
  kCheck,    // a check box
  kList,     // a drop-down list
  kCombo,    // a drop-down list in which other texts can be typed
  kLabel,    // a text
  kButtons,  // buttons in a row
  kFrame     // a frame around other fields
};

struct FieldInfo {
  std::string_view name;
  FieldKind kind = FieldKind::kText;
  // Of a check box, a label or a frame; of what holds a value, the text beside it.
  std::string_view caption = {};
  std::span<const std::string_view> items = {};  // of a list at first; the captions of buttons
  std::string_view label = {};                   // the name of the text beside it, where it has one
  std::string_view frame = {};                   // the frame that it stands in
  // With this text it refuses to be left while its own text is no number.
  std::string_view refusal = {};
  // What is typed does not mark the page as changed, a choice does.
  bool marks_by_choice_only = false;
};

// A field and the property that it shows.
struct FieldBinding {
  std::string_view field;
  std::string_view property;
};

// What a page shows of one of several things at a time: of a column, of a tab.
struct ChosenThing {
  std::string_view by = {};                   // the list field in which a person chooses it
  std::string_view property = {};             // of the control: its value, or the things that have values
  std::span<const FieldBinding> reads = {};   // when it is chosen
  std::span<const FieldBinding> writes = {};  // when the page is applied, after the other properties
};

struct PageInfo {
  std::string_view name;
  std::string_view title;
  std::string_view serves;            // the class whose controls it is for
  std::span<const FieldInfo> fields;  // in the order in which a person goes through them
  // In the order in which properties are read when the selection changes, and written when it is applied.
  std::span<const FieldBinding> bindings;
  std::shared_ptr<PropertyPage> (*create)(const PageInfo& info, ConversionApi& conversions) = nullptr;
  ChosenThing chosen = {};
};

}  // namespace levelwidgets
