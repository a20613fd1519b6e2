#include "Platform/linux/FileUri.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct Row {
    const char* rule;
    QString uri;
    std::optional<QString> path;
};

TEST(FileUriTest, Paths)
{
    const Row rows[] = {
        {"plain", u"file:///home/ada/Vault"_qs, u"/home/ada/Vault"_qs},
        {"blanks", u"file:///My%20Vault"_qs, u"/My Vault"_qs},
        {"umlauts", u"file:///%C3%A4%c3%b6"_qs, u"/\u00e4\u00f6"_qs},
        {"umlauts as they are", u"file:///\u00e4"_qs, u"/\u00e4"_qs},
        {"percent sign", u"file:///100%25%20"_qs, u"/100% "_qs},
        {"escaped signs of addresses", u"file:///a%3Fb%23c"_qs, u"/a?b#c"_qs},
        {"an emoji", u"file:///%F0%9F%93%93"_qs, u"/\U0001F4D3"_qs},
        {"of the document portal", u"file:///run/user/1000/doc/1a2b/Vault"_qs,
         u"/run/user/1000/doc/1a2b/Vault"_qs},
        {"slash at the end", u"file:///v//"_qs, u"/v"_qs},
        {"root", u"file:///"_qs, u"/"_qs},
        {"this machine by name", u"file://localhost/v"_qs, u"/v"_qs},
        {"without a host's place", u"file:/v"_qs, u"/v"_qs},
        {"another machine", u"file://nas/v"_qs, std::nullopt},
        {"another scheme", u"smb://host/v"_qs, std::nullopt},
        {"no scheme", u"/v"_qs, std::nullopt},
        {"no path", u"file://"_qs, std::nullopt},
        {"no text", u"file:///%FF"_qs, std::nullopt},
        {"end of a name", u"file:///a%00b"_qs, std::nullopt},
        {"broken code", u"file:///a%2"_qs, std::nullopt},
        {"nothing", QString(), std::nullopt},
    };
    for (const Row& row : rows)
        EXPECT_EQ(localPathOf(row.uri), row.path) << row.rule;
}

} // namespace

} // namespace jotwell
