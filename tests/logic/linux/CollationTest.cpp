// SPDX-License-Identifier: MIT
#include "platform/linux/Collation.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <cstdlib>
#include <string>

namespace vtx::test {
namespace {

Collation collationOf(const char* variable, std::string value) {
    return Collation([=](std::string_view name) -> std::optional<std::string> {
        return name == variable ? std::optional(value) : std::nullopt;
    });
}

TEST(Collation, case_does_not_matter) {
    const auto c = collationOf("LANG", "C.UTF-8");
    EXPECT_EQ(c.key("Files and more files"), c.key("FILES AND MORE files"));
    EXPECT_EQ(c.key("Äpfel und ÖL"), c.key("äpfel und öl"));
    EXPECT_EQ(c.key("ЖУРНАЛ"), c.key("журнал"));
    EXPECT_LT(c.key("apple"), c.key("Banana"));
    EXPECT_LT(c.key("Apple"), c.key("banana"));
    EXPECT_NE(c.key("a"), c.key("ä"));
}

TEST(Collation, a_beginning_sorts_before_what_continues_it) {
    const auto c = collationOf("LANG", "C.UTF-8");
    EXPECT_LT(c.key(""), c.key("a"));
    EXPECT_LT(c.key("a"), c.key("aa"));
}

TEST(Collation, texts_of_any_length_and_of_any_bytes_have_a_key) {
    const auto c = collationOf("LANG", "C.UTF-8");
    const std::string large(5000, 'x');
    EXPECT_LT(c.key(large), c.key(large + "a"));
    EXPECT_EQ(c.key("\xFF"), c.key("\xFE"));  // neither is a character
    EXPECT_EQ(c.key(std::string("a\0b", 3)), c.key("a"));
    EXPECT_EQ(c.key("\U0001F600"), c.key("\U0001F600"));
}

TEST(Collation, a_locale_that_is_not_there_sorts_by_the_characters) {
    const auto plain = collationOf("LANG", "C.UTF-8");
    for (const auto* name : {"xx_XX.UTF-8", "../..", "de_DE@nothing"}) {
        const auto c = collationOf("LC_ALL", name);
        EXPECT_EQ(c.key("Straße"), plain.key("straße")) << name;
    }
    const Collation none([](std::string_view) { return std::optional<std::string>(); });
    EXPECT_EQ(none.key("B"), plain.key("b"));
}

/// Where locales are looked for before the system's own, until the end of the scope.
class LocalesIn {
public:
    explicit LocalesIn(const char* folder) { ::setenv("LOCPATH", folder, 1); }
    ~LocalesIn() { ::unsetenv("LOCPATH"); }
    LocalesIn(const LocalesIn&) = delete;
    LocalesIn& operator=(const LocalesIn&) = delete;
};

TEST(Collation, a_language_sorts_its_letters_as_it_does) {
    const LocalesIn made(VANTRIX_TEST_LOCALES);
    const locale_t german = ::newlocale(LC_COLLATE_MASK, "de_DE.UTF-8", locale_t{});
    if (!german) GTEST_SKIP() << "this machine has no German locale, nor what makes one";
    ::freelocale(german);
    const auto c = collationOf("LC_COLLATE", "de_DE.UTF-8");
    EXPECT_LT(c.key("Apfel"), c.key("Äpfel"));
    EXPECT_LT(c.key("Äpfel"), c.key("Birne"));
    EXPECT_LT(c.key("журнал"), c.key("ЯБЛОКО"));
    EXPECT_EQ(c.key("ÄPFEL"), c.key("äpfel"));
    EXPECT_NE(c.key("愛"), c.key("安"));
}

}  // namespace
}  // namespace vtx::test
