// SPDX-License-Identifier: MIT
#include "HtmlOpeners.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace sablequill {
namespace {

using Positions = std::vector<std::size_t>;

struct OpenersCase {
    const char* name;
    std::string text;
    Positions unclosed;
};

constexpr auto rowName = [](const auto& info) { return std::string(info.param.name); };

std::ostream& operator<<(std::ostream& out, const OpenersCase& row)
{
    return out << row.name;
}

class HtmlOpeners : public testing::TestWithParam<OpenersCase> { };

TEST_P(HtmlOpeners, unclosedHtmlOpeners_row_givesThesePositions)
{
    EXPECT_EQ(InlineMarkdown::unclosedHtmlOpeners(GetParam().text), GetParam().unclosed);
}

INSTANTIATE_TEST_SUITE_P(Instructions, HtmlOpeners,
    testing::Values(OpenersCase{"none", "a < b", {}}, OpenersCase{"empty", "", {}},
        OpenersCase{"closed", "<?a?>", {}}, OpenersCase{"closedAtOnce", "<?\?>", {}},
        OpenersCase{"unclosed", "x<?a>", {1}}, OpenersCase{"atTheEnd", "<?", {0}},
        OpenersCase{"sharedQuestionMark", "<?>", {0}},
        OpenersCase{"evenQuestionMarks", "<?a?\?>", {0}},
        OpenersCase{"oddQuestionMarks", "<?a??\?>", {}}, OpenersCase{"closedBeforeIt", "?><?", {2}},
        OpenersCase{"oneEndForTwo", "<?a<?b?>", {}}, OpenersCase{"onlyTheSecond", "<?a?><?b", {5}},
        OpenersCase{"falseEndForTheInner", "<?x<?\?\?>", {3}},
        OpenersCase{"severalInOrder", "<?<?<?", {0, 2, 4}}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Sections, HtmlOpeners,
    testing::Values(OpenersCase{"closed", "<![CDATA[a]]>", {}},
        OpenersCase{"closedAtOnce", "<![CDATA[]]>", {}}, OpenersCase{"unclosed", "<![CDATA[a", {0}},
        OpenersCase{"oneBracket", "<![CDATA[a]>", {0}},
        OpenersCase{"threeBrackets", "<![CDATA[a]]]>", {0}},
        OpenersCase{"bracketThenEnd", "<![CDATA[] ]]>", {}},
        OpenersCase{"bracketBeforeIt", "]]><![CDATA[", {3}}, OpenersCase{"cutName", "<![CDAT", {}},
        OpenersCase{"smallName", "<![cdata[", {}}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Declarations, HtmlOpeners,
    testing::Values(OpenersCase{"closed", "<!A b>", {}}, OpenersCase{"unclosed", "<!A b", {0}},
        OpenersCase{"smallName", "<!a b", {}}, OpenersCase{"noName", "<!", {}},
        OpenersCase{"comment", "<!--a", {}}, OpenersCase{"endBeforeIt", "> <!Z", {2}}),
    rowName);

INSTANTIATE_TEST_SUITE_P(MailAddresses, HtmlOpeners,
    testing::Values(OpenersCase{"instruction", "<?a@b.c>", {}},
        OpenersCase{"declarationNotEnded", "<!A@b", {0}}, OpenersCase{"noDomain", "<?a@>", {0}},
        OpenersCase{"endsWithPoint", "<?a@b.>", {0}},
        OpenersCase{"startsWithHyphen", "<?@-b>", {0}},
        OpenersCase{"endsWithHyphen", "<?@b-.c>", {0}}, OpenersCase{"innerHyphen", "<?@b-c>", {}},
        OpenersCase{"longestLabel", "<?@" + std::string(63, 'b') + ">", {}},
        OpenersCase{"tooLongLabel", "<?@" + std::string(64, 'b') + ">", {0}},
        OpenersCase{"spaceInName", "<?a b@c>", {0}}, OpenersCase{"notEnded", "<?a@b", {0}}),
    rowName);

} // namespace
} // namespace sablequill
