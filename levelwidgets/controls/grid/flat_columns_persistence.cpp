#include <levelwidgets/controls/grid/flat_columns.h>
#include <levelwidgets/frame/control.h>

namespace levelwidgets {

namespace {

constexpr std::string_view kCount = "ColumnCount";

// What is saved of a column. The default that is not saved differs in places from the one that is read.
struct Field {
  const char* name;
  VariantType stored_as;
  Variant when_read;
  Variant when_written;
};

const Field kCaption{"Caption", VariantType::kString, "", ""};
const Field kWidth{"Width", VariantType::kInt16, 1440, 1440};
const Field kAlignment{"Alignment", VariantType::kInt16, ksxLeft, ksxLeft};
// A caption aligned right is not saved, and is centred when loaded again.
const Field kHeaderAlignment{"HeaderAlignment", VariantType::kInt16, ksxCenter, ksxRight};
// No editor is -1, so the editor is always saved.
const Field kEditType{"EditType", VariantType::kInt16, ksxEditText, true};
const Field kVisible{"Visible", VariantType::kBoolean, true, true};
const Field kFormat{"Format", VariantType::kString, "", ""};

// "Column1Caption"
std::string KeyOf(std::int32_t position, const Field& field) {
  return "Column" + std::to_string(position) + field.name;
}

Variant ReadAs(const PropertyBag& bag, std::string_view key, VariantType type, const Variant& otherwise) {
  try {
    return ConvertTo(type, bag.ReadProperty(key, otherwise));
  } catch (const Error& error) {
    throw PropertyRefused(std::string(key), error);
  }
}

}  // namespace

void FlatColumns::ReadProperties(const PropertyBag& bag) {
  const auto keep = shared_from_this();  // a listener may let go of the collection
  const std::int32_t count = ToInt32(ReadAs(bag, kCount, VariantType::kInt16, 0));
  for (std::int32_t position = 1; position <= count; ++position) {
    const auto read = [&](const Field& field) {
      return ReadAs(bag, KeyOf(position, field), field.stored_as, field.when_read);
    };
    Add(ToText(read(kCaption)), ToInt32(read(kWidth)),
        static_cast<ksxAlignmentConstants>(ToInt32(read(kHeaderAlignment))),
        static_cast<ksxAlignmentConstants>(ToInt32(read(kAlignment))),
        static_cast<ksxEditTypeConstants>(ToInt32(read(kEditType))), ToBoolean(read(kVisible)),
        ToText(read(kFormat)));
  }
}

void FlatColumns::WriteProperties(PropertyBag& bag) const {
  bag.WriteProperty(kCount, ToInt16(Count()), 0);
  std::int32_t position = 0;
  for (const auto& column : columns_) {
    ++position;
    const auto write = [&](const Field& field, const Variant& value) {
      bag.WriteProperty(KeyOf(position, field), ConvertTo(field.stored_as, value), field.when_written);
    };
    write(kCaption, column->Caption());
    write(kWidth, column->Width());
    write(kAlignment, column->Alignment());
    write(kHeaderAlignment, column->HeaderAlignment());
    write(kEditType, column->EditType());
    write(kVisible, column->Visible());
    write(kFormat, column->Format());
  }
}

}  // namespace levelwidgets
