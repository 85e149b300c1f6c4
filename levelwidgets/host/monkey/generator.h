// Random events for a form.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include <levelwidgets/host/form/form.h>
#include <levelwidgets/host/monkey/event.h>
#include <levelwidgets/host/monkey/values.h>

namespace levelwidgets::monkey {

// What events are made for. A snapshot, so that the events depend on nothing but it and the seed.
struct FormModel {
  struct Control {
    std::string name;
    const ClassInfo* info;
    TwipSize size;
    bool beside = false;  // on the form that the other one edits
  };

  explicit FormModel(const Form& form);
  // The controls of the form beside it as well. Events then often fill in fields and submit them.
  void AddBeside(const Form& form);

  TwipSize size;
  PixelSize screen;
  std::vector<Control> controls;
};

// Makes events one after the other. They may name controls that a handler has removed: those events mean
// nothing then.
class Generator {
 public:
  Generator(FormModel model, std::uint64_t seed);

  Event Next();

 private:
  using Make = Event (Generator::*)();
  struct Weighted {
    int weight;
    Make make;
  };
  static const Weighted kEvents[];
  static const Weighted kPanelEvents[];
  static const Weighted kReactions[];
  template <std::size_t count>
  Event Pick(const Weighted (&table)[count]);

  // The pointer
  Event Move();
  Event MoveTo();
  Event MoveToPanel();
  Event Press();
  Event Release();
  Event Click();
  Event DoubleClick();
  Event Wheel();
  // Panels
  Event Open();
  Event Fill();
  // Fields
  Event FillIn();
  Event Submit();
  // Keys and time
  Event Key();
  Event KeyDown();
  Event KeyUp();
  Event AccessKey();
  Event Type();
  Event Advance();
  // Members
  Event Set();
  Event SetPlacement();
  Event SetForm();
  Event Call();
  Event CallPlacement();
  Event Place();
  Event ChangeFont();
  Event ShareFont();
  // The form
  Event Add();
  Event Remove();
  Event Show();
  Event Hide();
  // Reactions and checks
  Event Once();
  Event Throw();
  Event Check();

  Event TakeNext();          // of those that are made already
  Event On(EventKind kind);  // an event for some control
  const FormModel::Control& SomeControl();
  const FormModel::Control* FindControl(const std::string& name) const;
  // Fills in a member of the object of `info` or, at times, of one that it holds.
  bool SetMember(Event& event, const ClassInfo& info, int depth);
  bool CallMember(Event& event, const ClassInfo& info, int depth);
  const ClassInfo* StepInto(Event& event, const ClassInfo& info);
  int SomeLength();
  void OpenByKeys(const FormModel::Control& control);
  void OpenByPointer(const FormModel::Control& control);

  FormModel model_;
  bool fills_in_;
  Dice dice_;
  std::string subject_;  // of reactions: the control whose event it is
  std::deque<Event> next_;
  std::string opened_;    // the control whose panel was last to open
  int panel_events_ = 0;  // so many are still for its panel
  int added_ = 0;
  int button_ = 0;  // the one that is down
};

std::vector<Event> MakeEvents(const FormModel& model, std::uint64_t seed, std::size_t count);

}  // namespace levelwidgets::monkey
