#include "platform/Value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zavel {
namespace {

TEST(Value, IsNullWhenNew) {
  const Value value;
  EXPECT_TRUE(value.isNull());
  EXPECT_EQ(value.integer(7), 7);
  EXPECT_EQ(value.string("x"), "x");
  EXPECT_EQ(value.find("a"), nullptr);
}

TEST(Value, CountsBooleansAndCutsRealsAsIntegers) {
  EXPECT_EQ(Value(true).integer(), 1);
  EXPECT_EQ(Value(false).integer(9), 0);
  EXPECT_EQ(Value(2.9).integer(), 2);
  EXPECT_EQ(Value(-2.9).integer(), -2);
  EXPECT_EQ(Value("12").integer(5), 5);
}

TEST(Value, GivesTheFallbackForRealsOutsideTheIntegers) {
  EXPECT_EQ(Value(1e19).integer(5), 5);
  EXPECT_EQ(Value(-1e19).integer(5), 5);
  EXPECT_EQ(Value(std::nan("")).integer(5), 5);
  EXPECT_EQ(Value(std::numeric_limits<double>::infinity()).integer(5), 5);
}

TEST(Value, GivesNumbersAsReals) {
  EXPECT_EQ(Value(3).real(), 3.0);
  EXPECT_EQ(Value(true).real(), 1.0);
  EXPECT_EQ(Value(0.5).real(9), 0.5);
  EXPECT_EQ(Value("0.5").real(9), 9.0);
}

TEST(Value, TakesIntegersForBooleansAndNothingElse) {
  EXPECT_TRUE(Value(2).boolean());
  EXPECT_FALSE(Value(0).boolean(true));
  EXPECT_TRUE(Value(1.0).boolean(true));
  EXPECT_FALSE(Value(1.0).boolean(false));
  EXPECT_FALSE(Value("YES").boolean());
}

TEST(Value, FindsMembersOfMaps) {
  const Value map(Value::Dict{{"a", 1}, {"b", "two"}});
  ASSERT_NE(map.find("b"), nullptr);
  EXPECT_EQ(map.find("b")->string(), "two");
  EXPECT_EQ(map.find("c"), nullptr);
  EXPECT_EQ(Value("a").find("a"), nullptr);
}

TEST(Value, CopiesDeeply) {
  Value one(Value::Array{Value(Value::Dict{{"a", 1}})});
  const Value two = one;
  (*(*one.asArray())[0].asDict())["a"] = 2;
  EXPECT_EQ((*two.asArray())[0].find("a")->integer(), 1);
  EXPECT_NE(one, two);
}

TEST(Value, ComparesByTypeAndContent) {
  EXPECT_EQ(Value("a"), Value(std::string("a")));
  EXPECT_NE(Value(1), Value(true));
  EXPECT_NE(Value(1), Value(1.0));
  EXPECT_NE(Value("a"), Value(Value::Data{"a"}));
  EXPECT_EQ(Value(Value::Date{1.5}), Value(Value::Date{1.5}));
  EXPECT_EQ(Value(), Value());
}

}  // namespace
}  // namespace zavel
