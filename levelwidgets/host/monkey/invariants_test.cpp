#include <gtest/gtest.h>

#include <levelwidgets/controls/scroll/flat_scroll.h>
#include <levelwidgets/frame/class_table.h>
#include <levelwidgets/host/monkey/invariants.h>

namespace levelwidgets::monkey {
namespace {

// Keeps one more than what it is given.
class GrowingControl : public Control {
 public:
  static const ClassInfo& Table() {
    using Row = table::Row<GrowingControl>;
    static constexpr auto data =
        ClassTable(ControlClass<GrowingControl>("GrowingControl", "Grows."),
                   table::Properties(Row::Property<&GrowingControl::Length, &GrowingControl::SetLength>(
                       1, "Length", Always(0), "Grows with each assignment.")),
                   table::Persisted("Length"));
    static constexpr ClassInfo info(data);
    return info;
  }
  explicit GrowingControl(std::shared_ptr<ControlSite> site) : Control(std::move(site), {}) {}

  const ClassInfo& Class() const override { return Table(); }
  std::int32_t Length() const { return length_; }
  void SetLength(std::int32_t length) { Store("Length", Then::kNotify, length_, length + 1); }

 private:
  std::int32_t length_ = 0;
};

class WriteBackTest : public ::testing::Test {
 protected:
  std::string Broken(const ClassInfo& info) {
    form_->Add(info, "ctlTried", nullptr, {});
    return BrokenAgain();
  }
  std::string BrokenAgain() {
    return Check(*FindInvariant("write back"), {desktop_, *form_, form_->Controls().front()});
  }
  template <typename T>
  T& Control() {
    return dynamic_cast<T&>(*form_->Controls().front()->GetControl());
  }

 private:
  memory::Desktop desktop_;
  std::shared_ptr<Form> form_ = Form::Create(desktop_, {});
};

TEST_F(WriteBackTest, APropertyThatIsAnotherOnceItsOwnValueWasAssignedBreaksThePromise) {
  EXPECT_EQ(Broken(GrowingControl::Table()),
            "write back: ctlTried.Length was 0, is 1 after that was assigned");
}

TEST_F(WriteBackTest, APropertyThatAHandlerAssignsMeanwhileDoesNot) {
  EXPECT_EQ(Broken(FlatScroll::Table()), "");
  auto& bar = Control<FlatScroll>();
  int heard = 0;
  bar.Change += [&] {
    if (++heard == 1) bar.SetOrientation(ksxOrientationHorizontal);
  };
  EXPECT_EQ(BrokenAgain(), "");
  EXPECT_GT(heard, 0);
  EXPECT_EQ(bar.Orientation(), ksxOrientationHorizontal);
}

}  // namespace
}  // namespace levelwidgets::monkey
