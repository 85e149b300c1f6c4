#include <levelwidgets/activex/object/fonts.h>

#include <cmath>

#include <levelwidgets/activex/com/com_object.h>
#include <levelwidgets/activex/com/com_text.h>
#include <levelwidgets/frame/error.h>

namespace levelwidgets::activex {

namespace {

// A currency counts ten thousandths.
constexpr double kCurrencyUnits = 10000;

CY SizeOf(const FontDescription& font) {
  CY size;
  size.int64 = std::llround(font.size * kCurrencyUnits);
  return size;
}

ComPtr<IFont> MakeComponentFont(const FontDescription& font) {
  const OwnedText name(font.name);
  FONTDESC description = {};
  description.cbSizeofstruct = sizeof description;
  description.lpstrName = name.Get();
  description.cySize = SizeOf(font);
  description.sWeight = font.bold ? FW_BOLD : FW_NORMAL;
  description.sCharset = static_cast<SHORT>(font.charset);
  description.fItalic = font.italic;
  description.fUnderline = font.underline;
  description.fStrikethrough = font.strikethrough;
  ComPtr<IFont> made;
  void** const receive = reinterpret_cast<void**>(made.Receive());
  if (FAILED(::OleCreateFontIndirect(&description, IID_IFont, receive))) throw Error(kOutOfMemory);
  return made;
}

// Only what differs is written: each assignment is a notice to everybody who listens to the font.
void Write(IFont& font, const FontDescription& wanted) {
  const FontDescription now = DescriptionOf(font);
  if (now.name != wanted.name) font.put_Name(OwnedText(wanted.name).Get());
  if (now.size != wanted.size) font.put_Size(SizeOf(wanted));
  if (now.bold != wanted.bold) font.put_Bold(wanted.bold);
  if (now.italic != wanted.italic) font.put_Italic(wanted.italic);
  if (now.underline != wanted.underline) font.put_Underline(wanted.underline);
  if (now.strikethrough != wanted.strikethrough) font.put_Strikethrough(wanted.strikethrough);
  if (now.charset != wanted.charset) font.put_Charset(static_cast<SHORT>(wanted.charset));
}

}  // namespace

FontDescription DescriptionOf(IFont& font) {
  FontDescription description;
  BSTR name = nullptr;
  if (SUCCEEDED(font.get_Name(&name)) && name) description.name = TextOfBstr(name);
  ::SysFreeString(name);
  CY size = {};
  if (SUCCEEDED(font.get_Size(&size))) {
    description.size = static_cast<double>(size.int64) / kCurrencyUnits;
  }
  const auto read = [&font](HRESULT (STDMETHODCALLTYPE IFont::*get)(BOOL*)) {
    BOOL value = FALSE;
    return SUCCEEDED((font.*get)(&value)) && value;
  };
  description.bold = read(&IFont::get_Bold);
  description.italic = read(&IFont::get_Italic);
  description.underline = read(&IFont::get_Underline);
  description.strikethrough = read(&IFont::get_Strikethrough);
  SHORT charset = 0;
  if (SUCCEEDED(font.get_Charset(&charset))) description.charset = charset;
  return description;
}

// Held by an observer of the library's font, and so ends with that font.
class Fonts::Pair {
 public:
  Pair(const FontRef& font, ComPtr<IFont> component);
  ~Pair();
  Pair(const Pair&) = delete;
  Pair& operator=(const Pair&) = delete;

  FontRef GetFont() const { return font_.lock(); }
  IFont* Component() const { return component_.Get(); }

  void FontChanged() {
    const FontRef font = font_.lock();
    if (!font || copying_) return;
    copying_ = true;
    Write(*component_.Get(), font->Description());
    copying_ = false;
  }
  void ComponentChanged() {
    const FontRef font = font_.lock();
    if (!font || copying_) return;
    copying_ = true;
    try {
      font->SetDescription(DescriptionOf(*component_.Get()));
    } catch (...) {
      copying_ = false;
      throw;
    }
    copying_ = false;
  }

 private:
  ComPtr<IConnectionPoint> Notices() const;

  std::weak_ptr<Font> font_;
  ComPtr<IFont> component_;
  ComPtr<Listener> listener_;
  DWORD cookie_ = 0;
  bool copying_ = false;
};

// Hears of changes of the system's font.
class Fonts::Listener : public ComObject<IPropertyNotifySink> {
 public:
  explicit Listener(Pair& pair) : pair_(&pair) {}
  void End() { pair_ = nullptr; }

  HRESULT STDMETHODCALLTYPE OnChanged(DISPID) override {
    if (::GetCurrentThreadId() != thread_) return RPC_E_WRONG_THREAD;
    return Guarded([this] {
      if (pair_) pair_->ComponentChanged();
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }

 private:
  Pair* pair_;
  DWORD thread_ = ::GetCurrentThreadId();
};

Fonts::Pair::Pair(const FontRef& font, ComPtr<IFont> component)
    : font_(font),
      component_(std::move(component)),
      listener_(ComPtr<Listener>::Taking(new Listener(*this))) {
  if (const auto notices = Notices()) notices->Advise(listener_.Get(), &cookie_);
}

Fonts::Pair::~Pair() {
  listener_->End();
  if (const auto notices = Notices()) notices->Unadvise(cookie_);
}

ComPtr<IConnectionPoint> Fonts::Pair::Notices() const {
  const auto container = As<IConnectionPointContainer>(component_);
  ComPtr<IConnectionPoint> point;
  if (container) container->FindConnectionPoint(IID_IPropertyNotifySink, point.Receive());
  return point;
}

std::shared_ptr<Fonts::Pair> Fonts::Find(const Font* font, IUnknown* component) {
  std::erase_if(pairs_, [](const std::weak_ptr<Pair>& pair) { return pair.expired(); });
  for (const std::weak_ptr<Pair>& known : pairs_) {
    const auto pair = known.lock();
    if (pair && (pair->GetFont().get() == font || (component && SameObject(pair->Component(), component)))) {
      return pair;
    }
  }
  return nullptr;
}

void Fonts::Join(const FontRef& font, const ComPtr<IFont>& component) {
  const auto pair = std::make_shared<Pair>(font, component);
  pairs_.push_back(pair);
  font->Observe([pair] { pair->FontChanged(); });
}

ComPtr<IFontDisp> Fonts::ToComponent(const FontRef& font) {
  if (!font) return nullptr;
  if (const auto pair = Find(font.get(), nullptr)) return As<IFontDisp>(pair->Component());
  const ComPtr<IFont> made = MakeComponentFont(font->Description());
  Join(font, made);
  return As<IFontDisp>(made);
}

FontRef Fonts::FromComponent(IUnknown* object) {
  const ComPtr<IFont> component = As<IFont>(object);
  if (!component) return nullptr;
  if (const auto pair = Find(nullptr, component.Get())) {
    if (const FontRef font = pair->GetFont()) return font;
  }
  const FontRef font = MakeFont(DescriptionOf(*component.Get()));
  Join(font, component);
  return font;
}

}  // namespace levelwidgets::activex
