// Methods that hand values back, and events that a class has from bases beside Object.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <levelwidgets/testing/error_of.h>
#include <levelwidgets/testing/sheet.h>

namespace levelwidgets {
namespace {

using ::testing::ElementsAre;
using testing::Sheet;

TEST(ByReference, ATableShowsWhichArgumentsHandValuesBack) {
  std::vector<std::string> told;
  for (const char* method : {"HitTest", "Locate", "Double"}) {
    for (const ArgumentInfo& argument : Sheet::Table().FindMethod(method)->arguments) {
      told.push_back(std::string(argument.name) + ":" + std::string(argument.type.Name()) +
                     (argument.by_reference ? "&" : "") + (argument.output ? " out" : "") +
                     (argument.default_value ? "?" : ""));
    }
  }
  EXPECT_THAT(told, ElementsAre("X:Single", "Y:Single", "ColIndex:Long& out", "Row:Integer& out",
                                "Name:String& out", "Of:String", "Value:Long&", "Twice:Boolean?"));
}

TEST(ByReference, AMethodHandsBackWhatItLeavesInItsArguments) {
  Sheet sheet;
  std::vector<Variant> arguments{250.0f, 70.0f, Variant()};
  EXPECT_EQ(InvokeByReference(sheet, "HitTest", arguments), Variant(7));
  EXPECT_THAT(arguments, ElementsAre(Variant(250.0f), Variant(70.0f), Variant(2)));
}

TEST(ByReference, AVoidMethodHandsBackToo) {
  Sheet sheet;
  std::vector<Variant> arguments{Variant(), Variant(), "abc"};
  EXPECT_EQ(InvokeByReference(sheet, "Locate", arguments), Variant());
  EXPECT_EQ(arguments[0], Variant(std::int16_t{3}));
  EXPECT_EQ(arguments[0].Type(), VariantType::kInt16);
  EXPECT_EQ(arguments[1], Variant("<abc>"));
}

TEST(ByReference, WhatGoesInIsConvertedAndAnOutputMayBeAnythingOrMissing) {
  Sheet sheet;
  std::vector<Variant> arguments{21.0};
  InvokeByReference(sheet, "Double", arguments);
  EXPECT_THAT(arguments, ElementsAre(Variant(42), Variant(false)));
  EXPECT_EQ(arguments[0].Type(), VariantType::kInt32);
  std::vector<Variant> any{std::int16_t{300}, 10, "no number, and not read"};
  EXPECT_EQ(InvokeByReference(sheet, "HitTest", any), Variant(1));
  EXPECT_EQ(any[2], Variant(3));
  std::vector<Variant> missing{300, 10};
  InvokeByReference(sheet, "HitTest", missing);
  EXPECT_EQ(missing[2], Variant(3));
}

TEST(ByReference, AnArgumentThatIsReadCannotBeMissingOrOfAnotherType) {
  Sheet sheet;
  std::vector<Variant> none;
  EXPECT_EQ(ErrorOf([&] { InvokeByReference(sheet, "Double", none); }), kWrongNumberOfArguments);
  std::vector<Variant> word{"word"};
  EXPECT_EQ(ErrorOf([&] { InvokeByReference(sheet, "Double", word); }), kTypeMismatch);
  std::vector<Variant> many{1, true, 3};
  EXPECT_EQ(ErrorOf([&] { InvokeByReference(sheet, "Double", many); }), kWrongNumberOfArguments);
}

TEST(ByReference, AMethodThatRaisesHandsNothingBack) {
  Sheet sheet;
  std::vector<Variant> arguments{600};
  EXPECT_EQ(ErrorOf([&] { InvokeByReference(sheet, "Double", arguments); }), kOverflow);
  EXPECT_EQ(arguments[0], Variant(600));
}

TEST(ByReference, ObjectsAndValuesOfAnyTypeComeBack) {
  Sheet sheet;
  sheet.held = std::make_shared<Sheet>();
  std::vector<Variant> arguments{Variant(ObjectRef()), Variant()};
  EXPECT_EQ(ErrorOf([&] { InvokeByReference(sheet, "Swap", arguments); }), 0);
  EXPECT_EQ(arguments[0], Variant(ObjectRef(sheet.held)));
  EXPECT_EQ(arguments[1], Variant(Null{}));
  InvokeByReference(sheet, "Swap", arguments);
  EXPECT_EQ(arguments[1], Variant("had one"));
}

TEST(ByReference, ACallWithoutReferencesLeavesTheCallersValues) {
  Sheet sheet;
  const std::vector<Variant> arguments{21.0, true};
  InvokeByName(sheet, "Double", arguments);
  EXPECT_EQ(arguments[0].Type(), VariantType::kDouble);
  InvokeByName(sheet, "Touch", {});
  EXPECT_EQ(sheet.touched, 1);
}

TEST(EventsOfABase, AreListenedToRaisedAndEndedByName) {
  Sheet sheet;
  SubscribeByName(sheet, "Rung", [](RaisedEvent& raised) { raised.values[0] = 5.0; });
  std::int32_t times = 1;
  sheet.Rung.Raise(times);
  EXPECT_EQ(times, 5);
  Sheet::Table().FindEvent("Rung")->EndAll(sheet);
  times = 1;
  sheet.Rung.Raise(times);
  EXPECT_EQ(times, 1);
}

}  // namespace
}  // namespace levelwidgets
