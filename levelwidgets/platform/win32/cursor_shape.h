// Pointer shapes of the seam as the system's. Names no type of the system beyond its handle's.
#pragma once

namespace levelwidgets::win32 {

// The system's own pointers (HCURSOR) are shared: one has the same handle wherever it is asked for.
void* CursorOfShape(int shape);         // null for 0
int ShapeOfCursor(const void* cursor);  // 0 for null and for a pointer that is not among the kIdc...

}  // namespace levelwidgets::win32
