
#include "support/Support.h"

namespace {

using Numbers = Kyr::StructVector<std::uint32_t>;

Numbers numbers(std::initializer_list<std::uint32_t> values, std::size_t capacity = 0) {
  Numbers made;
  made.reserve(capacity);
  made.append(values.begin(), values.size());
  return made;
}

}  // namespace

TEST(StructVector, ChangesCapacityByASignedAmount) {
  const std::tuple<std::ptrdiff_t, std::size_t, const char*> rows[] = {
      {4, 12, "growing"},
      {-2, 6, "trimming"},
      {-6, 3, "elements cut off"},
      {-100, 3, "a capacity below zero"},
      {PTRDIFF_MIN, 3, "a difference without a positive twin"},
  };
  for (const auto& [difference, capacity, catches] : rows) {
    auto vector = numbers({7, 8, 9}, 8);
    vector.changeCapacity(difference);
    EXPECT_TRUE(vector.capacity() == capacity && vector == numbers({7, 8, 9})) << catches;
  }
}

TEST(StructVector, RefusesHostileSizesUnchanged) {
  static constexpr std::uint32_t one = 1;
  constexpr std::size_t wraps = SIZE_MAX / sizeof one + 2;  // in bytes this is 4 again
  const std::pair<void (*)(Numbers&), const char*> rows[] = {
      {[](Numbers& v) { v.setSize(wraps); }, "bytes that wrap round"},
      {[](Numbers& v) { v.reserve(SIZE_MAX); }, "doubling past the end"},
      {[](Numbers& v) { v.changeCapacity(PTRDIFF_MAX); }, "capacity that wraps round"},
      {[](Numbers& v) { v.append(&one, SIZE_MAX); }, "size and count that wrap to less"},
      {[](Numbers& v) { v.reserve(PTRDIFF_MAX / 4); }, "the old block lost when the heap is out"},
  };
  for (const auto& [grow, catches] : rows) {
    auto vector = numbers({7, 8, 9}, 8);
    EXPECT_THROW(grow(vector), std::bad_alloc) << catches;
    EXPECT_TRUE(vector.capacity() == 8 && vector == numbers({7, 8, 9})) << catches;
  }
}

TEST(StructVector, AppendsItsOwnElementsWhileMovingInFewSteps) {
  auto vector = numbers({1, 2, 3}, 3);
  int steps = 0;
  while (vector.size() < 1000000) {
    const auto before = vector.capacity();
    vector.append(vector[vector.size() - 3]);
    if (vector.size() < 1000) {
      vector.trim();
    }
    vector.append(vector.data() + vector.size() - 3, 2);
    steps += vector.size() > 1000 && vector.capacity() != before ? 1 : 0;
  }
  EXPECT_LE(steps, 40) << "growth by a constant makes appending quadratic";
  EXPECT_EQ(numbers({vector[999997], vector[999998], vector[999999]}), numbers({2, 3, 1}));
}

TEST(StructVector, HoldsAList) {
  EXPECT_EQ(Numbers({7, 8}), numbers({7, 8}));
  EXPECT_EQ(Numbers(3, 1), (Numbers{1, 1, 1})) << "a size in parentheses is still one";
  EXPECT_TRUE(Numbers{}.empty());
}

TEST(StructVector, CopiesDeeplyAndMovesTheBlock) {
  auto vector = numbers({1, 2, 3});
  Numbers copy(vector);
  copy[0] = 9;
  EXPECT_EQ(vector, numbers({1, 2, 3}));
  const auto* const block = copy.data();
  vector = std::move(copy);
  auto& same = vector;
  vector = std::move(same);
  EXPECT_TRUE(vector == numbers({9, 2, 3}) && vector.data() == block);
  vector.clear();
  vector.trim();
  EXPECT_TRUE(vector.capacity() == 0 && vector == Numbers());
}
