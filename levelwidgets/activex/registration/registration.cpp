#include <levelwidgets/activex/registration/registration.h>

#include <exception>

namespace levelwidgets {

namespace {

// What was changed, for taking it back.
class Changes {
 public:
  explicit Changes(Registry& registry) : registry_(registry) {}
  Changes(const Changes&) = delete;
  Changes& operator=(const Changes&) = delete;
  ~Changes() {
    for (auto change = changes_.rbegin(); change != changes_.rend(); ++change) {
      try {
        TakeBack(*change);
      } catch (const RegistryError&) {
        // The error that is under way says more; the next change is tried.
      }
    }
  }

  void Apply(const RegistryEntry& entry) {
    CreateKeys(entry.key);
    if (!entry.text) return;
    changes_.push_back({entry.key, entry.name, false, registry_.Text(entry.key, entry.name)});
    registry_.SetText(entry.key, entry.name, {*entry.text});
  }

  void Keep() { changes_.clear(); }

 private:
  struct Change {
    std::string key;
    std::string name;
    bool created_key;
    std::optional<RegistryText> before;
  };

  // The key and those that enclose it, as far as they are missing.
  void CreateKeys(const std::string& key) {
    if (registry_.HasKey(key)) return;
    const std::size_t end = key.find_last_of('\\');
    if (end != std::string::npos) CreateKeys(key.substr(0, end));
    registry_.CreateKey(key);
    changes_.push_back({key, "", true, std::nullopt});
  }

  void TakeBack(const Change& change) {
    if (change.created_key) {
      registry_.RemoveKey(change.key);
    } else if (change.before) {
      registry_.SetText(change.key, change.name, *change.before);
    } else {
      registry_.RemoveText(change.key, change.name);
    }
  }

  Registry& registry_;
  std::vector<Change> changes_;
};

// Remembers the first error of several steps.
class FirstError {
 public:
  template <typename Step>
  void During(Step step) {
    try {
      step();
    } catch (const RegistryError&) {
      if (!error_) error_ = std::current_exception();
    }
  }
  void Throw() const {
    if (error_) std::rethrow_exception(error_);
  }

 private:
  std::exception_ptr error_;
};

}  // namespace

void RegisterLibrary(Registry& registry, const LibraryFile& library) {
  Changes changes(registry);
  for (const RegistryEntry& entry : RegistryEntries(library)) changes.Apply(entry);
  changes.Keep();
}

void UnregisterLibrary(Registry& registry, int bits) {
  const std::optional<RegistryText> other = registry.TextForOtherBitness(ServerKey(), "");
  // One library serves one bitness: where both see the same one, there is no other.
  const bool other_stays = other && other != registry.Text(ServerKey(), "");
  FirstError error;
  for (const OwnedKey& owned : OwnedKeys(bits)) {
    if (owned.shared && other_stays) continue;
    error.During([&] { registry.RemoveKey(owned.key); });
  }
  for (const std::string& key : EnclosingKeys()) {
    error.During([&] {
      if (registry.IsEmpty(key)) registry.RemoveKey(key);
    });
  }
  error.Throw();
}

}  // namespace levelwidgets
