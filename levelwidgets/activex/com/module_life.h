// Whether the library may be unloaded.
#pragma once

namespace levelwidgets::activex {

// One for each object that somebody outside may hold, and for each lock of a class factory.
class ModuleLock {
 public:
  ModuleLock();
  ~ModuleLock();
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;

  // How many there are.
  static long Count();
  // For locks whose number callers keep.
  static void Add();
  static void Remove();
};

}  // namespace levelwidgets::activex
