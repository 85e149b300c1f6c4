// Stages for the tests of this folder.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <levelwidgets/controls/registry.h>
#include <levelwidgets/host/form_file/form_file.h>
#include <levelwidgets/host/monkey/session.h>

namespace levelwidgets::monkey {

// A desktop with the form that `make` makes on it.
class TestStage final : public Stage {
 public:
  using Make = std::function<std::shared_ptr<Form>(Platform&)>;
  explicit TestStage(const Make& make) : form_(make(desktop_)) {}

  memory::Desktop& GetDesktop() override { return desktop_; }
  const std::shared_ptr<Form>& GetForm() override { return form_; }

 private:
  memory::Desktop desktop_;
  std::shared_ptr<Form> form_;
};

inline StageFactory StageOf(TestStage::Make make) {
  return [make = std::move(make)] { return std::make_unique<TestStage>(make); };
}

// A new control of every class that there is, and a loaded one of each.
inline std::shared_ptr<Form> FormOfAllControls(Platform& platform) {
  FormOptions options;
  options.size = {Twips(9000), Twips(6000)};
  const auto form = Form::Create(platform, options);
  int count = 0;
  for (const ClassInfo* info : ControlClasses()) {
    for (const bool loaded : {false, true}) {
      const PropertyBag empty;
      const Placement place{{Twips(100 + count % 4 * 2200), Twips(100 + count / 4 * 900)}, {}};
      form->Add(*info, "ctl" + std::to_string(++count), loaded ? &empty : nullptr, place);
    }
  }
  return form;
}

inline StageFactory StageOfFile(const std::string& path) {
  return StageOf([path](Platform& platform) { return LoadForm(platform, path).form; });
}

}  // namespace levelwidgets::monkey
