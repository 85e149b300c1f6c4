// Controls that interfere while their form file is read.
#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/host/form_file/reader.h>
#include <levelwidgets/testing/desktop_fixture.h>

namespace levelwidgets::testing {
namespace {

using ::testing::HasSubstr;

// Acts on its form when a property is read that says so.
class Meddler : public Control {
 public:
  static const ClassInfo& Table() {
    using Row = table::Row<Meddler>;
    static constexpr auto data = ClassTable(
        ControlClass<Meddler>("Meddler", "Interferes."),
        table::Properties(Row::Property<&Meddler::Deed, &Meddler::SetDeed>(1, "Deed", Always(""), ""),
                          Row::Property<&Meddler::Last, &Meddler::SetLast>(2, "Last", Always(""), "")),
        table::Persisted("Deed", "Last"));
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit Meddler(std::shared_ptr<ControlSite> site)
      : Control(std::move(site), {.back_color = Color(0), .fore_color = Color(0), .font = {}}) {}

  const std::string& Deed() const { return deed_; }
  void SetDeed(std::string deed) {
    deed_ = std::move(deed);
    if (deed_ != "by default") Do(deed_);
    PropertyChanged("Deed");
  }
  const std::string& Last() const { return last_; }
  void SetLast(std::string last) {
    last_ = std::move(last);
    PropertyChanged("Last");
  }
  const ClassInfo& Class() const override { return Table(); }
  void OnAmbientChanged(std::string_view name) override {
    if (deed_ == "by default" && name == "DisplayAsDefault") Do("remove");
  }

 private:
  void Do(const std::string& deed) {
    auto& hosted = dynamic_cast<HostedControl&>(Site());
    if (!hosted.GetForm()) return;
    if (deed == "remove") hosted.GetForm()->Remove(hosted.Name());
    if (deed == "close") hosted.GetForm()->Close();
    if (deed == "hide") hosted.SetVisible(false);
  }
  std::string deed_;
  std::string last_;
};

const ClassInfo* FindTestClass(std::string_view name) {
  return name == "Meddler" ? &Meddler::Table() : FindControlClass(name);
}

class FormFileInterferenceTest : public DesktopTest {
 protected:
  // What is wrong with a form whose first control does `deed`, with `placement` lines; "" for nothing.
  std::string Read(const std::string& deed, const std::string& placement = "") {
    std::string text =
        "[form]\nName = \"frmMeddled\"\n[[control]]\nClass = \"Meddler\"\nName = \"mdl\"\n" + placement +
        "Properties = { Deed = \"" + deed +
        "\", Last = \"a\", Unknown = 1 }\n[[control]]\nClass = \"FlatButton\"\nName = \"cmd\"\n";
    auto parsed = ParseFormNodes(text);
    const FormDocument document(std::move(text), std::move(std::get<FormNode>(parsed)));
    FormReport report(document, "meddled.form.toml");
    form_ = FormReader(Tracer(), report, FindTestClass).Read();
    std::string errors;
    for (const Diagnostic& diagnostic : report.Diagnostics()) {
      if (diagnostic.severity == Diagnostic::Severity::kError) errors += diagnostic.ToString() + "\n";
    }
    Driver().Settle();
    return errors;
  }
  void TearDown() override {
    form_.reset();
    DesktopTest::TearDown();
  }

  std::shared_ptr<Form> form_;
};

TEST_F(FormFileInterferenceTest, AControlThatRemovesItselfWhileItIsReadIsReported) {
  EXPECT_EQ(Read("remove"),
            "meddled.form.toml:3:1: Meddler: mdl was not added: a handler removed it, or closed its form, "
            "before it was complete\n");
  EXPECT_FALSE(form_->Find("mdl"));
  EXPECT_TRUE(form_->Find("cmd"));
}

TEST_F(FormFileInterferenceTest, AFormThatIsClosedWhileItIsReadIsReportedForEachControlThatIsMissing) {
  const std::string errors = Read("close");
  EXPECT_THAT(errors, HasSubstr("meddled.form.toml:3:1: Meddler: mdl was not added"));
  EXPECT_THAT(errors, HasSubstr("FlatButton: frmMeddled is closed: nothing can be added to it"));
  EXPECT_TRUE(form_->Closed());
}

TEST_F(FormFileInterferenceTest, AControlRemovedWhileItsPlacementIsAssignedIsReported) {
  EXPECT_THAT(Read("by default", "Default = true\n"), HasSubstr("mdl was not added"));
  EXPECT_FALSE(form_->Find("mdl"));
}

TEST_F(FormFileInterferenceTest, AControlThatHidesItselfWhileItIsReadIsHidden) {
  EXPECT_EQ(Read("hide"), "");
  EXPECT_FALSE(form_->Find("mdl")->Visible());
}

}  // namespace
}  // namespace levelwidgets::testing
