// The rows that the tables of the controls around an edit box share:
//
//   using Edit = table::EditRows<Field>;
//   table::JoinProperties(Edit::Alignment(1), Edit::Look(2), Row::Property<...>(5, ...), Edit::Handle(6))
//
// A table gives each its number; a list of rows has that of its first row and those that follow it.
#pragma once

#include <concepts>

#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/frame/edit_control.h>
#include <levelwidgets/frame/parts/drop_button.h>
#include <levelwidgets/platform/system_colors.h>

namespace levelwidgets::table {

template <typename Part>
inline constexpr std::size_t kRowCount = 1;
template <typename Info, std::size_t N>
inline constexpr std::size_t kRowCount<std::array<Info, N>> = N;

// One list of rows and lists of rows.
template <typename Info, typename... Parts>
constexpr auto Join(const Parts&... parts) {
  std::array<Info, (kRowCount<Parts> + ...)> all{};
  std::size_t at = 0;
  const auto add = [&](const auto& part) {
    if constexpr (std::same_as<std::remove_cvref_t<decltype(part)>, Info>) {
      all[at++] = part;
    } else {
      for (const Info& row : part) all[at++] = row;
    }
  };
  (add(parts), ...);
  return all;
}
template <typename... Parts>
constexpr auto JoinProperties(const Parts&... parts) {
  return Join<PropertyInfo>(parts...);
}
template <typename... Parts>
constexpr auto JoinEvents(const Parts&... parts) {
  return Join<EventInfo>(parts...);
}

// What controls say about the same events in other words.
struct EditEventHelp {
  std::string_view change = "The text changed.";
  std::string_view key_press = "A character was typed.";
};

// Of control T.
template <typename T>
struct EditRows {
  // `left` is 0 in the type that the property has.
  static constexpr PropertyInfo Alignment(int number, const Literal& left = std::int32_t{ksxLeft}) {
    return Own::template Property<&T::Alignment, &T::SetAlignment>(
        number, "Alignment", Always(left), "Horizontal alignment of the text: 0 left, 1 right, 2 centred.");
  }
  // BackColor, ForeColor, Enabled.
  static constexpr std::array<PropertyInfo, 3> Look(int first) {
    return {Own::template Property<&T::BackColor, &T::SetBackColor>(first, "BackColor", Always(kWindowBack),
                                                                    "Background colour of the text."),
            Own::template Property<&T::ForeColor, &T::SetForeColor>(
                first + 1, "ForeColor", Always(kWindowText), "Colour of the text."),
            Own::template Property<&T::Enabled, &T::SetEnabled>(first + 2, "Enabled", Always(true),
                                                                "Whether the control takes input.")};
  }
  static constexpr PropertyInfo Font(int number, std::string_view help = "Font of the text.") {
    return Own::template Property<&T::GetFont, &T::SetFont>(number, "Font", Always(kAmbientFont), help);
  }
  // SelStart, SelLength, SelText.
  static constexpr std::array<PropertyInfo, 3> Selection(int first) {
    return {
        Own::template Property<&T::SelStart, &T::SetSelStart>(
            first, "SelStart", kNoDefault, "Where the selection begins, in characters from 0."),
        Own::template Property<&T::SelLength, &T::SetSelLength>(first + 1, "SelLength", kNoDefault,
                                                                "How many characters are selected."),
        Own::template Property<&T::SelText, &T::SetSelText>(
            first + 2, "SelText", kNoDefault, "The selected text.", {.flags = MemberFlags::kBecomesAnother})};
  }
  // Where it is the default member.
  static constexpr PropertyInfo Text(int number) {
    return Own::template Property<&T::Text, &T::SetText>(number, "Text", Always(""), "The text.",
                                                         {.flags = MemberFlags::kDefault});
  }
  // DropDownBackColor, DropDownBackColorMouseOver, DropDownBackColorPushed. The last two have `flags`.
  static constexpr std::array<PropertyInfo, 3> Strip(int first, MemberFlags flags = MemberFlags::kNone) {
    constexpr DropButton::Colors kColors;
    return {Own::template Property<&T::DropDownBackColor, &T::SetDropDownBackColor>(
                first, "DropDownBackColor", Always(kColors.rest), "Fill of the drop button."),
            Own::template Property<&T::DropDownBackColorMouseOver, &T::SetDropDownBackColorMouseOver>(
                first + 1, "DropDownBackColorMouseOver", Always(kColors.mouse_over),
                "Fill of the drop button under the pointer.", {.flags = flags}),
            Own::template Property<&T::DropDownBackColorPushed, &T::SetDropDownBackColorPushed>(
                first + 2, "DropDownBackColorPushed", Always(kColors.pushed),
                "Fill of the drop button while the left button is held.", {.flags = flags})};
  }
  static constexpr PropertyInfo Handle(int number) {
    return Own::template ReadOnly<&T::hWnd>(number, "hWnd", "Handle of the control's window.");
  }
  // From Change to MouseUp.
  static constexpr std::array<EventInfo, 9> Events(int first, const EditEventHelp& help = {}) {
    return {Own::template Event<&T::Change>(first, "Change", "", help.change),
            Own::template Event<&T::Click>(first + 1, "Click", "", "The text was clicked."),
            Own::template Event<&T::DblClick>(first + 2, "DblClick", "", "The text was clicked twice."),
            Own::template Event<&T::KeyDown>(first + 3, "KeyDown", kKeyArguments, "A key went down."),
            Own::template Event<&T::KeyPress>(first + 4, "KeyPress", kCharacterArguments, help.key_press),
            Own::template Event<&T::KeyUp>(first + 5, "KeyUp", kKeyArguments, "A key went up."),
            Own::template Event<&T::MouseDown>(first + 6, "MouseDown", kPointerArguments,
                                               "A pointer button went down on the text."),
            Own::template Event<&T::MouseMove>(first + 7, "MouseMove", kPointerArguments,
                                               "The pointer moved over the text."),
            Own::template Event<&T::MouseUp>(first + 8, "MouseUp", kPointerArguments,
                                             "A pointer button went up on the text.")};
  }

 private:
  using Own = Row<T>;
};

}  // namespace levelwidgets::table
