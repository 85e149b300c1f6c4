// The interface by which property browsers group properties. It is public, and no header of the compiler has
// it.
#pragma once

#include <levelwidgets/activex/com/component_interface.h>

namespace levelwidgets::activex {

using PropertyCategory = int;
inline constexpr PropertyCategory kCategoryMisc = -2;
inline constexpr PropertyCategory kCategoryFont = -3;
inline constexpr PropertyCategory kCategoryPosition = -4;
inline constexpr PropertyCategory kCategoryAppearance = -5;
inline constexpr PropertyCategory kCategoryBehavior = -6;
inline constexpr PropertyCategory kCategoryData = -7;
inline constexpr PropertyCategory kCategoryList = -8;
inline constexpr PropertyCategory kCategoryText = -9;
inline constexpr PropertyCategory kCategoryScale = -10;

struct CategorizeProperties : public IUnknown {
  virtual HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID property, PropertyCategory* category) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCategoryName(PropertyCategory category, LCID locale, BSTR* name) = 0;
};

}  // namespace levelwidgets::activex

__CRT_UUID_DECL(levelwidgets::activex::CategorizeProperties, 0x4D07FC10, 0xF931, 0x11CE, 0xB0, 0x01, 0x00,
                0xAA, 0x00, 0x68, 0x84, 0xE5)
