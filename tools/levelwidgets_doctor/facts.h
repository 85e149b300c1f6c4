// What a machine says about the components: gathered in one place, judged in another.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <tools/levelwidgets_doctor/type_library_bytes.h>

namespace levelwidgets::doctor {

// What the registry says about the library of a class, in one place.
struct Server {
  std::string where;  // "HKEY_CURRENT_USER\Software\Classes\CLSID\{...}\InprocServer32"
  std::string path;
  std::string threading_model;  // "" for none
};

struct OtherUser {
  std::string name;
  std::string path;
};

struct ClassFacts {
  std::string name;  // "FlatButton"
  // As programs of the container's bitness see it. What the user has comes first.
  std::optional<Server> user;
  std::optional<Server> machine;
  // As programs of the other bitness see it, where they see something else.
  std::optional<Server> other_bitness;
  std::vector<OtherUser> other_users;
  std::string blocked_at;  // where the registry forbids to make it; "" for nowhere

  const std::optional<Server>& Used() const { return user ? user : machine; }
};

struct LibraryFacts {
  bool exists = false;
  bool is_library = false;  // a library of Windows that is whole
  int bits = 0;
  std::vector<std::string> missing;  // libraries that it needs, and that are nowhere
  bool has_type_library = false;
  std::optional<TypeLibrarySummary> type_library;  // none for a damaged one
};

// What the registry says about the type library, in one place.
struct TypeLibraryEntry {
  std::string where;
  std::string path;
  bool exists = false;
  std::optional<TypeLibrarySummary> library;  // none for a damaged one
};

// A rule of an administrator about programs and libraries.
struct PolicyFacts {
  std::string where;
  std::string library;  // that it forbids; "" for a rule that cannot be read from here
};

// What came of making an object of a class, where this program can.
struct AttemptFacts {
  std::string class_name;
  std::uint32_t result = 0;  // 0 for an object
  std::string message;       // of the system
};

struct Facts {
  std::string container;  // the program that cannot make components; "" for none in particular
  bool container_is_read = true;
  int bits = 64;               // of the container
  std::string wanted_library;  // that should be registered; "" for any
  std::vector<ClassFacts> classes;
  std::map<std::string, LibraryFacts> libraries;  // by path
  std::vector<TypeLibraryEntry> type_libraries;   // the one that is used comes first
  std::vector<PolicyFacts> policies;
  std::vector<AttemptFacts> attempts;
};

}  // namespace levelwidgets::doctor
