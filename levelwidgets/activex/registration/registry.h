// Where components are registered, as far as registering takes.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

namespace levelwidgets {

// What the system says to what it refuses.
class RegistryError : public std::runtime_error {
 public:
  RegistryError(long code, const std::string& doing)
      : std::runtime_error(doing + " fails with error " + std::to_string(code)), code_(code) {}
  long Code() const { return code_; }

 private:
  long code_;
};

struct RegistryText {
  std::string text;
  bool expands = false;  // names of environment variables in it stand for their values

  friend bool operator==(const RegistryText&, const RegistryText&) = default;
};

// Keys are paths with "\" below the one that holds all classes; letter case does not count. Every method may
// throw RegistryError.
class Registry {
 public:
  virtual ~Registry() = default;

  virtual bool HasKey(const std::string& key) = 0;
  // The key that encloses it is there; it is not.
  virtual void CreateKey(const std::string& key) = 0;
  // Neither values nor keys. True for a key that is not there.
  virtual bool IsEmpty(const std::string& key) = 0;
  // With all that is below it. Does nothing for a key that is not there.
  virtual void RemoveKey(const std::string& key) = 0;

  // None where there is no value, or one that is no text.
  virtual std::optional<RegistryText> Text(const std::string& key, const std::string& name) = 0;
  virtual void SetText(const std::string& key, const std::string& name, const RegistryText& text) = 0;
  // Does nothing when the key has no such text.
  virtual void RemoveText(const std::string& key, const std::string& name) = 0;

  // As programs of the other bitness see it, who have a part of the registry to themselves. What both see is
  // the same text here and there.
  virtual std::optional<RegistryText> TextForOtherBitness(const std::string& key,
                                                          const std::string& name) = 0;
};

}  // namespace levelwidgets
