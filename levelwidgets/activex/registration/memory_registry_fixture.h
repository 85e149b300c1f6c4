// A registry in memory that fails on demand.
#pragma once

#include <map>
#include <vector>

#include <levelwidgets/activex/registration/registry.h>

namespace levelwidgets {

class MemoryRegistry : public Registry {
 public:
  // From the change number `first` on (counted from 0), `count` of them fail with error 5.
  void FailFrom(int first, int count = 1 << 20) {
    changes_ = 0;
    first_failing_ = first;
    failing_ = count;
  }
  void FailNoMore() { FailFrom(0, 0); }
  // A key that cannot be removed, nor what encloses it.
  void Lock(const std::string& key) { locked_ = key; }
  void SetTextForOtherBitness(const std::string& key, const std::string& text) { other_[key] = text; }

  // "key", "key\ name = text": everything, in order.
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const auto& [key, values] : keys_) {
      lines.push_back(key);
      for (const auto& [name, value] : values) {
        lines.push_back(key + " [" + name + "] = " + value.text + (value.expands ? " expands" : ""));
      }
    }
    return lines;
  }

  bool HasKey(const std::string& key) override { return keys_.contains(key); }
  void CreateKey(const std::string& key) override {
    Change("Creating", key);
    const std::size_t end = key.find_last_of('\\');
    if (end != std::string::npos && !HasKey(key.substr(0, end))) throw RegistryError(2, "Creating " + key);
    if (!keys_.try_emplace(key).second) throw RegistryError(183, "Creating " + key);
  }
  bool IsEmpty(const std::string& key) override {
    const auto found = keys_.find(key);
    return found == keys_.end() || (found->second.empty() && Below(key).empty());
  }
  void RemoveKey(const std::string& key) override {
    Change("Removing", key);
    if (locked_ == key || locked_.starts_with(key + "\\")) throw RegistryError(5, "Removing " + key);
    for (const std::string& inner : Below(key)) keys_.erase(inner);
    keys_.erase(key);
  }
  std::optional<RegistryText> Text(const std::string& key, const std::string& name) override {
    const auto found = keys_.find(key);
    if (found == keys_.end() || !found->second.contains(name)) return std::nullopt;
    return found->second.at(name);
  }
  void SetText(const std::string& key, const std::string& name, const RegistryText& text) override {
    Change("Writing", key);
    const auto found = keys_.find(key);
    if (found == keys_.end()) throw RegistryError(2, "Writing " + key);
    found->second[name] = text;
  }
  void RemoveText(const std::string& key, const std::string& name) override {
    Change("Writing", key);
    keys_.at(key).erase(name);
  }
  std::optional<RegistryText> TextForOtherBitness(const std::string& key, const std::string&) override {
    const auto found = other_.find(key);
    if (found == other_.end()) return std::nullopt;
    return RegistryText{found->second};
  }

 private:
  void Change(const char* doing, const std::string& key) {
    const int number = changes_++;
    if (number >= first_failing_ && number < first_failing_ + failing_) {
      throw RegistryError(5, std::string(doing) + " " + key);
    }
  }
  std::vector<std::string> Below(const std::string& key) const {
    std::vector<std::string> below;
    for (const auto& [other, values] : keys_) {
      if (other.starts_with(key + "\\")) below.push_back(other);
    }
    return below;
  }

  std::map<std::string, std::map<std::string, RegistryText>> keys_;
  std::map<std::string, std::string> other_;
  std::string locked_;
  int changes_ = 0;
  int first_failing_ = 0;
  int failing_ = 0;
};

}  // namespace levelwidgets
