// What the tests of property pages share.
#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/pages/object_target.h>
#include <levelwidgets/pages/property_page.h>
#include <levelwidgets/pages/registry.h>
#include <levelwidgets/testing/desktop_fixture.h>
#include <levelwidgets/testing/error_of.h>

namespace levelwidgets {

using PageJournal = std::vector<std::string>;

// Notes each read, write and call: `read Caption`, `write TabCaption(2) = "x"`, `Columns.call Add("", 1440)`.
class RecordedTarget : public PageTarget {
 public:
  RecordedTarget(PageTargetRef inner, std::shared_ptr<PageJournal> journal, std::string before = {})
      : inner_(std::move(inner)), journal_(std::move(journal)), before_(std::move(before)) {}

  Variant Get(std::string_view property, std::span<const Variant> indices) override {
    Note("read " + Named(property, indices));
    return inner_->Get(property, indices);
  }
  void Set(std::string_view property, std::span<const Variant> indices, const Variant& value) override {
    Note("write " + Named(property, indices) + " = " + Describe(value));
    inner_->Set(property, indices, value);
  }
  Variant Call(std::string_view method, std::span<const Variant> arguments) override {
    Note("call " + std::string(method) + "(" + List(arguments) + ")");
    return inner_->Call(method, arguments);
  }
  PageTargetRef Inner(std::string_view property, std::span<const Variant> indices) override {
    const std::string name = Named(property, indices);
    return std::make_shared<RecordedTarget>(inner_->Inner(property, indices), journal_, before_ + name + ".");
  }

 private:
  static std::string List(std::span<const Variant> values) {
    std::string list;
    for (const Variant& value : values) list += (list.empty() ? "" : ", ") + Describe(value);
    return list;
  }
  static std::string Named(std::string_view name, std::span<const Variant> indices) {
    return std::string(name) + (indices.empty() ? "" : "(" + List(indices) + ")");
  }
  void Note(const std::string& entry) { journal_->push_back(before_ + entry); }

  const PageTargetRef inner_;
  const std::shared_ptr<PageJournal> journal_;
  const std::string before_;
};

// Controls on a form in design mode, and a page that has the first of them selected.
class PropertyPageTest : public testing::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    FormOptions design;
    design.design = true;
    MakeForm(design);
  }
  void TearDown() override {
    page_.reset();
    targets_.clear();
    DesktopTest::TearDown();
  }

  // Shows the page `name` with new controls of the class that it serves, "a" and "b".
  PropertyPage& Open(std::string_view name) {
    page_ = PropertyPage::Create(*FindPage(name), Tracer().Conversions());
    targets_ = {Add("a"), Add("b")};
    return *page_;
  }
  void Select() { page_->SelectionChanged(targets_); }
  Control& Selected(const std::string& name = "a") { return *TheForm().Find(name)->GetControl(); }
  Variant Value(std::string_view property, const std::string& name = "a") {
    return GetByName(Selected(name), property);
  }

  template <typename Field>
  Field& At(std::string_view name) {
    return dynamic_cast<Field&>(*page_->Find(name));
  }
  std::string Text(std::string_view name) { return At<TextField>(name).Text(); }
  void Type(std::string_view name, std::string text) { At<TextField>(name).SetText(std::move(text)); }
  void Check(std::string_view name, bool checked) { At<CheckField>(name).SetValue(checked ? 1 : 0); }
  void Choose(std::string_view name, std::int32_t index) { At<ListField>(name).SetListIndex(index); }

  PageJournal TakeJournal() { return std::exchange(*journal_, {}); }
  template <typename Action>
  PageJournal During(Action action) {
    TakeJournal();
    action();
    return TakeJournal();
  }
  PageTargetRef Recorded(ObjectRef object) {
    return std::make_shared<RecordedTarget>(
        std::make_shared<ObjectTarget>(std::move(object), Tracer().Conversions()), journal_);
  }

  std::shared_ptr<PropertyPage> page_;
  std::vector<PageTargetRef> targets_;

 private:
  PageTargetRef Add(const std::string& name) {
    const ClassInfo& served = *FindControlClass(page_->Info().serves);
    return Recorded(TheForm().Add(served, name).GetControl());
  }

  const std::shared_ptr<PageJournal> journal_ = std::make_shared<PageJournal>();
};

}  // namespace levelwidgets
