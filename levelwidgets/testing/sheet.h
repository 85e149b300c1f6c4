// A class whose methods hand values back, for tests of calls by name.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets::testing {

// A base beside Object.
struct Ringing {
  virtual ~Ringing() = default;
  std::int64_t before = 0;  // so that the events do not begin where the object does
  Event<std::int32_t&> Rung;
};

// Hands back row and column, a text, a number, an object and a value of any type.
class Sheet : public Object, public Ringing {
 public:
  static const ClassInfo& Table();
  const ClassInfo& Class() const override { return Table(); }

  std::int32_t HitTest(Twips x, Twips y, std::int32_t& column) {
    column = static_cast<std::int32_t>(x.value) / 100;
    return static_cast<std::int32_t>(y.value) / 10;
  }
  void Locate(std::int16_t& row, std::string& name, const std::string& of) {
    row = static_cast<std::int16_t>(of.size());
    name = "<" + of + ">";
  }
  void Double(std::int32_t& value, bool twice) {
    value *= twice ? 4 : 2;
    if (value > 1000) throw Error(kOverflow);
  }
  void Swap(std::shared_ptr<Sheet>& other, Variant& any) {
    any = other ? Variant("had one") : Variant(Null{});
    other = held;
  }
  void Touch() { ++touched; }

  std::shared_ptr<Sheet> held;
  int touched = 0;
};

inline const ClassInfo& Sheet::Table() {
  using Row = table::Row<Sheet>;
  static constexpr Literal kDoubleDefaults[] = {false};
  static constexpr auto data =
      ClassTable(ObjectClass("Sheet", "Rows and columns."), table::Properties(), table::Persisted(),
                 table::Methods(Row::Method<&Sheet::HitTest>(1, "HitTest", "X, Y, out ColIndex", ""),
                                Row::Method<&Sheet::Locate>(2, "Locate", "out Row, out Name, Of", ""),
                                Row::Method<&Sheet::Double>(3, "Double", "Value, Twice", "", kDoubleDefaults),
                                Row::Method<&Sheet::Swap>(4, "Swap", "Other, out Any", ""),
                                Row::Method<&Sheet::Touch>(5, "Touch", "", "")),
                 table::Events(Row::Event<&Sheet::Rung>(1, "Rung", "Times", "")));
  static constexpr ClassInfo info(data);
  return info;
}

}  // namespace levelwidgets::testing
