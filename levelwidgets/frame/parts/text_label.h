// A text on a panel.
#pragma once

#include <string>

#include <levelwidgets/frame/alignment.h>
#include <levelwidgets/frame/events.h>
#include <levelwidgets/frame/parts/windowless_part.h>

namespace levelwidgets {

// A filled rectangle with a text that breaks into lines, from the top. Its events are those of the pointer;
// positions are relative to the label. Setters repaint with the panel's next paint.
class TextLabel : public WindowlessPart, public ClickEvents, public DblClickEvents, public PointerEvents {
 public:
  // In the panel's colours and font, 0 by 0 twips.
  explicit TextLabel(PictureBox& panel);
  ~TextLabel() override;

  // --- Properties -------------------------------------------------------------------------------

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  Color BackColor() const { return back_color_; }
  void SetBackColor(Color color);
  Color ForeColor() const { return fore_color_; }
  void SetForeColor(Color color);
  // Null is the panel's own.
  const FontRef& GetFont() const { return font_; }
  // Shares the font.
  void SetFont(FontRef font);
  ksxAlignmentConstants Alignment() const { return alignment_; }
  void SetAlignment(ksxAlignmentConstants alignment);
  TwipPoint Position() const { return position_; }
  TwipSize Size() const { return size_; }

  // --- Methods ----------------------------------------------------------------------------------

  // In twips of the panel.
  void Move(TwipPoint position, TwipSize size);

  // --- For the panel ----------------------------------------------------------------------------

  void Paint(Surface& surface) override;
  // Hit where it is painted, to the pixel.
  bool Contains(TwipPoint at) const override { return Pixels().Contains(ToPixel(at)); }
  TwipPoint Origin() const override { return position_; }
  void OnClick() override { Click.Raise(); }
  void OnDblClick() override { DblClick.Raise(); }
  void OnMouseDown(const PointerInput& input) override { Raise(MouseDown, input); }
  void OnMouseMove(const PointerInput& input) override { Raise(MouseMove, input); }
  void OnMouseUp(const PointerInput& input) override { Raise(MouseUp, input); }

 private:
  PixelRect Pixels() const;
  void FontChanged();
  ObjectHandle FontObject(Surface& surface);

  std::string caption_;
  Color back_color_;
  Color fore_color_;
  FontRef font_;
  Font::Token font_token_ = 0;
  DrawingObject font_object_;  // made at the first paint
  ksxAlignmentConstants alignment_ = ksxLeft;
  TwipPoint position_;
  TwipSize size_;
};

}  // namespace levelwidgets
