#include <levelwidgets/testing/desktop_fixture.h>

#include "greeting.h"

class GreetingTest : public levelwidgets::testing::DesktopTest {};

TEST_F(GreetingTest, EnterGreetsWhoeverHasTypedAName) {
  const GreetingForm greeting(Driver().GetPlatform());
  greeting.form->Show();
  Driver().Type("Ada");
  Driver().Key(13);
  EXPECT_EQ(greeting.greeting.Caption(), "Hello, Ada!");
}
