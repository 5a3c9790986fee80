#include "tools/recording/ReadableJson.h"

#include <gtest/gtest.h>

namespace {

using recording::ReadableJson;
using Json = nlohmann::ordered_json;

TEST(ReadableJsonTest, WhatFitsIsOnOneLine) {
    EXPECT_EQ(ReadableJson({{"b", {1, 2}}, {"a", "text"}}), "{\"b\":[1,2],\"a\":\"text\"}\n");
}

TEST(ReadableJsonTest, WhatDoesNotIsIndented) {
    const std::string longText(120, 'x');
    EXPECT_EQ(ReadableJson({{"list", {longText, Json{{"a", 1}}}}, {"number", 1}}),
              "{\n \"list\": [\n  \"" + longText + "\",\n  {\"a\":1}\n ],\n \"number\": 1\n}\n");
}

TEST(ReadableJsonTest, IsReadAsTheSameValue) {
    const Json json = {{"empty", Json::array()},
                       {"none", Json::object()},
                       {"deep", {{{"text", std::string(200, 'y')}}, nullptr, true}}};
    EXPECT_EQ(Json::parse(ReadableJson(json)), json);
}

TEST(ReadableJsonTest, BytesThatAreNotUtf8AreReplaced) {
    EXPECT_EQ(ReadableJson({{"name", "\xFF"}}), "{\"name\":\"\xEF\xBF\xBD\"}\n");
}

}  // namespace
