// Anything that has public members by name.
#pragma once

namespace levelwidgets {

class ClassInfo;

class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  // The table of the object's class.
  virtual const ClassInfo& Class() const = 0;
};

}  // namespace levelwidgets
