// What components are known by in the registry, in type libraries and in the files of their users. These
// never change.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <levelwidgets/activex/identity/guid.h>

namespace levelwidgets {

inline constexpr std::string_view kLibraryName = "LevelWidgets";
inline constexpr Guid kLibraryId = "{9466D224-2367-4381-9D9F-81D8788F9CF0}"_guid;
inline constexpr std::uint16_t kLibraryMajor = 1;
inline constexpr std::uint16_t kLibraryMinor = 0;

// Of a control, or of a public class that is no control. One that users may not make has a class identifier
// as well: type libraries list it.
struct ClassIdentity {
  std::string_view class_name;
  Guid class_id;
  Guid interface_id;
  Guid events_id;  // null for a class without events
};
std::span<const ClassIdentity> ClassIdentities();
// By "FlatButton", in this case; null for an unknown name.
const ClassIdentity* IdentityOf(std::string_view class_name);

// The number of its picture in the library (a bitmap of toolbox/), which designers show in their toolboxes.
int ToolboxPictureOf(const ClassIdentity& control);

// Of a property page, which is a class for containers.
struct PageIdentity {
  std::string_view page_name;
  Guid class_id;
};
std::span<const PageIdentity> PageIdentities();
// By "ppFlatButton", in this case; null for an unknown name.
const PageIdentity* IdentityOfPage(std::string_view page_name);

// What people read of a class or a page in a list of components: "LevelWidgets FlatButton".
std::string UserTypeName(std::string_view name);

struct EnumerationIdentity {
  std::string_view enumeration_name;
  Guid id;
};
std::span<const EnumerationIdentity> EnumerationIdentities();
// By "ksxAlignmentConstants", in this case; null for an unknown name.
const EnumerationIdentity* IdentityOfEnumeration(std::string_view enumeration_name);

// A line for each of the above: "FlatButton interface {3AF7D5EF-...}".
std::vector<std::string> IdentifierLines();

}  // namespace levelwidgets
