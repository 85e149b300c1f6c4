#include <gtest/gtest.h>

#include <levelwidgets/frame/error.h>
#include <levelwidgets/frame/units.h>

namespace levelwidgets {
namespace {

std::int32_t NumberRaisedBy(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

struct Division {
  double dividend;
  double divisor;
  std::int32_t quotient;
};

class IntegerDivideTest : public ::testing::TestWithParam<Division> {};

TEST_P(IntegerDivideTest, RoundsBothTiesToEvenAndTruncatesTowardZero) {
  EXPECT_EQ(IntegerDivide(GetParam().dividend, GetParam().divisor), GetParam().quotient);
}

INSTANTIATE_TEST_SUITE_P(Cases, IntegerDivideTest,
                         ::testing::Values(Division{22.5, 15, 1}, Division{23.5, 12, 2},
                                           Division{21.5, 11, 2}, Division{0, 15, 0}, Division{29, 15, 1},
                                           Division{30, 15, 2}, Division{-29, 15, -1}, Division{-30, 15, -2},
                                           Division{29, -15, -1}, Division{7, 2.5, 3}, Division{7, 3.5, 1},
                                           Division{0.5, 1, 0}, Division{1.5, 1, 2}, Division{2.5, 1, 2},
                                           Division{-0.5, 1, 0}, Division{-1.5, 1, -2},
                                           Division{2147483647, 1, 2147483647}));

TEST(IntegerDivide, ADivisorThatRoundsToZeroRaises11) {
  EXPECT_EQ(NumberRaisedBy([] { IntegerDivide(1, 0); }), kDivisionByZero);
  EXPECT_EQ(NumberRaisedBy([] { IntegerDivide(1, 0.5); }), kDivisionByZero);
}

TEST(IntegerDivide, OperandsBeyond32BitsRaise6) {
  EXPECT_EQ(NumberRaisedBy([] { IntegerDivide(2147483648.0, 1); }), kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { IntegerDivide(1, -2147483649.0); }), kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { IntegerDivide(-2147483648.0, -1); }), kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { IntegerDivide(std::nan(""), 1); }), kOverflow);
}

TEST(Twips, BecomePixelsByDivisionAndPixelsTwipsByMultiplication) {
  EXPECT_EQ(ToPixels(Twips(1200), 15), 80);
  EXPECT_EQ(ToPixels(Twips(1214), 15), 80);
  EXPECT_EQ(ToPixels(Twips(22.5f), 15), 1);
  EXPECT_EQ(ToTwips(80, 15), Twips(1200));
  EXPECT_EQ(ToTwips(3, 12.5f), Twips(37.5f));
}

}  // namespace
}  // namespace levelwidgets
