// SPDX-License-Identifier: MIT
#include "platform/linux/DefaultsDocument.h"

#include <gtest/gtest.h>

#include "platform/linux/Base64.h"

namespace vtx {
namespace {

Data allBytes() {
    Data bytes;
    for (unsigned value = 0; value < 256; ++value) bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

}  // namespace

TEST(Base64, bytes_have_the_text_that_everybody_gives_them) {
    const std::pair<const char*, const char*> cases[] = {{"", ""},
                                                         {"f", "Zg=="},
                                                         {"fo", "Zm8="},
                                                         {"foo", "Zm9v"},
                                                         {"foob", "Zm9vYg=="},
                                                         {"fooba", "Zm9vYmE="},
                                                         {"foobar", "Zm9vYmFy"}};
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(toBase64(toData(bytes)), text);
        EXPECT_EQ(fromBase64(text), toData(bytes));
    }
    EXPECT_EQ(fromBase64(toBase64(allBytes())), allBytes());
}

TEST(Base64, a_text_that_no_bytes_have_is_refused) {
    for (const char* text : {"Z", "Zg", "Zg=", "Zh==", "Zm9=", "====", "Z===", "=Zg=", "Zg==Zg==",
                             "Zm9v\n", "Zm-_", " Zm9", "Zm9vZg=", "\xc3\xa4zz"}) {
        EXPECT_EQ(fromBase64(text), std::nullopt) << text;
    }
}

TEST(DefaultsDocument, text_is_a_string_and_other_bytes_are_base64) {
    DefaultsDocument document;
    document.values["text"] = toData("{\"a\":\"\xc3\xa4\"}");
    document.values["bytes"] = toData("\xff\xfe");
    EXPECT_EQ(formatDefaults(document),
              "{\n  \"bytes\": {\"base64\": \"//4=\"},\n  \"text\": "
              "\"{\\\"a\\\":\\\"\xc3\xa4\\\"}\"\n}\n");
}

TEST(DefaultsDocument, values_of_every_kind_come_back) {
    DefaultsDocument document;
    document.values["bytes"] = allBytes();
    document.values["empty"] = {};
    document.values["zero"] = Data(3, std::byte{0});
    document.values["cut"] = toData("\xe2\x82");
    document.values["surrogate"] = toData("\xed\xa0\x80");
    document.values[""] = toData("no name");
    document.values["\"\\\n"] = toData("\"\\\n\x01");
    EXPECT_EQ(parseDefaults(formatDefaults(document)), document);
}

TEST(DefaultsDocument, members_of_other_forms_come_back_as_they_were) {
    const auto document = parseDefaults(
        R"({"n":null,"t":true,"i":-12345678901234,"f":0.1,"a":[1,{"b":"c"}],"o":{},)"
        R"("two":{"base64":"Zg==","x":1},"bad":{"base64":"Zg"},"num":{"base64":5},"s":"text"})");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->values, (decltype(document->values){{"s", toData("text")}}));
    EXPECT_EQ(document->foreign, (decltype(document->foreign){{"n", "null"},
                                                              {"t", "true"},
                                                              {"i", "-12345678901234"},
                                                              {"f", "0.1"},
                                                              {"a", R"([1,{"b":"c"}])"},
                                                              {"o", "{}"},
                                                              {"two", R"({"base64":"Zg==","x":1})"},
                                                              {"bad", R"({"base64":"Zg"})"},
                                                              {"num", R"({"base64":5})"}}));
    EXPECT_EQ(parseDefaults(formatDefaults(*document)), document);
}

TEST(DefaultsDocument, a_key_that_is_not_utf8_is_left_out_and_harms_no_other) {
    DefaultsDocument document;
    document.values["a"] = toData("1");
    document.values["\xff"] = toData("2");
    EXPECT_EQ(formatDefaults(document), "{\n  \"a\": \"1\"\n}\n");
}

TEST(DefaultsDocument, what_is_no_json_object_in_utf8_is_refused) {
    for (const std::string& text :
         {std::string(), std::string(" "), std::string("[]"), std::string("null"),
          std::string("\"{}\""), std::string("{"), std::string("{}}"), std::string("{\"a\":}"),
          std::string("{\"a\":\"\xff\"}"), std::string("{\"\xc3\":1}"), std::string("{}\0", 3),
          std::string(1'000'000, '['), std::string(4096, '\0')}) {
        EXPECT_EQ(parseDefaults(text), std::nullopt) << text.substr(0, 20);
    }
}

TEST(DefaultsDocument, a_file_cut_short_at_any_byte_is_refused) {
    DefaultsDocument document;
    document.values["text"] = toData("{\"showCPU\":true}");
    document.values["bytes"] = allBytes();
    std::string text = formatDefaults(document);
    text.resize(text.find_last_of('}'));
    for (std::size_t length = 0; length <= text.size(); ++length) {
        EXPECT_EQ(parseDefaults(std::string_view(text).substr(0, length)), std::nullopt) << length;
    }
}

}  // namespace vtx
