// The checks of the table of invariants. Not for use outside this folder.
#pragma once

#include <levelwidgets/host/monkey/invariants.h>

namespace levelwidgets::monkey {

// invariants_windows.cpp
std::string CheckFocus(const Subject& subject);
std::string CheckCapture(const Subject& subject);
std::string CheckActive(const Subject& subject);
std::string CheckWindows(const Subject& subject);
std::string CheckHover(const Subject& subject);

// invariants_paint.cpp
std::string CheckRepaint(const Subject& subject);
std::string CheckPaintInside(const Subject& subject);

// invariants_properties.cpp
std::string CheckTypes(const Subject& subject);
std::string CheckWriteBack(const Subject& subject);
std::string CheckBag(const Subject& subject);
std::string CheckReload(const Subject& subject);

}  // namespace levelwidgets::monkey
