#include <levelwidgets/platform/memory/font_search.h>

#include <fontconfig/fontconfig.h>
#include <strings.h>

#include <cctype>
#include <filesystem>

namespace levelwidgets::memory {

namespace {

// The files of a family as they are named everywhere; "" where there is no such style.
struct Family {
  const char* name;
  const char* regular;
  const char* bold;
  const char* italic;
  const char* bold_italic;
  bool symbol = false;
};

constexpr Family kFamilies[] = {
    {"Tahoma", "tahoma.ttf", "tahomabd.ttf", "", ""},
    {"Marlett", "marlett.ttf", "", "", "", true},
    {"Verdana", "verdana.ttf", "verdanab.ttf", "verdanai.ttf", "verdanaz.ttf"},
    {"DejaVu Sans", "DejaVuSans.ttf", "DejaVuSans-Bold.ttf", "DejaVuSans-Oblique.ttf",
     "DejaVuSans-BoldOblique.ttf"},
    {"Arial", "arial.ttf", "arialbd.ttf", "ariali.ttf", "arialbi.ttf"},
    {"Times New Roman", "times.ttf", "timesbd.ttf", "timesi.ttf", "timesbi.ttf"},
    {"Courier New", "cour.ttf", "courbd.ttf", "couri.ttf", "courbi.ttf"},
    {"Segoe UI", "segoeui.ttf", "segoeuib.ttf", "segoeuii.ttf", "segoeuiz.ttf"},
    {"Symbol", "symbol.ttf", "", "", "", true},
    {"Webdings", "webdings.ttf", "", "", "", true},
    {"Wingdings", "wingding.ttf", "", "", "", true},
};

constexpr const char* kReplacements[] = {"Tahoma", "Verdana", "DejaVu Sans"};

bool SameName(const std::string& a, const char* b) { return strcasecmp(a.c_str(), b) == 0; }

const Family* KnownFamily(const std::string& name) {
  for (const Family& family : kFamilies) {
    if (SameName(name, family.name)) return &family;
  }
  return nullptr;
}

std::string WithoutAlias(const std::string& face) {
  constexpr const char* kDialogFaces[] = {
      "", "System", "MS Sans Serif", "Microsoft Sans Serif", "MS Shell Dlg", "MS Shell Dlg 2"};
  for (const char* alias : kDialogFaces) {
    if (SameName(face, alias)) return kReplacements[0];
  }
  return face;
}

std::string FileOf(const Family& family, FontStyle style) {
  const char* wanted = style.bold ? (style.italic ? family.bold_italic : family.bold)
                                  : (style.italic ? family.italic : family.regular);
  if (*wanted) return wanted;
  return style.bold && *family.bold ? family.bold : family.regular;
}

const FcChar8* Text(const std::string& text) { return reinterpret_cast<const FcChar8*>(text.c_str()); }

}  // namespace

// The fonts that Fontconfig knows, and those of the directories.
class FontSearch::System {
 public:
  explicit System(const FontSources& sources)
      : config_(sources.system_fonts ? FcInitLoadConfigAndFonts() : FcConfigCreate()) {
    if (!config_) return;
    // An empty configuration would complain that it may keep nothing.
    static constexpr char kCache[] =
        "<fontconfig><cachedir prefix=\"xdg\">fontconfig</cachedir></fontconfig>";
    if (!sources.system_fonts) FcConfigParseAndLoadFromMemory(config_, Text(kCache), FcFalse);
    for (const std::string& directory : sources.directories) FcConfigAppFontAddDir(config_, Text(directory));
  }
  ~System() {
    if (config_) FcConfigDestroy(config_);
  }
  System(const System&) = delete;
  System& operator=(const System&) = delete;

  // The best replacement, or with `exact` only the family itself.
  FontFile Match(const std::string& family, FontStyle style, bool exact) {
    return config_ ? Answer(Wish(family, style), exact ? &family : nullptr) : FontFile{};
  }

  FontFile MatchWith(char32_t character, FontStyle style) {
    if (!config_) return {};
    FcPattern* wish = Wish(kReplacements[0], style);
    FcCharSet* characters = FcCharSetCreate();
    FcCharSetAddChar(characters, character);
    FcPatternAddCharSet(wish, FC_CHARSET, characters);
    FcCharSetDestroy(characters);
    return Answer(wish, nullptr);
  }

 private:
  // Takes `wish`; a file of another family than `only` is passed over.
  FontFile Answer(FcPattern* wish, const std::string* only) {
    FcConfigSubstitute(config_, wish, FcMatchPattern);
    FcDefaultSubstitute(wish);
    FcResult result = FcResultMatch;
    FcPattern* match = FcFontMatch(config_, wish, &result);
    FontFile file;
    if (match && (!only || HasFamily(match, *only))) file = FileOfPattern(match);
    if (match) FcPatternDestroy(match);
    FcPatternDestroy(wish);
    return file;
  }

  static FcPattern* Wish(const std::string& family, FontStyle style) {
    FcPattern* wish = FcPatternCreate();
    FcPatternAddString(wish, FC_FAMILY, Text(family));
    for (const char* name : kReplacements) FcPatternAddString(wish, FC_FAMILY, Text(name));
    FcPatternAddString(wish, FC_FAMILY, Text("sans-serif"));
    FcPatternAddInteger(wish, FC_WEIGHT, style.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_NORMAL);
    FcPatternAddInteger(wish, FC_SLANT, style.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wish, FC_OUTLINE, FcTrue);
    FcPatternAddBool(wish, FC_SCALABLE, FcTrue);
    return wish;
  }

  static bool HasFamily(FcPattern* pattern, const std::string& family) {
    FcChar8* name = nullptr;
    for (int i = 0; FcPatternGetString(pattern, FC_FAMILY, i, &name) == FcResultMatch; ++i) {
      if (SameName(family, reinterpret_cast<const char*>(name))) return true;
    }
    return false;
  }

  static FontFile FileOfPattern(FcPattern* pattern) {
    FcChar8* path = nullptr;
    int index = 0;
    if (FcPatternGetString(pattern, FC_FILE, 0, &path) != FcResultMatch) return {};
    FcPatternGetInteger(pattern, FC_INDEX, 0, &index);
    return {reinterpret_cast<const char*>(path), index};
  }

  FcConfig* config_;
};

bool IsSymbolFace(const std::string& face) {
  const Family* family = KnownFamily(face);
  return family && family->symbol;
}

FontSearch::FontSearch(FontSources sources) : sources_(std::move(sources)) {}

FontSearch::~FontSearch() = default;

FontFile FontSearch::Find(const std::string& face, FontStyle style) {
  const std::string family = WithoutAlias(face);
  if (FontFile file = FindByName(family, style); !file.path.empty()) return file;
  return FindInSystem(family, style);
}

FontFile FontSearch::FindWith(char32_t character, FontStyle style) {
  if (!sources_.system_fonts && sources_.directories.empty()) return {};
  if (!system_) system_ = std::make_unique<System>(sources_);
  return system_->MatchWith(character, style);
}

FontFile FontSearch::FindByName(const std::string& family, FontStyle style) const {
  const Family* known = KnownFamily(family);
  if (!known) return {};
  for (const std::string& directory : sources_.directories) {
    const std::filesystem::path folder(directory);
    for (const std::string& name : {FileOf(*known, style), std::string(known->regular)}) {
      std::error_code error;
      if (std::filesystem::is_regular_file(folder / name, error)) return {(folder / name).string(), 0};
    }
  }
  return {};
}

FontFile FontSearch::FindInSystem(const std::string& family, FontStyle style) {
  if (!sources_.system_fonts && sources_.directories.empty()) return {};
  if (!system_) system_ = std::make_unique<System>(sources_);
  return system_->Match(family, style, IsSymbolFace(family));
}

}  // namespace levelwidgets::memory
