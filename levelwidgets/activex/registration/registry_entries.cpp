#include <levelwidgets/activex/registration/registry_entries.h>

#include <levelwidgets/activex/identity/component_classes.h>
#include <levelwidgets/activex/identity/misc_status.h>
#include <levelwidgets/activex/identity/type_library.h>
#include <levelwidgets/activex/identity/verbs.h>

namespace levelwidgets {

namespace {

// What marshals calls of a dispatch interface from one thread to another; it is part of the system.
constexpr std::string_view kDispatchMarshaler = "{00020420-0000-0000-C000-000000000046}";
// The category of controls.
constexpr std::string_view kControlCategory = "{40FC6ED4-2438-11CF-A3DB-080036F12502}";

std::string LibraryVersion() { return std::to_string(kLibraryMajor) + "." + std::to_string(kLibraryMinor); }

std::string ClassKey(const Guid& id) { return "CLSID\\" + TextOf(id); }
std::string InterfaceKey(const Guid& id) { return "Interface\\" + TextOf(id); }
std::string LibraryKey() { return "TypeLib\\" + TextOf(kLibraryId); }
std::string VersionKey() { return LibraryKey() + "\\" + LibraryVersion(); }
std::string PlatformKey(int bits) { return VersionKey() + "\\0\\win" + std::to_string(bits); }

// "LevelWidgets.FlatButton.1": the version that a program was made with.
std::string VersionedName(const ClassInfo& info) {
  return info.QualifiedName() + "." + std::to_string(kLibraryMajor);
}

class Entries {
 public:
  explicit Entries(const LibraryFile& library) : library_(library) {}

  std::vector<RegistryEntry> All() {
    for (const ComponentClass& each : ComponentClasses()) {
      if (each.Creatable()) AddClass(each);
      AddInterface(InterfaceName(each.info->Name()), each.identity->interface_id);
      if (each.identity->events_id.IsNull()) continue;
      AddInterface(EventsName(each.info->Name()), each.identity->events_id);
    }
    for (const PageIdentity& page : PageIdentities()) {
      AddServer(ClassKey(page.class_id), UserTypeName(page.page_name));
    }
    AddTypeLibrary();
    return std::move(entries_);
  }

 private:
  void Add(const std::string& key, std::string_view text, const std::string& name = "") {
    entries_.push_back({key, name, std::string(text)});
  }
  void AddKey(const std::string& key) { entries_.push_back({key, "", std::nullopt}); }

  void AddServer(const std::string& key, const std::string& title) {
    Add(key, title);
    Add(key + "\\InprocServer32", library_.path);
    Add(key + "\\InprocServer32", "Apartment", "ThreadingModel");
  }

  void AddClass(const ComponentClass& of) {
    const std::string title = UserTypeName(of.info->Name());
    const std::string key = ClassKey(of.identity->class_id);
    const std::string name = of.info->QualifiedName();
    const std::string versioned = VersionedName(*of.info);
    AddServer(key, title);
    Add(key + "\\ProgID", versioned);
    Add(key + "\\VersionIndependentProgID", name);
    Add(key + "\\TypeLib", TextOf(kLibraryId));
    Add(key + "\\Version", LibraryVersion());
    if (of.is_control) AddControl(key, of);
    Add(name, title);
    Add(name + "\\CLSID", TextOf(of.identity->class_id));
    Add(name + "\\CurVer", versioned);
    Add(versioned, title);
    Add(versioned + "\\CLSID", TextOf(of.identity->class_id));
  }

  void AddControl(const std::string& key, const ComponentClass& of) {
    AddKey(key + "\\Control");
    Add(key + "\\MiscStatus", "0");
    Add(key + "\\MiscStatus\\1", std::to_string(MiscStatusOf(of.info->Name())));  // of its content
    Add(key + "\\ToolboxBitmap32", library_.path + ", " + std::to_string(ToolboxPictureOf(*of.identity)));
    for (const Verb& verb : kVerbs) Add(key + "\\Verb\\" + std::to_string(verb.number), MenuEntry(verb));
    AddKey(key + "\\Implemented Categories\\" + std::string(kControlCategory));
  }

  void AddInterface(const std::string& name, const Guid& id) {
    const std::string key = InterfaceKey(id);
    Add(key, name);
    Add(key + "\\ProxyStubClsid32", kDispatchMarshaler);
    Add(key + "\\TypeLib", TextOf(kLibraryId));
    Add(key + "\\TypeLib", LibraryVersion(), "Version");
  }

  // As the system writes it itself, where it writes for the whole machine.
  void AddTypeLibrary() {
    Add(VersionKey(), kLibraryHelp);
    Add(PlatformKey(library_.bits), library_.path);
    Add(VersionKey() + "\\FLAGS", "2");  // controls, which designers list apart
    Add(VersionKey() + "\\HELPDIR", library_.Folder());
  }

  const LibraryFile& library_;
  std::vector<RegistryEntry> entries_;
};

}  // namespace

std::vector<RegistryEntry> RegistryEntries(const LibraryFile& library) { return Entries(library).All(); }

std::vector<OwnedKey> OwnedKeys(int bits) {
  std::vector<OwnedKey> keys;
  for (const ComponentClass& each : ComponentClasses()) {
    keys.push_back({InterfaceKey(each.identity->interface_id)});
    if (!each.identity->events_id.IsNull()) keys.push_back({InterfaceKey(each.identity->events_id)});
    if (!each.Creatable()) continue;
    keys.push_back({ClassKey(each.identity->class_id)});
    keys.push_back({each.info->QualifiedName(), true});
    keys.push_back({VersionedName(*each.info), true});
  }
  for (const PageIdentity& page : PageIdentities()) keys.push_back({ClassKey(page.class_id)});
  keys.push_back({PlatformKey(bits)});
  keys.push_back({VersionKey(), true});
  return keys;
}

std::vector<std::string> EnclosingKeys() { return {LibraryKey(), "TypeLib", "Interface", "CLSID"}; }

std::string ServerKey() { return ClassKey(IdentityOf("FlatButton")->class_id) + "\\InprocServer32"; }

}  // namespace levelwidgets
