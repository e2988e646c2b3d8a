#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include "nav/navigation.h"
#include "types.h"

using namespace std::string_literals;

// Serializes and deserializes values of the types in generated headers.

namespace {

template <typename T>
T ThereAndBack(const T& value) {
  zentho::BytesBuffer buffer;
  zentho::serialize(value, buffer);
  T result;
  zentho::deserialize(buffer, result);
  EXPECT_EQ(buffer.unread(), 0U);
  return result;
}

const Numbers least = {INT8_MIN, INT16_MIN, INT32_MIN, INT64_MIN, 0, 0, 0, 0, -0.5F, -1e300};
const Numbers most = {INT8_MAX,   INT16_MAX,  INT32_MAX,  INT64_MAX, UINT8_MAX,
                      UINT16_MAX, UINT32_MAX, UINT64_MAX, 3e38F,     5e-324};

auto Fields(const Numbers& n) {
  return std::tie(n.a, n.b, n.c, n.d, n.e, n.f, n.g, n.h, n.x, n.y);
}

TEST(RoundTrip, PreservesAllKindsOfLists) {
  Echo::Request request;
  request.text = "zero \0 byte"s;
  request.color = RED;
  request.lists.numbers = {least, most};
  request.lists.nothings.resize(1000);
  request.lists.colors = {{BLUE, GREEN}, {}, {RED}};
  request.lists.texts = {{{"a", ""}, {}}, {}, {{"\0"s}}};

  const Echo::Request result = ThereAndBack(request);
  EXPECT_EQ(result.text, request.text);
  EXPECT_EQ(result.color, RED);
  ASSERT_EQ(result.lists.numbers.size(), 2U);
  EXPECT_EQ(Fields(result.lists.numbers[0]), Fields(least));
  EXPECT_EQ(Fields(result.lists.numbers[1]), Fields(most));
  EXPECT_EQ(result.lists.nothings.size(), 1000U);
  EXPECT_EQ(result.lists.colors, request.lists.colors);
  EXPECT_EQ(result.lists.texts, request.lists.texts);
}

TEST(RoundTrip, OverwritesOldValues) {
  zentho::BytesBuffer buffer;
  zentho::serialize(Echo::Response{most, {{INT32_MIN, 0, INT32_MAX}, {}}}, buffer);
  Echo::Response result{least, {{1}, {2}, {3}}};
  zentho::deserialize(buffer, result);
  EXPECT_EQ(Fields(result.numbers), Fields(most));
  EXPECT_EQ(result.grid, (std::vector<std::vector<std::int32_t>>{{INT32_MIN, 0, INT32_MAX}, {}}));
}

TEST(RoundTrip, WritesFieldsInOrder) {
  zentho::BytesBuffer buffer;
  zentho::serialize(robot::geometry::Pose{{1.5, -2.5}, 3.5}, buffer);
  for (const double expected : {1.5, -2.5, 3.5}) {
    double value = 0;
    zentho::deserialize(buffer, value);
    EXPECT_EQ(value, expected);
  }
}

TEST(RoundTrip, PreservesTypesOfAnotherNamespace) {
  EXPECT_EQ(ThereAndBack(robot::nav::Route{"dock", {{{1, 2}, 3}}, {}}).waypoints[0].heading, 3);
  using robot::nav::Stop;
  EXPECT_EQ(ThereAndBack(Stop::Response{{robot::status::FAULT, "", 7}}).report.level, 0x10);
}

}  // namespace
