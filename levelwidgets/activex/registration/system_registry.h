// The system's registry.
#pragma once

#include <levelwidgets/activex/registration/registry.h>

namespace levelwidgets {

enum class RegistrationScope {
  kMachine,  // takes the rights of an administrator
  kUser,     // the one who runs this program
};

// The keys that hold the classes of that scope, as programs of this one's bitness see them.
class SystemRegistry : public Registry {
 public:
  explicit SystemRegistry(RegistrationScope scope);
  SystemRegistry(const SystemRegistry&) = delete;
  SystemRegistry& operator=(const SystemRegistry&) = delete;
  ~SystemRegistry() override;

  bool HasKey(const std::string& key) override;
  void CreateKey(const std::string& key) override;
  bool IsEmpty(const std::string& key) override;
  void RemoveKey(const std::string& key) override;
  std::optional<RegistryText> Text(const std::string& key, const std::string& name) override;
  void SetText(const std::string& key, const std::string& name, const RegistryText& text) override;
  void RemoveText(const std::string& key, const std::string& name) override;
  std::optional<RegistryText> TextForOtherBitness(const std::string& key, const std::string& name) override;

 private:
  // Each is an HKEY.
  void* const root_;
  void* classes_ = nullptr;
};

}  // namespace levelwidgets
