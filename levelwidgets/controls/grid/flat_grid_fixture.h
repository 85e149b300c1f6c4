// A grid on a form, for its tests.
#pragma once

#include <string>

#include <levelwidgets/controls/grid/flat_grid.h>
#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/frame/parts/picture_box.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets::testing {

inline constexpr std::int32_t kInvalidRowNumber = ObjectErrorNumber(kInvalidRowCode);
inline constexpr std::int32_t kInvalidColumnNumber = ObjectErrorNumber(kInvalidColumnCode);
inline constexpr std::int32_t kInvalidRowCountNumber = ObjectErrorNumber(kInvalidRowCountCode);

// Rows of 15 pixels below a header, at 15 twips per pixel. The picture is 300 by 100 pixels while no bar is
// shown: V is 7, of which the last two do not count.
class GridTest : public DesktopTest {
 protected:
  static constexpr TwipSize kGridSize{Twips(4500), Twips(1500)};

  // Another control has the focus.
  FlatGrid& Grid() {
    if (!grid_) {
      AddNew<FlatGrid>("grdFirst", {Twips(0), Twips(3000)});
      grid_ = &AddNew<FlatGrid>("grdMain", {Twips(600), Twips(300)}, kGridSize);
      TheForm().Find("grdFirst")->SetFocus();
      Driver().Settle();
    }
    return *grid_;
  }
  // With visible columns of these widths in twips; their captions are "A", "B" and so on.
  FlatGrid& GridOf(const std::vector<std::int32_t>& widths) {
    for (const std::int32_t width : widths) {
      const auto caption = std::string(1, static_cast<char>('A' + Grid().Columns()->Count()));
      Grid().Columns()->Add(caption, width, ksxLeft, ksxLeft, ksxEditText, true);
    }
    Driver().Settle();
    return *grid_;
  }
  void Focus() {
    Hosted(Grid()).SetFocus();
    Driver().Settle();
  }
  void Resize(TwipSize size) {
    Hosted(Grid()).Move({Twips(600), Twips(300)}, size);
    Driver().Settle();
  }

 private:
  FlatGrid* grid_ = nullptr;
};

}  // namespace levelwidgets::testing
