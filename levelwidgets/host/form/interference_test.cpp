// Listeners that interfere: at every moment that notifies them, with every class.
#include <set>

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/registry.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

constexpr std::int32_t kListenersOwn = 777;

enum class Deed { kRemove, kClose, kDropForm, kHide, kDisable, kMoveFocus, kAddAnother, kRaise };
constexpr Deed kDeeds[] = {Deed::kRemove,  Deed::kClose,     Deed::kDropForm,   Deed::kHide,
                           Deed::kDisable, Deed::kMoveFocus, Deed::kAddAnother, Deed::kRaise};

// In each round the moments have the deeds in turn, beginning with another one: as many rounds as deeds do
// all at every moment. Forms take their time on Windows, where one round must do.
#ifdef _WIN32
constexpr int kRounds = 1;
#else
constexpr int kRounds = static_cast<int>(std::size(kDeeds));
#endif
Deed DeedOf(int round, int moment) {
  return kDeeds[static_cast<std::size_t>(round + moment) % std::size(kDeeds)];
}

class InterferenceTest : public DesktopTest {
 protected:
  // A shown form with a button beside the control that is to be added.
  void Begin() {
    form_ = Form::Create(Tracer(), {.name = "frmMeddled", .size = {Twips(3000), Twips(1500)}});
    watched_ = form_;
    form_->Add(FlatButton::Table(), "cmdOther", nullptr, {{Twips(1800), Twips(150)}, {}});
    form_->Show();
    Driver().Settle();
    done_ = false;
  }
  void End() {
    if (const auto left = watched_.lock()) left->Close();
    form_.reset();
    Driver().Settle();
  }

  void Do(Deed deed) {
    done_ = true;
    const auto form = watched_.lock();
    ASSERT_TRUE(form);
    const auto control = form->Find("ctl");
    switch (deed) {
      case Deed::kRemove: form->Remove("ctl"); break;
      case Deed::kClose: form->Close(); break;
      case Deed::kDropForm: form_.reset(); break;
      case Deed::kHide:
        if (control) control->SetVisible(false);
        break;
      case Deed::kDisable:
        if (control) SetByName(*control->GetControl(), "Enabled", false);
        break;
      case Deed::kMoveFocus: form->Find("cmdOther")->SetFocus(); break;
      case Deed::kAddAnother:
        form->Remove("ctl");
        form->Add(FlatButton::Table(), "ctl");
        break;
      case Deed::kRaise: throw Error(kListenersOwn, "Listener", "refused");
    }
  }

  // Does `deed` when the control notifies the form for the `at`th time, counted from 0.
  void DoAtNotice(int at, Deed deed) {
    form_->PropertyChanged.Add([this, at, deed, count = 0](std::string_view control, auto) mutable {
      if (!done_ && control == "ctl" && count++ == at) Do(deed);
    });
  }

  // The error that it raises, "" for none.
  template <typename Call>
  std::string RaisedBy(Call call) {
    try {
      call();
    } catch (const Error& error) {
      return error.Description();
    }
    return "";
  }

  // What a person may do with whatever is there now. Keys and timers come once for each deed to each class:
  // on Windows they take their time.
  void Use(const ClassInfo& control_class, Deed deed) {
    const auto form = watched_.lock();
    if (!form || form->Closed()) return;
    const auto control = form->Find("ctl");
    if (control) Driver().Click(control->ScreenCentre());
    if (!used_at_length_.insert({&control_class, deed}).second) return;
    Driver().Key(kKeyTab);
    Driver().Key('A');
    Driver().Advance(200);
  }

  static void ExpectOutcome(Deed deed, const std::string& raised, const std::shared_ptr<Form>& form) {
    const bool not_added =
        deed == Deed::kRemove || deed == Deed::kClose || deed == Deed::kDropForm || deed == Deed::kAddAnother;
    if (not_added) {
      EXPECT_EQ(raised,
                "ctl was not added: a handler removed it, or closed its form, before it was complete");
    } else {
      EXPECT_EQ(raised, deed == Deed::kRaise ? "refused" : "");
    }
    EXPECT_EQ(form == nullptr, deed == Deed::kDropForm);
    if (!form) return;
    EXPECT_EQ(form->Closed(), deed == Deed::kClose);
    const auto control = form->Find("ctl");
    EXPECT_EQ(control != nullptr, deed != Deed::kRemove && deed != Deed::kClose && deed != Deed::kRaise);
    if (!control) return;
    ASSERT_TRUE(control->GetControl());
    EXPECT_EQ(control->Visible(), deed != Deed::kHide);
    if (deed == Deed::kAddAnother) {
      EXPECT_EQ(&control->ControlClass(), &FlatButton::Table());
    }
  }

  // Adds a control of the class with `deed` done at its notice number `at`. False when there was no such
  // notice.
  bool AddWith(const ClassInfo& control_class, bool loaded, int at, Deed deed) {
    Begin();
    DoAtNotice(at, deed);
    const PropertyBag nothing;
    const std::string raised = RaisedBy([&] {
      form_->Add(control_class, "ctl", loaded ? &nothing : nullptr, {{Twips(150), Twips(150)}, {}});
    });
    const bool was_done = std::exchange(done_, true);
    if (was_done) ExpectOutcome(deed, raised, form_);
    Use(control_class, deed);
    End();
    return was_done;
  }

  std::shared_ptr<Form> form_;
  std::weak_ptr<Form> watched_;
  bool done_ = false;
  std::set<std::pair<const ClassInfo*, Deed>> used_at_length_;
};

TEST_F(InterferenceTest, AListenerMayDoAnythingAtEveryNoticeOfAControlThatIsBeingAdded) {
  int tried = 0;
  for (const ClassInfo* control_class : ControlClasses()) {
    for (const bool loaded : {false, true}) {
      for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(std::string(control_class->Name()) + (loaded ? " loaded, round " : " new, round ") +
                     std::to_string(round));
        for (int at = 0; AddWith(*control_class, loaded, at, DeedOf(round, at)); ++at) ++tried;
      }
    }
  }
  // Each class notifies of each property that it reads.
  EXPECT_GE(tried, 5 * 10 * kRounds);
}

TEST_F(InterferenceTest, AListenerMayDoAnythingWhenAPropertyIsSet) {
  int tried = 0;
  int moment = 0;
  for (const ClassInfo* control_class : ControlClasses()) {
    for (const PropertyInfo* property : control_class->Persisted()) {
      if (property->Indexed()) continue;
      ++moment;
      for (int round = 0; round < kRounds; ++round) {
        const Deed deed = DeedOf(round, moment);
        SCOPED_TRACE(std::string(control_class->Name()) + "." + std::string(property->name) + ", deed " +
                     std::to_string(static_cast<int>(deed)));
        Begin();
        const auto control =
            form_->Add(*control_class, "ctl", nullptr, {{Twips(150), Twips(150)}, {}}).GetControl();
        DoAtNotice(0, deed);
        const std::string raised =
            RaisedBy([&] { SetByName(*control, property->name, property->get(*control)); });
        if (std::exchange(done_, true)) {
          ++tried;
          EXPECT_EQ(raised, deed == Deed::kRaise ? "refused" : "");
        }
        Use(*control_class, deed);
        End();
      }
    }
  }
  EXPECT_GE(tried, 5 * 8 * kRounds);
}

TEST_F(InterferenceTest, AListenerOfTheFormMayDoAnythingAtEachOfItsEvents) {
  using Subscribe = void (*)(Form&, std::function<void()>);
  using Cause = void (*)(Form&);
  const struct {
    const char* name;
    Subscribe subscribe;
    Cause cause;
  } kEvents[] = {
      {"Load", [](Form& f, std::function<void()> l) { f.Load += std::move(l); }, [](Form& f) { f.Loaded(); }},
      {"Resize", [](Form& f, std::function<void()> l) { f.Resize += std::move(l); },
       [](Form& f) { f.SetWidth(Twips(4500)); }},
      {"Deactivate", [](Form& f, std::function<void()> l) { f.Deactivate += std::move(l); },
       [](Form& f) { f.Hide(); }},
      {"Activate", [](Form& f, std::function<void()> l) { f.Activate += std::move(l); },
       [](Form& f) {
         f.Hide();
         if (!f.Closed()) f.Show();
       }},
      {"Unload", [](Form& f, std::function<void()> l) { f.Unload += [l = std::move(l)](bool&) { l(); }; },
       [](Form& f) { f.Close(); }},
  };
  int moment = 0;
  for (const ClassInfo* control_class : ControlClasses()) {
    for (const auto& event : kEvents) {
      ++moment;
      for (int round = 0; round < kRounds; ++round) {
        const Deed deed = DeedOf(round, moment);
        SCOPED_TRACE(std::string(control_class->Name()) + " at " + std::string(event.name) + ", deed " +
                     std::to_string(static_cast<int>(deed)));
        Begin();
        form_->Add(*control_class, "ctl", nullptr, {{Twips(150), Twips(150)}, {}}).SetFocus();
        event.subscribe(*form_, [this, deed] {
          if (!done_) Do(deed);
        });
        // Windows delivers some of them through its own code, past which the error comes to another call.
        RaisedBy([&] {
          event.cause(*watched_.lock());
          Driver().Settle();
        });
        EXPECT_TRUE(done_);
        RaisedBy([&] { Driver().Settle(); });
        Use(*control_class, deed);
        End();
      }
    }
  }
}

TEST_F(InterferenceTest, AClosedFormTakesNoControls) {
  Begin();
  form_->Close();
  EXPECT_EQ(RaisedBy([&] { form_->Add(FlatButton::Table(), "cmdLate"); }),
            "frmMeddled is closed: nothing can be added to it");
  EXPECT_TRUE(form_->Controls().empty());
}

}  // namespace
}  // namespace levelwidgets::testing
