#include <levelwidgets/activex/identity/manifest.h>

#include <sstream>

#include <levelwidgets/activex/identity/component_classes.h>
#include <levelwidgets/activex/identity/misc_status.h>
#include <levelwidgets/activex/identity/type_library.h>

namespace levelwidgets {

namespace {

// Calls of these interfaces from another thread are marshaled as those of a dispatch interface, which has
// seven methods.
constexpr std::string_view kDispatchMarshalerId = "{00020420-0000-0000-C000-000000000046}";
constexpr std::string_view kDispatchId = "{00020400-0000-0000-C000-000000000046}";
constexpr int kDispatchMethods = 7;

std::string PlatformName(int bits) { return bits == 64 ? "x64" : "x86"; }

// In the words of manifests, in the order of the bits.
std::string MiscStatusText(std::uint32_t flags) {
  constexpr std::pair<std::uint32_t, const char*> kNames[] = {
      {kMiscRecomposeOnResize, "recomposeonresize"},
      {kMiscCantLinkInside, "cantlinkinside"},
      {kMiscInsideOut, "insideout"},
      {kMiscActivateWhenVisible, "activatewhenvisible"},
      {kMiscActsLikeButton, "actslikebutton"},
      {kMiscSetClientSiteFirst, "setclientsitefirst"}};
  std::string text;
  for (const auto& [flag, name] : kNames) {
    if (flags & flag) text += (text.empty() ? "" : ",") + std::string(name);
  }
  return text;
}

std::string IdentityText(int bits) {
  return "<assemblyIdentity type=\"win32\" name=\"" + AssemblyName(bits) + "\" version=\"" +
         std::to_string(kLibraryMajor) + "." + std::to_string(kLibraryMinor) +
         ".0.0\" processorArchitecture=\"" + (bits == 64 ? "amd64" : "x86") + "\"/>";
}

std::string ServerText(const Guid& class_id, std::string_view name) {
  return "    <comClass clsid=\"" + TextOf(class_id) + "\" threadingModel=\"Apartment\" description=\"" +
         UserTypeName(name) + "\"";
}

void AddClassText(std::ostringstream& out, const ComponentClass& of) {
  out << ServerText(of.identity->class_id, of.info->Name()) << " tlbid=\"" << TextOf(kLibraryId)
      << "\" progid=\"" << of.info->QualifiedName() << "." << kLibraryMajor << "\"";
  if (of.is_control) out << " miscStatusContent=\"" << MiscStatusText(MiscStatusOf(of.info->Name())) << "\"";
  out << ">\n      <progid>" << of.info->QualifiedName() << "</progid>\n    </comClass>\n";
}

void AddInterfaceText(std::ostringstream& out, const std::string& name, const Guid& id) {
  out << "  <comInterfaceExternalProxyStub name=\"" << name << "\" iid=\"" << TextOf(id) << "\" tlbid=\""
      << TextOf(kLibraryId) << "\" proxyStubClsid32=\"" << kDispatchMarshalerId << "\" baseInterface=\""
      << kDispatchId << "\" numMethods=\"" << kDispatchMethods << "\"/>\n";
}

}  // namespace

std::string AssemblyName(int bits) { return std::string(kLibraryName) + "." + PlatformName(bits); }
std::string LibraryFileName(int bits) { return "levelwidgets_" + PlatformName(bits) + ".dll"; }

std::string LibraryManifest(int bits) {
  std::ostringstream out;
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
      << "<!-- Written by tools/update_docs. It lies beside the library; a program's own manifest names it. "
         "-->\n"
      << "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
      << "  " << IdentityText(bits) << "\n"
      << "  <file name=\"" << LibraryFileName(bits) << "\">\n";
  const std::vector<ComponentClass> classes = ComponentClasses();
  for (const ComponentClass& each : classes) {
    if (each.Creatable()) AddClassText(out, each);
  }
  for (const PageIdentity& page : PageIdentities())
    out << ServerText(page.class_id, page.page_name) << "/>\n";
  out << "    <typelib tlbid=\"" << TextOf(kLibraryId) << "\" version=\"" << kLibraryMajor << "."
      << kLibraryMinor << "\" helpdir=\"\" flags=\"CONTROL\"/>\n"
      << "  </file>\n";
  for (const ComponentClass& each : classes) {
    AddInterfaceText(out, InterfaceName(each.info->Name()), each.identity->interface_id);
    if (each.identity->events_id.IsNull()) continue;
    AddInterfaceText(out, EventsName(each.info->Name()), each.identity->events_id);
  }
  out << "</assembly>\n";
  return out.str();
}

std::string DependencyText(int bits) {
  return "<dependency>\n  <dependentAssembly>\n    " + IdentityText(bits) +
         "\n  </dependentAssembly>\n</dependency>\n";
}

}  // namespace levelwidgets
