// What the registry says about the components of a library.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace levelwidgets {

// Where a library lies, and for programs of which bitness it is.
struct LibraryFile {
  std::string path;  // whole, with "\"
  int bits = 64;     // or 32

  // The folder, without "\" behind it.
  std::string Folder() const { return path.substr(0, path.find_last_of('\\')); }
};

// Below the key that holds the classes of the machine or of a user.
struct RegistryEntry {
  std::string key;                  // "CLSID\{E975254E-...}\InprocServer32"
  std::string name;                 // "" for the key's own value
  std::optional<std::string> text;  // none for a key that counts by being there
};

// Creatable classes, the pages, the interfaces of all classes, and the type library.
std::vector<RegistryEntry> RegistryEntries(const LibraryFile& library);

// A key that belongs to these components, with all that is below it.
struct OwnedKey {
  std::string key;
  // Libraries of both bitnesses see the same key.
  bool shared = false;
};
// All of RegistryEntries lies in one of them.
std::vector<OwnedKey> OwnedKeys(int bits);

// Keys that are there as long as something is below them, the inner ones first.
std::vector<std::string> EnclosingKeys();

// The key whose own value is the path of the registered library.
std::string ServerKey();

}  // namespace levelwidgets
