// Upper and lower case in a single-byte code page.
#pragma once

namespace levelwidgets::memory {

// The other case of a character of the alphabets that single-byte code pages hold (Latin, Greek,
// Cyrillic); itself when it has none.
char32_t UpperCase(char32_t character);
char32_t LowerCase(char32_t character);

}  // namespace levelwidgets::memory
