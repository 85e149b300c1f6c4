// A control's window and the drawing surface on it.
#pragma once

#include <memory>
#include <string>

#include <levelwidgets/frame/drawing_objects.h>
#include <levelwidgets/frame/font.h>
#include <levelwidgets/frame/units.h>
#include <levelwidgets/platform/platform.h>

namespace levelwidgets {

// The attributes a control's surface starts with.
struct SurfaceLook {
  Color back_color;
  Color fore_color;
  FontDescription font;
};

// Assigning an attribute repaints nothing; that is the control's decision. After the window is gone
// every operation does nothing.
class Surface {
 public:
  // A hidden child window of `parent`, 0 by 0 twips.
  Surface(Platform& platform, WindowHandle parent, WindowClient& client, SurfaceLook look);
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  ~Surface();

  Platform& GetPlatform() const { return platform_; }
  DrawingApi& Drawing() const { return platform_.Drawing(); }
  WindowApi& Windows() const { return platform_.Windows(); }

  WindowHandle hWnd() const { return window_; }
  // Carries a one-pixel solid pen and the text colour of ForeColor, no brush, the Font, and a transparent
  // background.
  DcHandle hDC() const { return dc_; }

  Color BackColor() const { return back_color_; }
  void SetBackColor(Color color) { back_color_ = color; }
  Color ForeColor() const { return fore_color_; }
  void SetForeColor(Color color);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  const FontRef& GetFont() const { return font_; }
  // Shares `font`: later changes of it show in this surface's next text.
  void SetFont(FontRef font);
  // What is selected for the Font.
  ObjectHandle FontObject() const { return font_object_.Handle(); }
  // `font` for this surface's resolution.
  DrawingObject MakeFontObject(const Font& font) const;
  // The characters that, pressed with Alt, deliver AccessKeyPress. UTF-8.
  const std::string& AccessKeys() const { return access_keys_; }
  void SetAccessKeys(std::string keys) { access_keys_ = std::move(keys); }

  Twips ScaleWidth() const { return scale_.width; }
  Twips ScaleHeight() const { return scale_.height; }
  // (0, 0, ScaleWidth, ScaleHeight) in pixels, by the rounding integer division.
  PixelRect ClientPixels() const;
  // Places the window in its parent; the size becomes the scale as given. Returns whether the size changed.
  bool Move(TwipPoint position, TwipSize size);
  // Makes the window's client area the scale where the scale comes to other pixels: the window has a border.
  void FitToClient();
  void SetVisible(bool visible);

  // As long as it lives, the surface draws on another context, in which the same objects and colours are
  // selected.
  class Redirection {
   public:
    Redirection(Surface& surface, DcHandle target);
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;
    ~Redirection();

   private:
    friend class Surface;
    Surface* surface_;  // null once its window has gone
    DcHandle own_;
    Redirection* outer_;
  };

  // Fills the surface with BackColor.
  void Cls();
  // Paints at once, through the window's paint message.
  void Refresh();
  // Gives up the window and every drawing object: called when the window is being destroyed.
  void WindowLost();

 private:
  void ApplyFont();
  void SelectInto(DcHandle dc);
  void DeselectFrom(DcHandle dc);

  Platform& platform_;
  WindowHandle window_;
  DcHandle dc_;
  Color back_color_;
  Color fore_color_;
  bool enabled_ = true;
  FontRef font_;
  Font::Token font_token_ = 0;
  std::string access_keys_;
  TwipSize scale_;
  DrawingObject pen_;
  DrawingObject font_object_;
  Redirection* redirection_ = nullptr;  // the innermost
};

}  // namespace levelwidgets
