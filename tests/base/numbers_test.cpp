#include "base/failure.h"
#include "base/numbers.h"
#include "testing.h"

TEST(Numbers, Val_ReadsALeadingNumber) {
    const std::pair<base::Text, double> rows[] = {
        {u"12abc", 12}, {u"", 0},     {u"  7.5", 7.5}, {u"-3", -3}, {u"+4", 4}, {u".5", 0.5}, {u"5.", 5},
        {u"1e2", 100},  {u"1e+x", 1}, {u"--1", 0},     {u"3,7", 3}, {u"٣", 0},  {u"0x10", 0}, {u"nan", 0},
    };
    for (const auto& [text, value] : rows)
        EXPECT_EQ(base::val(text), value) << base::toUtf8(text);
    EXPECT_LT(base::val(u"-9e999"), -1e300);
    for (const base::TextView number : {u"0", u"-1.5e3", u"+.5", u"5."})
        EXPECT_TRUE(base::isNumber(number)) << base::toUtf8(number);
    for (const base::TextView other : {u"", u"...", u"1.2.3", u"+-5", u"1e", u"0x", u"1 "})
        EXPECT_FALSE(base::isNumber(other)) << base::toUtf8(other);
}

TEST(Numbers, ToInt16_RoundsHalfToEven_AndRejectsOverflow) {
    const std::pair<double, int> rows[] = {{2.5, 2}, {3.5, 4}, {32767.4, 32767}, {-32768.5, -32768}};
    for (const auto& [value, rounded] : rows)
        EXPECT_EQ(base::toInt16(value), rounded) << value;
    for (const double value : {32767.5, -32769.0, base::val(u"9e999")})
        EXPECT_THROW(base::toInt16(value), base::Failure) << value;
    EXPECT_EQ(base::productInt16(32, 1000), 32000);
    EXPECT_THROW(base::productInt16(33, 1000), base::Failure);
    EXPECT_THROW(base::sumInt16(32767, 1), base::Failure);
}

TEST(Numbers, NumberText_HasAtMost15Digits_ClockText_ShowsHoursFromOneHourOn) {
    for (const auto& [value, text] :
         {std::pair{1.2000000000000002, u"1.2"}, {-3, u"-3"}, {100000, u"100000"}})
        EXPECT_EQ(base::numberText(value), text);
    for (const auto& [seconds, text] : {std::pair{-3., u"00:00"},
                                        {59.999, u"00:59"},
                                        {3599.9, u"59:59"},
                                        {3600, u"1:00:00"},
                                        {360000, u"100:00:00"}})
        EXPECT_EQ(base::clockText(seconds), text);
}
