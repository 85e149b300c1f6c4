// Events happening to a form.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/host/monkey/event.h>
#include <levelwidgets/host/monkey/invariants.h>

namespace levelwidgets::monkey {

// A fresh desktop with a fresh form on it, not shown. What it owns ends with it.
class Stage {
 public:
  virtual ~Stage() = default;
  virtual memory::Desktop& GetDesktop() = 0;
  virtual const std::shared_ptr<Form>& GetForm() = 0;
  // The form beside it, whose controls events concern too; null where the session makes one of its own.
  virtual std::shared_ptr<Form> Beside() { return nullptr; }
  // Whether input may close the form. GetForm() gives another one after Reopen(), which is called then.
  virtual bool MayClose() const { return false; }
  virtual void Reopen() {}
  // A failure that the form's own code has reported by now; "" for no failure.
  virtual std::string Complaint() { return ""; }
};
using StageFactory = std::function<std::unique_ptr<Stage>()>;

// The next listener of `event` throws ThrownOnPurpose, as one of the user's may throw anything.
void ThrowOnce(Object& object, const std::string& event);

struct Tally {
  static constexpr std::size_t kMostClasses = 32;

  std::size_t events = 0;
  std::size_t refused = 0;       // documented errors
  std::size_t thrown = 0;        // on purpose
  std::size_t void_events = 0;   // for controls that no longer exist
  std::size_t closings = 0;      // of forms that input may close
  std::size_t panel_events = 0;  // after which a panel was open
  // How often controls of a class have opened a panel, in the order of ControlClasses().
  std::array<std::size_t, kMostClasses> panels = {};
};

// What one event did.
struct Outcome {
  std::string broken;      // "" unless it is a failure: "invariant: what was seen"
  std::string refused;     // the documented error that it raised
  bool repainted = false;  // everything, because what it changed is on purpose not shown at once
};

// One run of events on one stage. A second form is there for the first to be inactive.
class Session {
 public:
  explicit Session(std::unique_ptr<Stage> stage);
  ~Session();

  // Performs the event, does all that it makes pending and checks what holds always.
  Outcome Perform(const Event& event);
  // Closes all forms; returns what is then left and must not be, "" for nothing.
  std::string Finish();
  const Tally& Counts() const { return tally_; }

 private:
  struct Removed {
    std::string name;
    std::weak_ptr<Control> control;
    WindowHandle window;
  };

  bool Do(const Event& event);
  bool DoPointer(const Event& event);
  bool MoveTo(const Event& event);
  bool MoveToPanel(const Event& event);
  bool DoMember(const Event& event);
  bool DoForm(const Event& event);
  void Add(const Event& event);
  bool Remove(const std::string& name);
  bool Once(const Event& event);
  void ChangeFont(Object& object, const Event& event);
  // A listener of the form's own events and of those of its controls.
  void Attach(Form& form, bool may_close);
  void FollowClosing();
  void Watch(HostedControl& hosted);
  std::string CheckRemoved();
  void CountPanels();
  void Settle();

  // The form that has a control of that name; the one that the run is about when neither has.
  Form& HolderOf(const std::string& name) const;
  // Null when it no longer exists.
  std::shared_ptr<HostedControl> Find(const std::string& name) const { return HolderOf(name).Find(name); }
  Form& Which(const Event& event) const { return event.numbers[0] == 0 ? *form_ : *other_; }

  std::unique_ptr<Stage> stage_;
  memory::Desktop& desktop_;
  std::shared_ptr<Form> form_;
  std::shared_ptr<Form> other_;
  bool finishing_ = false;
  bool shown_later_ = false;
  WindowHandle panel_;  // that was open after the last event
  Tally tally_;
  std::vector<Removed> removed_;
  std::string broken_;  // found inside an event
};

}  // namespace levelwidgets::monkey
