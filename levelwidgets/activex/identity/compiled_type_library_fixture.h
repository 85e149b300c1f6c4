// What a compiled type library says, read by the system, as texts that tests compare with what the class
// tables say.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <bit>
#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <levelwidgets/activex/identity/guid.h>

namespace levelwidgets {

struct ReleaseInterface {
  void operator()(IUnknown* held) const { held->Release(); }
};
template <typename Interface>
using HeldInterface = std::unique_ptr<Interface, ReleaseInterface>;

inline void Demand(HRESULT result, const char* what) {
  if (FAILED(result)) throw std::runtime_error(what);
}

// Only ASCII is expected; anything else shows as "?".
inline std::string TextOfWide(const wchar_t* wide) {
  std::string text;
  for (; wide && *wide; ++wide) text += *wide > 0 && *wide < 128 ? static_cast<char>(*wide) : '?';
  return text;
}

inline std::string TakeText(BSTR wide) {
  const std::string text = TextOfWide(wide);
  ::SysFreeString(wide);
  return text;
}

inline std::string TextOfSystemGuid(const GUID& id) { return TextOf(std::bit_cast<Guid>(id)); }

// Name and help of a member, or of a type for MEMBERID_NIL.
template <typename Documented>
struct Documentation {
  std::string name;
  std::string help;

  Documentation(Documented& of, LONG member) {
    BSTR name_text = nullptr;
    BSTR help_text = nullptr;
    Demand(of.GetDocumentation(member, &name_text, &help_text, nullptr, nullptr), "no documentation");
    name = TakeText(name_text);
    help = TakeText(help_text);
  }
};

// One type of a library, as lines.
class CompiledType {
 public:
  explicit CompiledType(ITypeInfo& info) : info_(info), attributes_(AttributesOf(info)) {}

  std::string Name() const { return Documentation(info_, MEMBERID_NIL).name; }

  std::string Text() const {
    std::ostringstream out;
    const Documentation about(info_, MEMBERID_NIL);
    out << KindText() << " " << about.name << " " << TextOfSystemGuid(attributes_->guid);
    const std::pair<int, const char*> flags[] = {{TYPEFLAG_FCANCREATE, "creatable"},
                                                 {TYPEFLAG_FCONTROL, "control"},
                                                 {TYPEFLAG_FHIDDEN, "hidden"},
                                                 {TYPEFLAG_FDUAL, "dual"},
                                                 {TYPEFLAG_FRESTRICTED, "restricted"},
                                                 {TYPEFLAG_FLICENSED, "licensed"},
                                                 {TYPEFLAG_FAGGREGATABLE, "aggregatable"},
                                                 {TYPEFLAG_FNONEXTENSIBLE, "nonextensible"}};
    for (const auto& [flag, text] : flags)
      out << (attributes_->wTypeFlags & flag ? std::string(" ") + text : "");
    out << ": " << about.help << "\n";
    if (attributes_->typekind == TKIND_ALIAS) out << "  " << TypeText(attributes_->tdescAlias) << "\n";
    for (UINT i = 0; i < attributes_->cVars; ++i) out << "  " << ItemText(i) << "\n";
    // What the members of every dispatch interface begin with is not listed.
    for (UINT i = 0; i < attributes_->cFuncs; ++i) out << "  " << MemberText(i) << "\n";
    if (attributes_->typekind == TKIND_COCLASS) out << InterfacesText();
    return out.str();
  }

 private:
  using Attributes = std::unique_ptr<TYPEATTR, std::function<void(TYPEATTR*)>>;
  static Attributes AttributesOf(ITypeInfo& info) {
    TYPEATTR* attributes = nullptr;
    Demand(info.GetTypeAttr(&attributes), "no attributes");
    return {attributes, [&info](TYPEATTR* held) { info.ReleaseTypeAttr(held); }};
  }

  std::string KindText() const {
    switch (attributes_->typekind) {
      case TKIND_ENUM: return "enumeration";
      case TKIND_ALIAS: return "alias";
      case TKIND_DISPATCH: return "interface";
      case TKIND_COCLASS: return "class";
      default: return "other";
    }
  }

  std::string InterfacesText() const {
    std::string text;
    for (UINT i = 0; i < attributes_->cImplTypes; ++i) {
      INT flags = 0;
      HREFTYPE reference = 0;
      Demand(info_.GetImplTypeFlags(i, &flags), "no flags of an interface");
      Demand(info_.GetRefTypeOfImplType(i, &reference), "no interface of a class");
      text += std::string(" ") + (flags & IMPLTYPEFLAG_FDEFAULT ? " default" : "") +
              (flags & IMPLTYPEFLAG_FSOURCE ? " source" : "") + " " + ReferredName(reference) + "\n";
    }
    return text;
  }

  // "ksxLeft = 0"
  std::string ItemText(UINT position) const {
    VARDESC* item = nullptr;
    Demand(info_.GetVarDesc(position, &item), "no variable");
    const std::string name = Documentation(info_, item->memid).name;
    const std::string value = item->varkind == VAR_CONST ? ValueText(*item->lpvarValue) : "no constant";
    info_.ReleaseVarDesc(item);
    return name + " = " + value;
  }

  // "[1 get bindable] BackColor(): OLE_COLOR Fill of the button."
  std::string MemberText(UINT position) const {
    FUNCDESC* found = nullptr;
    Demand(info_.GetFuncDesc(position, &found), "no function");
    const std::unique_ptr<FUNCDESC, std::function<void(FUNCDESC*)>> member(
        found, [this](FUNCDESC* held) { info_.ReleaseFuncDesc(held); });
    const Documentation about(info_, member->memid);
    std::ostringstream out;
    out << "[" << member->memid << CallText(member->invkind);
    const std::pair<int, const char*> flags[] = {{FUNCFLAG_FBINDABLE, "bindable"},
                                                 {FUNCFLAG_FREQUESTEDIT, "requestedit"},
                                                 {FUNCFLAG_FHIDDEN, "hidden"},
                                                 {FUNCFLAG_FRESTRICTED, "restricted"}};
    int rest = member->wFuncFlags;
    for (const auto& [flag, text] : flags) {
      if (rest & flag) out << " " << text;
      rest &= ~flag;
    }
    if (rest != 0) out << " other flags " << rest;
    out << "] " << about.name << "(" << ArgumentsText(*member)
        << "): " << TypeText(member->elemdescFunc.tdesc) << " " << about.help;
    return out.str();
  }

  static std::string CallText(INVOKEKIND kind) {
    switch (kind) {
      case INVOKE_FUNC: return "";
      case INVOKE_PROPERTYGET: return " get";
      case INVOKE_PROPERTYPUT: return " put";
      case INVOKE_PROPERTYPUTREF: return " putref";
    }
    return " other";
  }

  std::string ArgumentsText(const FUNCDESC& member) const {
    std::vector<BSTR> names(static_cast<std::size_t>(member.cParams) + 1);
    UINT count = 0;
    Demand(info_.GetNames(member.memid, names.data(), static_cast<UINT>(names.size()), &count), "no names");
    std::vector<std::string> texts;
    for (UINT i = 0; i < count; ++i) texts.push_back(TakeText(names[i]));
    std::string list;
    for (int i = 0; i < member.cParams; ++i) {
      const std::size_t at = static_cast<std::size_t>(i) + 1;
      if (i > 0) list += ", ";
      // The value that is assigned has a name for nobody.
      list += at < texts.size() ? texts[at] : "(value)";
      list += ArgumentText(member.lprgelemdescParam[i]);
    }
    return list;
  }

  std::string ArgumentText(const ELEMDESC& argument) const {
    const USHORT flags = argument.paramdesc.wParamFlags;
    const std::pair<int, const char*> names[] = {{PARAMFLAG_FIN, " in"},
                                                 {PARAMFLAG_FOUT, " out"},
                                                 {PARAMFLAG_FRETVAL, " retval"},
                                                 {PARAMFLAG_FOPT, " optional"}};
    std::string text;
    for (const auto& [flag, name] : names) text += flags & flag ? name : "";
    text += ": " + TypeText(argument.tdesc);
    if (flags & PARAMFLAG_FHASDEFAULT) {
      text += " = " + ValueText(argument.paramdesc.pparamdescex->varDefaultValue);
    }
    return text;
  }

  std::string TypeText(const TYPEDESC& type) const {
    switch (type.vt) {
      case VT_PTR: return TypeText(*type.lptdesc) + "*";
      case VT_USERDEFINED: return ReferredName(type.hreftype);
      case VT_VOID: return "void";
      case VT_I2: return "short";
      case VT_I4: return "long";
      case VT_UI4: return "unsigned long";
      case VT_UINT: return "unsigned int";
      case VT_R4: return "float";
      case VT_R8: return "double";
      case VT_DATE: return "date";
      case VT_BSTR: return "text";
      case VT_BOOL: return "boolean";
      case VT_VARIANT: return "variant";
      case VT_DISPATCH: return "IDispatch*";
      case VT_UNKNOWN: return "IUnknown*";
      default: return "type " + std::to_string(type.vt);
    }
  }

  // A type of another library by that library's name and its identifier: its name is not the same everywhere.
  std::string ReferredName(HREFTYPE reference) const {
    ITypeInfo* referred = nullptr;
    Demand(info_.GetRefTypeInfo(reference, &referred), "a reference to no type");
    const HeldInterface<ITypeInfo> held(referred);
    const std::string library = LibraryOf(*referred);
    if (library == LibraryOf(info_)) return Documentation(*referred, MEMBERID_NIL).name;
    return library + "." + TextOfSystemGuid(AttributesOf(*referred)->guid);
  }

  static std::string LibraryOf(ITypeInfo& info) {
    ITypeLib* library = nullptr;
    UINT position = 0;
    Demand(info.GetContainingTypeLib(&library, &position), "a type of no library");
    const HeldInterface<ITypeLib> held(library);
    return Documentation(*library, MEMBERID_NIL).name;
  }

  static std::string ValueText(const VARIANT& value) {
    switch (value.vt) {
      case VT_I2: return "short " + std::to_string(value.iVal);
      case VT_I4:
      case VT_INT: return "long " + std::to_string(value.lVal);
      case VT_BOOL: return value.boolVal == VARIANT_FALSE ? "boolean false" : "boolean true";
      case VT_BSTR: return "text \"" + TextOfWide(value.bstrVal) + "\"";
      default: return "value of type " + std::to_string(value.vt);
    }
  }

  ITypeInfo& info_;
  Attributes attributes_;
};

// A library in a file of its own, or the first in a program or library.
class CompiledTypeLibrary {
 public:
  explicit CompiledTypeLibrary(const std::string& file) {
    std::wstring path = L"Z:";  // where Wine shows the folders of the machine
    if (file.find(':') != std::string::npos) path.clear();
    for (const char c : file) path += c == '/' ? L'\\' : static_cast<wchar_t>(static_cast<unsigned char>(c));
    ITypeLib* library = nullptr;
    Demand(::LoadTypeLibEx(path.c_str(), REGKIND_NONE, &library), file.c_str());
    library_.reset(library);
  }

  // "LevelWidgets {9466D224-...} 1.0, language 0, 64 bits, controls: help"
  std::string Head() const {
    TLIBATTR* attributes = nullptr;
    Demand(library_->GetLibAttr(&attributes), "no attributes of the library");
    const Documentation about(*library_, MEMBERID_NIL);
    std::ostringstream out;
    out << about.name << " " << TextOfSystemGuid(attributes->guid) << " " << attributes->wMajorVerNum << "."
        << attributes->wMinorVerNum << ", language " << attributes->lcid << ", "
        << (attributes->syskind == SYS_WIN64   ? 64
            : attributes->syskind == SYS_WIN32 ? 32
                                               : 0)
        << " bits" << (attributes->wLibFlags & LIBFLAG_FCONTROL ? ", controls" : "")
        << (attributes->wLibFlags & (LIBFLAG_FHIDDEN | LIBFLAG_FRESTRICTED) ? ", hidden" : "") << ": "
        << about.help;
    library_->ReleaseTLibAttr(attributes);
    return out.str();
  }

  // By name.
  std::map<std::string, std::string> Types() const {
    std::map<std::string, std::string> types;
    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
      ITypeInfo* info = nullptr;
      Demand(library_->GetTypeInfo(i, &info), "no type");
      const HeldInterface<ITypeInfo> held(info);
      const CompiledType type(*info);
      types[type.Name()] += type.Text();
    }
    return types;
  }

 private:
  HeldInterface<ITypeLib> library_;
};

}  // namespace levelwidgets
