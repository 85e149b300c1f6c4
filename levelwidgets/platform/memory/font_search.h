// Finds the files of fonts.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace levelwidgets::memory {

// Where fonts are looked for. Without directories and system fonts every text is drawn in the built-in
// face.
struct FontSources {
  // Looked into before the system's fonts, and offered beside them.
  std::vector<std::string> directories = {"/usr/share/wine/fonts"};
  bool system_fonts = true;
};

struct FontFile {
  std::string path;  // "" when there is none
  int index = 0;     // of the face in the file
};

struct FontStyle {
  bool bold = false;
  bool italic = false;
};

// A face that is not installed is replaced by the first installed of Tahoma, Verdana, DejaVu Sans and
// any sans serif. The dialog faces of the original desktop ("MS Sans Serif", "MS Shell Dlg", "System")
// are Tahoma from the start. Well-known files are tried by name before Fontconfig is started at all.
class FontSearch {
 public:
  explicit FontSearch(FontSources sources);
  ~FontSearch();

  // A file may lack a wanted style; who loads it then slants or thickens. Never a symbol font unless
  // `face` names one; the path is empty when no font is installed, or `face` is a symbol font that is not.
  FontFile Find(const std::string& face, FontStyle style);
  // A font that has the character; the path is empty when none is installed.
  FontFile FindWith(char32_t character, FontStyle style);

 private:
  class System;

  FontFile FindByName(const std::string& family, FontStyle style) const;
  FontFile FindInSystem(const std::string& family, FontStyle style);

  FontSources sources_;
  std::unique_ptr<System> system_;  // made by the first look-up that needs it
};

// Whether `face` is one of the fonts whose characters are pictures.
bool IsSymbolFace(const std::string& face);

}  // namespace levelwidgets::memory
