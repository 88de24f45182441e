#include <kyr/core/KyrStructVector.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

using Kyr::StructVector;

// The heaps of sanitizers end the process where the C heap says no, unless told otherwise.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the names are the sanitizers'
extern "C" KYR_EXPORT const char* __asan_default_options() {
  return "allocator_may_return_null=1";
}
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" KYR_EXPORT const char* __tsan_default_options() {
  return "allocator_may_return_null=1";
}

namespace {

using Numbers = StructVector<std::uint32_t>;

Numbers numbers(std::initializer_list<std::uint32_t> values, std::size_t capacity = 0) {
  Numbers made;
  made.reserve(capacity);
  made.append(values.begin(), values.size());
  return made;
}

std::vector<std::uint32_t> contents(const Numbers& vector) {
  return {vector.begin(), vector.end()};
}

}  // namespace

TEST(StructVector, ChangesCapacityByASignedAmount) {
  struct {
    std::ptrdiff_t difference;
    std::size_t capacity;
    const char* catches;
  } const rows[] = {
      {4, 12, "growing"},
      {0, 8, "a change of nothing"},
      {-2, 6, "trimming"},
      {-6, 3, "elements cut off"},
      {-100, 3, "a capacity below zero"},
      {PTRDIFF_MIN, 3, "a difference without a positive twin"},
  };
  for (const auto& row : rows) {
    auto vector = numbers({7, 8, 9}, 8);
    vector.changeCapacity(row.difference);
    EXPECT_EQ(vector.capacity(), row.capacity) << row.catches;
    EXPECT_EQ(contents(vector), (std::vector<std::uint32_t>{7, 8, 9})) << row.catches;
  }
}

TEST(StructVector, RefusesHostileSizesUnchanged) {
  const std::uint32_t one = 1;
  const std::size_t wraps = SIZE_MAX / sizeof one + 2;  // in bytes this is 4 again
  using Operation = std::function<void(Numbers&)>;
  const std::pair<Operation, const char*> rows[] = {
      {[=](Numbers& v) { v.reserve(wraps); }, "bytes that wrap round"},
      {[=](Numbers& v) { v.setSize(wraps); }, "a size without memory behind it"},
      {[](Numbers& v) { v.reserve(SIZE_MAX); }, "doubling past the end"},
      {[](Numbers& v) { v.changeCapacity(PTRDIFF_MAX); }, "capacity that wraps round"},
      {[&](Numbers& v) { v.append(&one, SIZE_MAX); }, "size and count that wrap to less"},
      {[&](Numbers& v) { v.append(&one, wraps); }, "a copy of more than was asked for"},
      {[](Numbers& v) { v.reserve(PTRDIFF_MAX / 4); }, "the old block lost when the heap is out"},
      {[=](Numbers&) { const Numbers made(wraps, 0); }, "a constructor that fills past the end"},
  };
  for (const auto& [operation, catches] : rows) {
    auto vector = numbers({7, 8, 9}, 8);
    const auto* const data = vector.data();
    EXPECT_THROW(operation(vector), std::bad_alloc) << catches;
    EXPECT_EQ(contents(vector), (std::vector<std::uint32_t>{7, 8, 9})) << catches;
    EXPECT_TRUE(vector.capacity() == 8 && vector.data() == data) << catches;
  }
}

TEST(StructVector, AppendsItsOwnElementsWhileMoving) {
  auto vector = numbers({1, 2, 3}, 3);
  for (int round = 0; round < 12; ++round) {
    vector.trim();
    vector.append(vector[1]);
    vector.trim();
    vector.append(vector.data() + 1, 2);
  }
  ASSERT_EQ(vector.size(), 39U);
  for (std::size_t i = 3; i < 39; i += 3) {
    EXPECT_TRUE(vector[i] == 2 && vector[i + 1] == 2 && vector[i + 2] == 3) << i;
  }
}

TEST(StructVector, GrowsInFewSteps) {
  StructVector<unsigned char> vector;
  int steps = 0;
  for (int i = 0; i < 1000000; ++i) {
    const auto before = vector.capacity();
    vector.append(static_cast<unsigned char>(i));
    steps += vector.capacity() != before ? 1 : 0;
  }
  EXPECT_LE(steps, 40) << "growth by a constant makes appending quadratic";
  EXPECT_EQ(vector[999999], 0x3F);
  vector.trim();
  EXPECT_EQ(vector.capacity(), 1000000U);
}

TEST(StructVector, CopiesDeeplyAndMovesTheBlock) {
  auto vector = numbers({1, 2, 3});
  Numbers copy(vector);
  copy[0] = 9;
  EXPECT_TRUE(copy != vector && vector == numbers({1, 2, 3}));
  const auto* const block = copy.data();
  Numbers moved(std::move(copy));
  EXPECT_EQ(moved.data(), block);
  vector = std::move(moved);
  EXPECT_EQ(vector.data(), block);
  auto& same = vector;
  vector = same;
  vector = std::move(same);
  EXPECT_EQ(vector, numbers({9, 2, 3}));
  vector.clear();
  vector.trim();
  EXPECT_TRUE(vector.empty() && vector.capacity() == 0 && vector == Numbers());
  EXPECT_EQ(Numbers(2, 5), numbers({5, 5}));
}
