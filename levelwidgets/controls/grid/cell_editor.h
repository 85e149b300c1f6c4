// What a grid's cells are edited with: four controls behind one face.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <levelwidgets/controls/grid/flat_column.h>
#include <levelwidgets/frame/parts/text_box.h>

namespace levelwidgets {

// Where an editor is to stand. Its cell is in pixels of the picture, which is in the corner of the grid.
struct EditorPlace {
  PixelRect cell;       // a row with the line below it
  int text_height = 0;  // pixels of a line
  float twips_per_pixel_x = 15;
  float twips_per_pixel_y = 15;
};

// Hidden and behind the picture until it is shown. Its keys and its focus are the grid's.
class CellEditor {
 public:
  // The one for columns of this type, any value outside the enumeration included: then it is an edit box.
  // Null for none. `grid` outlives it.
  static std::unique_ptr<CellEditor> Make(PartHost& grid, ksxEditTypeConstants type);
  virtual ~CellEditor() = default;
  CellEditor(const CellEditor&) = delete;
  CellEditor& operator=(const CellEditor&) = delete;

  virtual WindowHandle hWnd() const = 0;
  // Its panel's windows are its own, too.
  virtual bool Holds(WindowHandle window) const = 0;
  virtual TextBox& Edit() const = 0;
  virtual EditEvents& Events() = 0;
  virtual bool PanelIsOpen() const { return false; }

  // The text that it shows, and that the cell gets.
  std::string Text() const { return Edit().Text(); }
  // Shows a cell's text, as far as the editor can, and selects it.
  void Load(const FlatColumn& column, std::string_view text, const FontRef& font);
  // Returns the place that it takes, in pixels of the grid.
  virtual PixelRect Place(const EditorPlace& place) = 0;
  // Directly behind the window `front`.
  void ShowBehind(WindowHandle front);
  // Behind all parts of the grid.
  void Hide();
  bool Visible() const { return visible_; }

 protected:
  explicit CellEditor(PartHost& grid) : grid_(grid) {}

  WindowApi& Windows() const { return grid_.GetSurface().Windows(); }

 private:
  virtual void SetFont(const FontRef& font) = 0;
  virtual void Show(const FlatColumn& column, std::string_view text) = 0;
  virtual void SetVisible(bool visible) = 0;

  PartHost& grid_;
  bool visible_ = false;
};

}  // namespace levelwidgets
