// The type library: what the class tables say, for whom a component is all that he has.
#pragma once

#include <string>
#include <string_view>

#include <levelwidgets/activex/identity/guid.h>

namespace levelwidgets {

inline constexpr std::string_view kLibraryHelp = "LevelWidgets: flat controls for forms";

// "_FlatButton" for the members of a class and "__FlatButton" for its events: browsers hide what begins with
// "_" and show the class itself.
std::string InterfaceName(std::string_view class_name);
std::string EventsName(std::string_view class_name);

// Names and identifiers by which designers recognise a colour and a handle; those of the system's own
// library.
inline constexpr std::string_view kColorTypeName = "OLE_COLOR";
inline constexpr Guid kColorTypeId = "{66504301-BE0F-101A-8BBB-00AA00300CAB}"_guid;
inline constexpr std::string_view kHandleTypeName = "OLE_HANDLE";
inline constexpr Guid kHandleTypeId = "{66504313-BE0F-101A-8BBB-00AA00300CAB}"_guid;

// The library as source text for widl, which compiles it. Dispatch interfaces only: widl damages a library in
// which others follow one.
std::string TypeLibraryIdl();

}  // namespace levelwidgets
