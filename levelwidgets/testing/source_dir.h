#pragma once

namespace levelwidgets {

// The root of the repository, for tests that read its files. Known to test programs only.
const char* SourceDir();
// Where this test program was built; known likewise.
const char* BuildDir();

}  // namespace levelwidgets
