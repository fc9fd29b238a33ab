// SPDX-License-Identifier: MIT
#include "MirkDescription.h"

#include <QSet>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

constexpr MirkEffect effects[]{
    MirkEffect::unknown, MirkEffect::hidden, MirkEffect::blackBox, MirkEffect::none};

TEST(MirkDescriptionTest, mirkDescription_eachEffect_isASentenceOfItsOwn)
{
    QSet<QString> texts;
    for (const MirkEffect effect : effects) {
        const QString text = mirkDescription(effect);
        EXPECT_TRUE(text.endsWith(u'.')) << text.toStdString();
        EXPECT_TRUE(text.contains(u"Sablequill")) << text.toStdString();
        texts.insert(text);
    }
    EXPECT_EQ(texts.size(), qsizetype{std::size(effects)});
}

TEST(MirkDescriptionTest, mirkDescription_noProtection_saysWhatToDoInstead)
{
    const QString text = mirkDescription(MirkEffect::none);
    EXPECT_TRUE(text.contains(u"cannot be hidden")) << text.toStdString();
    EXPECT_TRUE(text.contains(u"share a single window instead")) << text.toStdString();
}

} // namespace
} // namespace sablequill
