#include <tools/levelwidgets_doctor/judge.h>

#include <algorithm>
#include <cctype>

#include <levelwidgets/activex/identity/identifiers.h>

namespace levelwidgets::doctor {

namespace {

std::string Lower(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

bool IsSame(const std::string& a, const std::string& b) { return Lower(a) == Lower(b); }

std::string FileNameOf(const std::string& path) { return path.substr(path.find_last_of("\\/") + 1); }

std::string BitsText(int bits) { return bits == 0 ? "another processor's" : std::to_string(bits) + "-bit"; }

std::string LibraryNameFor(int bits) { return bits == 64 ? "levelwidgets_x64.dll" : "levelwidgets_x86.dll"; }

// On a 64-bit system the program of that name registers for 64 bits.
std::string RegisterLine(int bits, const std::string& path) {
  const std::string program = bits == 64 ? "regsvr32" : "%SystemRoot%\\SysWOW64\\regsvr32";
  return program + " \"" + path + "\"";
}

// "FlatButton", "FlatButton and FlatGrid", "FlatButton and 8 others".
std::string NamesText(const std::vector<std::string>& names) {
  if (names.size() == 1) return names[0];
  if (names.size() == 2) return names[0] + " and " + names[1];
  return names[0] + " and " + std::to_string(names.size() - 1) + " others";
}

class Judgement {
 public:
  explicit Judgement(const Facts& facts) : facts_(facts) {}

  std::vector<Finding> Findings() {
    JudgeContainer();
    if (IsAnywhere()) {
      JudgeCompleteness();
      JudgePlaces();
      for (const std::string& path : UsedPaths()) JudgeLibrary(path);
      JudgeThreadingModels();
      JudgeTypeLibrary();
    } else {
      JudgeAbsence();
    }
    JudgeBlocks();
    JudgePolicies();
    JudgeAttempts();
    return std::move(findings_);
  }

 private:
  void Add(Cause cause, std::string what, std::string where, std::string right) {
    findings_.push_back({cause, true, std::move(what), std::move(where), std::move(right)});
  }
  void AddNote(Cause cause, std::string what, std::string where, std::string right) {
    findings_.push_back({cause, false, std::move(what), std::move(where), std::move(right)});
  }

  std::string Bits() const { return BitsText(facts_.bits); }
  // "64-bit programs", "C:\Office\Container.exe, a 64-bit program,"
  std::string Containers() const {
    return facts_.container.empty() ? Bits() + " programs" : facts_.container + ", a " + Bits() + " program,";
  }

  bool IsAnywhere() const {
    return std::ranges::any_of(facts_.classes,
                               [](const ClassFacts& each) { return each.Used().has_value(); });
  }

  template <typename Condition>
  std::vector<std::string> NamesOf(Condition condition) const {
    std::vector<std::string> names;
    for (const ClassFacts& each : facts_.classes) {
      if (condition(each)) names.push_back(each.name);
    }
    return names;
  }

  // Of the libraries that are registered, each once.
  std::vector<std::string> UsedPaths() const {
    std::vector<std::string> paths;
    for (const ClassFacts& each : facts_.classes) {
      if (!each.Used()) continue;
      const auto is_same = [&](const std::string& path) { return IsSame(path, each.Used()->path); };
      if (std::ranges::none_of(paths, is_same)) paths.push_back(each.Used()->path);
    }
    return paths;
  }

  // The place of the first class that is registered with that library.
  const Server& ServerAt(const std::string& path) const {
    return *std::ranges::find_if(facts_.classes, [&](const ClassFacts& each) {
              return each.Used() && IsSame(each.Used()->path, path);
            })->Used();
  }

  void JudgeContainer() {
    if (facts_.container_is_read) return;
    Add(Cause::kContainerUnreadable, "The container is not a program for 32 or 64 bits that can be read.",
        facts_.container, "Name the .exe file of the program that does not show the components.");
  }

  void JudgeAbsence() {
    const auto other = std::ranges::find_if(
        facts_.classes, [](const ClassFacts& each) { return each.other_bitness.has_value(); });
    const auto others = std::ranges::find_if(
        facts_.classes, [](const ClassFacts& each) { return !each.other_users.empty(); });
    const std::string name = LibraryNameFor(facts_.bits);
    if (other != facts_.classes.end()) {
      Add(Cause::kOtherBitness,
          "The components are registered for " + BitsText(96 - facts_.bits) + " programs only. " +
              Containers() + " cannot see them.",
          other->other_bitness->where + " names " + other->other_bitness->path,
          "Register the library for " + Bits() + " as well: " + RegisterLine(facts_.bits, name));
    }
    if (others != facts_.classes.end()) {
      const OtherUser& user = others->other_users.front();
      Add(Cause::kOtherUser, "The components are registered for another user only, for " + user.name + ".",
          "That user's registry names " + user.path,
          "Register them for this user, or as administrator for all: regsvr32 /n /i:user \"" + user.path +
              "\", or " + RegisterLine(facts_.bits, user.path));
    }
    if (other == facts_.classes.end() && others == facts_.classes.end()) {
      Add(Cause::kNotRegistered, "The components are not registered for " + Bits() + " programs.",
          "Neither HKEY_CURRENT_USER nor HKEY_LOCAL_MACHINE has them below Software\\Classes\\CLSID",
          "Register them: " + RegisterLine(facts_.bits, name) +
              ". A program with a manifest that names the library's takes no registration.");
    }
  }

  void JudgeCompleteness() {
    const auto missing = NamesOf([](const ClassFacts& each) { return !each.Used(); });
    if (missing.empty()) return;
    const std::string path = UsedPaths().front();
    Add(Cause::kIncomplete, "Some classes are not registered: " + NamesText(missing) + ".",
        ServerAt(path).where + " names " + path + "; those have no such key",
        "Register the library again: " + RegisterLine(facts_.bits, path));
  }

  void JudgePlaces() {
    const std::vector<std::string> paths = UsedPaths();
    if (paths.size() > 1) {
      Add(Cause::kTwoPlaces, "The classes are registered at different places.", paths[0] + " and " + paths[1],
          "Register the library that is to be used again: " + RegisterLine(facts_.bits, paths[0]));
    }
    for (const std::string& path : paths) {
      if (facts_.wanted_library.empty() || IsSame(path, facts_.wanted_library)) continue;
      Add(Cause::kOtherPlace, "Another library is registered than " + facts_.wanted_library + ".",
          ServerAt(path).where + " names " + path,
          "Register the right one: " + RegisterLine(facts_.bits, facts_.wanted_library));
    }
    const auto two = std::ranges::find_if(facts_.classes, [](const ClassFacts& each) {
      return each.user && each.machine && !IsSame(each.user->path, each.machine->path);
    });
    if (two == facts_.classes.end()) return;
    AddNote(Cause::kTwoPlaces,
            "One library is registered for this user and another for the machine. Programs that run as "
            "administrator take the machine's, others the user's.",
            two->user->path + " and " + two->machine->path,
            "Unregister one of them: regsvr32 /u /n /i:user \"" + two->user->path + "\"");
  }

  void JudgeLibrary(const std::string& path) {
    const auto found = facts_.libraries.find(path);
    const LibraryFacts library = found == facts_.libraries.end() ? LibraryFacts{} : found->second;
    const std::string where = ServerAt(path).where + " names " + path;
    if (!library.exists) {
      Add(Cause::kNoFile, "The library that is registered is not there, or this user may not read it.", where,
          "Put it there, or register it where it is now: " +
              RegisterLine(facts_.bits, LibraryNameFor(facts_.bits)));
    } else if (!library.is_library) {
      Add(Cause::kNoLibrary, "The file that is registered is not a whole library of Windows.", where,
          "Copy the library again from where it came from.");
    } else if (library.bits != facts_.bits) {
      Add(Cause::kWrongBitness,
          "The library is " + BitsText(library.bits) + ", and " + Containers() + " cannot load it.", where,
          "Register the " + Bits() + " one: " + RegisterLine(facts_.bits, LibraryNameFor(facts_.bits)));
    } else {
      JudgeContents(path, library);
    }
  }

  void JudgeContents(const std::string& path, const LibraryFacts& library) {
    for (const std::string& missing : library.missing) {
      Add(Cause::kMissingLibrary, "The library needs " + missing + ", which is nowhere to be found.", path,
          "Put " + missing + " for " + Bits() + " programs beside it, or use a copy of " + FileNameOf(path) +
              " as it was published: that one needs only libraries of Windows.");
    }
    if (!library.has_type_library) {
      Add(Cause::kTypeLibrary, "The library holds no type library.", path,
          "Use a copy of " + FileNameOf(path) + " as it was published.");
    } else {
      JudgeTypeLibrary(library.type_library, path, "The type library inside the library does not match: ");
    }
  }

  void JudgeTypeLibrary(const std::optional<TypeLibrarySummary>& library, const std::string& where,
                        const std::string& begin) {
    const std::string mismatch = library ? MismatchOf(*library) : "it is damaged, or no type library";
    if (mismatch.empty()) return;
    Add(Cause::kTypeLibrary, begin + mismatch + ".", where,
        "Register one library of this version, for all its classes: " +
            RegisterLine(facts_.bits, UsedPaths().front()));
  }

  void JudgeTypeLibrary() {
    const std::string again = "Register the library again: " + RegisterLine(facts_.bits, UsedPaths().front());
    if (facts_.type_libraries.empty()) {
      Add(Cause::kTypeLibrary, "The type library is not registered: designers do not list the components.",
          "There is no key TypeLib\\" + TextOf(kLibraryId) + "\\" + std::to_string(kLibraryMajor) + "." +
              std::to_string(kLibraryMinor) + " for " + Bits() + " programs",
          again);
      return;
    }
    const TypeLibraryEntry& used = facts_.type_libraries.front();
    const std::string where = used.where + " names " + used.path;
    if (!used.exists) {
      Add(Cause::kTypeLibrary, "The type library that is registered is not there.", where, again);
    } else {
      JudgeTypeLibrary(used.library, where, "The type library that is registered does not match: ");
    }
  }

  void JudgeThreadingModels() {
    const auto is_wrong = [](const ClassFacts& each) {
      return each.Used() && !IsSame(each.Used()->threading_model, "Apartment");
    };
    const auto wrong = NamesOf(is_wrong);
    if (wrong.empty()) return;
    const Server& server = *std::ranges::find_if(facts_.classes, is_wrong)->Used();
    const std::string model = server.threading_model.empty() ? "none" : "\"" + server.threading_model + "\"";
    Add(Cause::kThreadingModel, "The threading model of " + NamesText(wrong) + " is " + model + ".",
        server.where,
        "ThreadingModel is \"Apartment\". Register the library again: " +
            RegisterLine(facts_.bits, server.path));
  }

  void JudgeBlocks() {
    const auto is_blocked = [](const ClassFacts& each) { return !each.blocked_at.empty(); };
    const auto blocked = NamesOf(is_blocked);
    if (blocked.empty()) return;
    Add(Cause::kBlocked,
        "Containers that ask first, like browsers and office programs, refuse to make " + NamesText(blocked) +
            ".",
        std::ranges::find_if(facts_.classes, is_blocked)->blocked_at,
        "An administrator takes the bit 0x400 out of \"Compatibility Flags\" there, if that was not on "
        "purpose.");
  }

  void JudgePolicies() {
    for (const PolicyFacts& policy : facts_.policies) {
      if (policy.library.empty()) {
        AddNote(
            Cause::kUnreadablePolicy,
            "An administrator has made rules about which libraries may be loaded. This program cannot read "
            "what they say.",
            policy.where, "Where a component does not load for no other reason, ask the administrator.");
      } else {
        Add(Cause::kPolicy, "A rule of an administrator forbids to load " + policy.library + ".",
            policy.where, "The administrator allows it, or the library is put where libraries are allowed.");
      }
    }
  }

  void JudgeAttempts() {
    const bool is_explained = std::ranges::any_of(findings_, &Finding::is_problem);
    for (const AttemptFacts& attempt : facts_.attempts) {
      if (attempt.result == 0 || is_explained) continue;
      Add(Cause::kDoesNotLoad, "The system does not make an object of " + attempt.class_name + ".",
          attempt.message, "Report this with the whole output of this program.");
    }
  }

  const Facts& facts_;
  std::vector<Finding> findings_;
};

}  // namespace

std::string_view NameOf(Cause cause) {
  switch (cause) {
    case Cause::kContainerUnreadable: return "container-unreadable";
    case Cause::kNotRegistered: return "not-registered";
    case Cause::kOtherBitness: return "other-bitness";
    case Cause::kOtherUser: return "other-user";
    case Cause::kIncomplete: return "incomplete";
    case Cause::kOtherPlace: return "other-place";
    case Cause::kTwoPlaces: return "two-places";
    case Cause::kNoFile: return "no-file";
    case Cause::kNoLibrary: return "no-library";
    case Cause::kWrongBitness: return "wrong-bitness";
    case Cause::kMissingLibrary: return "missing-library";
    case Cause::kThreadingModel: return "threading-model";
    case Cause::kTypeLibrary: return "type-library";
    case Cause::kBlocked: return "blocked";
    case Cause::kPolicy: return "policy";
    case Cause::kUnreadablePolicy: return "unreadable-policy";
    case Cause::kDoesNotLoad: return "does-not-load";
  }
  return "";
}

std::vector<Finding> Judge(const Facts& facts) { return Judgement(facts).Findings(); }

}  // namespace levelwidgets::doctor
