#include <levelwidgets/activex/control/enumerations.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

#include <levelwidgets/activex/com/com_ptr.h>

namespace levelwidgets::activex {
namespace {

using ::testing::ElementsAre;

TEST(Enumeration, ItemsOfWhichOneCannotBeCopiedAreAllReleasedAndNoneIsGiven) {
  bool fails = false;
  std::vector<LONG> released;
  const auto items = ComPtr<IEnumOLEVERB>::Taking(MakeEnumeration<IEnumOLEVERB, OLEVERB>(
      {{1, nullptr, 0, 0}, {2, nullptr, 0, 0}, {3, nullptr, 0, 0}},
      [&](const OLEVERB& item) {
        if (fails && item.lVerb == 3) throw std::bad_alloc();
        return item;
      },
      [&](const OLEVERB& item) { released.push_back(item.lVerb); }));
  fails = true;
  OLEVERB given[3] = {};
  ULONG fetched = 9;
  EXPECT_EQ(items->Next(3, given, &fetched), E_OUTOFMEMORY);
  EXPECT_EQ(fetched, 0u);
  EXPECT_EQ(given[0].lVerb, 0);
  EXPECT_THAT(released, ElementsAre(1, 2));
  EXPECT_EQ(items->Next(1, given, nullptr), S_OK);
  EXPECT_EQ(given[0].lVerb, 1) << "the place is still the first";
}

}  // namespace
}  // namespace levelwidgets::activex
