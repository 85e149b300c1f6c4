// What is painted, when, and in which order.
#include <levelwidgets/testing/scenes/scene.h>

namespace levelwidgets::testing {
namespace {

class PaintScenes : public SceneTest {
 protected:
  // Paints all of the window in `color`; what BeginPaint leaves out keeps its pixels.
  void PaintIn(WindowHandle window, std::uint32_t color) {
    On(window, kWmPaint, [this, window, color](WParam, LParam) {
      DrawingApi& drawing = Driver().GetPlatform().Drawing();
      const DcHandle dc = Api().BeginPaint(window);
      PixelRect client;
      Api().GetClientRect(window, client);
      const ObjectHandle brush = drawing.CreateSolidBrush({color});
      drawing.FillRect(dc, client, brush);
      drawing.DeleteObject(brush);
      Api().EndPaint(window);
      return 0;
    });
  }
  void NotePixels(WindowHandle window, const std::vector<PixelPoint>& points) {
    std::string line = "pixels of " + NameOf(window) + ":";
    for (const PixelPoint point : points) {
      char color[16];
      std::snprintf(color, sizeof color, " %06X", Driver().PixelAt(OnScreen(window, point)).value);
      line += color;
    }
    Note(line);
  }
};

TEST_F(PaintScenes, APaintThatIsNotBegunComesAgain) {
  Hear(kPaintMessages);
  const WindowHandle form = Top("form", {50, 50, 350, 250});
  Driver().Settle();
  int paints = 0;
  On(form, kWmPaint, [&](WParam, LParam) {
    if (++paints == 3) {
      Api().BeginPaint(form);
      Api().EndPaint(form);
    }
    return 0;
  });
  Do("invalidate", [&] { Api().InvalidateRect(form); });
  Do("invalidate and update", [&] {
    paints = 1;
    Api().InvalidateRect(form);
    Api().UpdateWindow(form);
    Note("updated");
  });
  Do("what is invalid and covered by nothing is painted by the default", [&] {
    On(form, kWmPaint, [&](WParam wparam, LParam lparam) { return Default(form, kWmPaint, wparam, lparam); });
    Api().InvalidateRect(form);
  });
  Expect(R"(
    form Paint
    * invalidate
    form Paint
    form Paint
    form Paint
    * invalidate and update
    form Paint
    updated
    form Paint
    * what is invalid and covered by nothing is painted by the default
    form Paint
  )");
}

TEST_F(PaintScenes, SiblingsArePaintedFromTheFrontAndChildrenAfterTheirParent) {
  const WindowHandle form = Top("form", {50, 50, 350, 250});
  const WindowHandle behind = Child("behind", form, {0, 0, 100, 100});
  const WindowHandle front = Child("front", form, {100, 0, 200, 100});
  const WindowHandle inside_behind = Child("inside behind", behind, {0, 0, 20, 20});
  const WindowHandle inside_front = Child("inside front", front, {0, 0, 20, 20});
  Api().SetWindowPos(front, {kHwndTop}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
  const WindowHandle two = Top("two", {400, 50, 500, 150});
  Driver().Settle();
  Hear(kPaintMessages);
  Do("all children", [&] {
    for (const WindowHandle window : {inside_behind, behind, inside_front, front})
      Api().InvalidateRect(window);
  });
  Do("children of both and the form", [&] {
    for (const WindowHandle window : {inside_behind, inside_front, form}) Api().InvalidateRect(window);
  });
  Do("both forms", [&] {
    Api().InvalidateRect(form);
    Api().InvalidateRect(two);
  });
  Do("both forms, the other one in front", [&] {
    Api().SetWindowPos(form, {kHwndTop}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
    Api().InvalidateRect(two);
    Api().InvalidateRect(form);
    Api().InvalidateRect(behind);
  });
  Do("a paint that invalidates what is before it", [&] {
    bool done = false;
    On(behind, kWmPaint, [&, done](WParam wparam, LParam lparam) mutable {
      const LResult result = Default(behind, kWmPaint, wparam, lparam);
      if (!std::exchange(done, true)) Api().InvalidateRect(front);
      return result;
    });
    for (const WindowHandle window : {inside_behind, behind}) Api().InvalidateRect(window);
  });
  Do("update", [&] {
    for (const WindowHandle window : {inside_behind, behind, inside_front, front})
      Api().InvalidateRect(window);
    Api().UpdateWindow(behind);
    Note("updated");
  });
  Expect(R"(
    * all children
    front Paint
    inside front Paint
    behind Paint
    inside behind Paint
    * children of both and the form
    form Paint
    inside front Paint
    inside behind Paint
    * both forms
    two Paint
    form Paint
    * both forms, the other one in front
    form Paint
    behind Paint
    inside behind Paint
    two Paint
    * a paint that invalidates what is before it
    behind Paint
    front Paint
    inside front Paint
    inside behind Paint
    * update
    behind Paint
    inside behind Paint
    updated
    front Paint
    inside front Paint
  )");
}

TEST_F(PaintScenes, AMovedChildKeepsItsPixels) {
  const WindowHandle form = Top("form", {50, 50, 350, 250});
  PaintIn(form, 0x202020);
  const WindowHandle child = Child("child", form, {10, 10, 60, 60});
  PaintIn(child, 0x0000FF);
  Driver().Settle();
  Hear(kPaintMessages);
  PaintIn(child, 0x00FF00);
  PaintIn(form, 0x404040);
  Do("move it", [&] { Api().SetWindowPos(child, {}, {80, 10, 130, 60}, kSwpNoZOrder | kSwpNoActivate); });
  NotePixels(child, {{0, 0}, {25, 25}, {49, 49}});
  NotePixels(form, {{5, 5}, {15, 15}, {59, 59}, {75, 15}});
  Do("move it partly over where it was", [&] {
    Api().SetWindowPos(child, {}, {100, 20, 150, 70}, kSwpNoZOrder | kSwpNoActivate);
  });
  NotePixels(child, {{0, 0}, {25, 25}, {49, 49}});
  NotePixels(form, {{85, 15}, {155, 15}});
  Do("move it partly out of its form", [&] {
    Api().SetWindowPos(child, {}, {-20, 20, 30, 70}, kSwpNoZOrder | kSwpNoActivate);
  });
  NotePixels(child, {{25, 25}, {49, 49}});
  Do("and back", [&] { Api().SetWindowPos(child, {}, {10, 20, 60, 70}, kSwpNoZOrder | kSwpNoActivate); });
  NotePixels(child, {{5, 25}, {25, 25}, {49, 49}});
  Do("move and size it", [&] {
    PaintIn(child, 0xFF0000);
    Api().SetWindowPos(child, {}, {20, 30, 80, 90}, kSwpNoZOrder | kSwpNoActivate);
  });
  NotePixels(child, {{5, 25}, {55, 55}});
  Expect(R"(
    * move it
    form Paint
    pixels of child: 0000FF 0000FF 0000FF
    pixels of form: 202020 404040 404040 202020
    * move it partly over where it was
    form Paint
    pixels of child: 0000FF 0000FF 0000FF
    pixels of form: 404040 202020
    * move it partly out of its form
    form Paint
    pixels of child: 0000FF 0000FF
    * and back
    form Paint
    child Paint
    pixels of child: 00FF00 0000FF 0000FF
    * move and size it
    form Paint
    child Paint
    pixels of child: FF0000 FF0000
  )");
}

TEST_F(PaintScenes, AMovedChildTakesItsOwnChildrenAlong) {
  const WindowHandle form = Top("form", {50, 50, 350, 250});
  const WindowHandle child = Child("child", form, {10, 10, 60, 60});
  PaintIn(child, 0x0000FF);
  const WindowHandle inside = Child("inside", child, {10, 10, 30, 30});
  PaintIn(inside, 0x00FFFF);
  const WindowHandle cover = Child("cover", form, {40, 10, 60, 60});
  Api().SetWindowPos(cover, {kHwndTop}, {}, kSwpNoMove | kSwpNoSize | kSwpNoActivate);
  PaintIn(cover, 0xFFFFFF);
  Driver().Settle();
  Hear(kPaintMessages);
  PaintIn(child, 0x00FF00);
  PaintIn(inside, 0xFFFF00);
  Do("move it from below what covers it", [&] {
    Api().SetWindowPos(child, {}, {80, 10, 130, 60}, kSwpNoZOrder | kSwpNoActivate);
  });
  NotePixels(child, {{5, 5}, {15, 15}, {35, 35}, {45, 5}});
  Do("move it before its last move is painted", [&] {
    Api().InvalidateRect(child);
    Api().SetWindowPos(child, {}, {90, 70, 140, 120}, kSwpNoZOrder | kSwpNoActivate);
  });
  NotePixels(child, {{5, 5}, {15, 15}, {35, 35}, {45, 5}});
  Do("move it without redrawing", [&] {
    Api().SetWindowPos(child, {}, {90, 80, 140, 130}, kSwpNoZOrder | kSwpNoActivate | kSwpNoRedraw);
  });
  Do("move the form", [&] {
    Api().SetWindowPos(form, {}, {60, 60, 360, 260}, kSwpNoZOrder | kSwpNoActivate);
  });
  Expect(R"(
    * move it from below what covers it
    form Paint
    child Paint
    pixels of child: 0000FF 00FFFF 00FF00 00FF00
    * move it before its last move is painted
    form Paint
    child Paint
    inside Paint
    pixels of child: 00FF00 FFFF00 00FF00 00FF00
    * move it without redrawing
    * move the form
  )");
}

}  // namespace
}  // namespace levelwidgets::testing
