// SPDX-License-Identifier: MIT
#include "LinkPolicy.h"

#include <QUrl>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

struct LinkRow {
    const char* link;
    bool isOpened;
};

TEST(LinkPolicy, mayOpen_tableOfLinks_isForPagesAndMailOnly)
{
    for (const LinkRow& row : std::initializer_list<LinkRow>{
             {"https://example.org/a?b=c#d", true},
             {"http://example.org", true},
             {"HTTPS://EXAMPLE.ORG", true},
             {"mailto:someone@example.org", true},
             {"https:", false},
             {"https:///etc/passwd", false},
             {"file:///etc/passwd", false},
             {"ftp://example.org/", false},
             {"javascript:alert(1)", false},
             {"data:text/html,x", false},
             {"ssh://example.org", false},
             {"x-scheme:run", false},
             {"notes.txt", false},
             {"//example.org/", false},
             {"#anchor", false},
             {"", false},
             {"http://[broken", false},
         })
        EXPECT_EQ(mayOpen(QUrl(QString::fromLatin1(row.link))), row.isOpened) << row.link;
}

} // namespace
} // namespace sablequill
