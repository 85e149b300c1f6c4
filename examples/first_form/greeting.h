#pragma once

#include <levelwidgets/controls/button/flat_button.h>
#include <levelwidgets/controls/label/flat_label.h>
#include <levelwidgets/controls/textbox/flat_text_box.h>
#include <levelwidgets/host/form/form.h>

using namespace levelwidgets;

struct GreetingForm {
  explicit GreetingForm(Platform& platform)
      : form(Form::Create(platform, {.caption = "Greeting", .size = {Twips(4200), Twips(1200)}})),
        name(form->Add<FlatTextBox>("txtName", Place(240, 240, 2400, 315))),
        greet(form->Add<FlatButton>("cmdGreet", Place(2760, 210, 1200, 375))),
        greeting(form->Add<FlatLabel>("lblGreeting", Place(240, 780, 3720, 240))) {
    name.SetText("");
    greet.SetCaption("&Greet");
    greet.Click += [this] { Greet(); };
    form->Find("cmdGreet")->SetDefault(true);  // Enter clicks it
    greeting.SetCaption("Who are you?");
  }
  GreetingForm(const GreetingForm&) = delete;

  void Greet() { greeting.SetCaption("Hello, " + name.Text() + "!"); }

  static Placement Place(float left, float top, float width, float height) {  // twips
    return {{Twips(left), Twips(top)}, TwipSize{Twips(width), Twips(height)}};
  }

  std::shared_ptr<Form> form;
  FlatTextBox& name;
  FlatButton& greet;
  FlatLabel& greeting;
};
