// The packed row ids of a list, beside the same ids in a plain vector.
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "platform/data/RowIds.h"

namespace tevra::detail {
namespace {

void ExpectSame(const RowIds& ids, const std::vector<std::int64_t>& plain) {
  ASSERT_EQ(ids.size(), plain.size());
  for (std::size_t row = 0; row < plain.size(); ++row) ASSERT_EQ(ids[row], plain[row]) << row;
}

TEST(RowIdsTest, HoldsAnyIdsInAnyOrder) {
  std::mt19937_64 random(7);
  // Ranges of a block that take two, four and eight bytes, and one around 0.
  for (const std::int64_t range : {60'000LL, 65'537LL, 4'000'000'000LL, 8'000'000'000'000LL}) {
    RowIds ids;
    std::vector<std::int64_t> plain;
    for (int i = 0; i < 5000; ++i) {
      plain.push_back(static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(range)) -
                      range / 2);
      ids.push_back(plain.back());
    }
    ExpectSame(ids, plain);
    for (const std::size_t row : {0, 1023, 1024, 4999}) {
      plain[row] = std::numeric_limits<std::int64_t>::max() - static_cast<std::int64_t>(row);
      ids.Set(row, plain[row]);
    }
    ExpectSame(ids, plain);
    ids.clear();
    EXPECT_EQ(ids.size(), 0U);
  }
}

TEST(RowIdsTest, ABlockHoldsDistancesUpToItsWidth) {
  for (const std::int64_t distance : {65'535LL, 65'536LL, 4'294'967'295LL, 4'294'967'296LL}) {
    RowIds ids;
    std::vector<std::int64_t> plain{-5, distance - 5};
    for (std::int64_t i = 2; i < 1024; ++i) plain.push_back(i);
    for (const std::int64_t id : plain) ids.push_back(id);
    ExpectSame(ids, plain);
  }
}

TEST(RowIdsTest, FindsAnIdThatOccursTwice) {
  for (const std::int64_t step : {1LL, 1'000'000LL, 1'000'000'000'000LL}) {
    RowIds ids;
    EXPECT_TRUE(ids.AllDiffer());
    for (std::int64_t i = 3000; i > 0; --i) ids.push_back(i * step);
    EXPECT_TRUE(ids.AllDiffer());
    ids.Set(2999, 2 * step);
    EXPECT_FALSE(ids.AllDiffer());
    ids.Set(2999, 0);
    EXPECT_TRUE(ids.AllDiffer());
    ids.push_back(3000 * step);
    EXPECT_FALSE(ids.AllDiffer());
  }
}

}  // namespace
}  // namespace tevra::detail
