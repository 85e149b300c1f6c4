// The system's headers of the component interface, in the one order in which they compile.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
// clang-format off
#include <windows.h>
#include <ole2.h>
#include <ocidl.h>
#include <olectl.h>
#include <objsafe.h>
// clang-format on

// {CB5BDC81-93C1-11CF-8F20-00805F2CD064}; the compiler's header has the interface without its identifier.
__CRT_UUID_DECL(IObjectSafety, 0xCB5BDC81, 0x93C1, 0x11CF, 0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64)
