// SPDX-License-Identifier: MIT
#include "AboutSettingsTab.h"

#include "Ink.h"
#include "SymbolView.h"
#include "TextLabel.h"
#include "Widgets.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class AboutSettingsTabTest : public testing::Test {
protected:
    AboutSettingsTabTest()
    {
        tab.resize(520, 340);
        present(tab);
    }

    QRect frame(int label) { return frameIn(tab, *labels.at(label)); }

    AboutSettingsTab tab;
    QList<TextLabel*> labels = tab.findChildren<TextLabel*>();
    SymbolView* symbol = tab.findChild<SymbolView*>();
};

TEST_F(AboutSettingsTabTest, texts_all_areExact)
{
    EXPECT_EQ(textsIn(tab),
        QStringList({QStringLiteral("Sablequill"),
            QStringLiteral("Floating teleprompter for creators.\n"
                           "Keep your notes visible while presenting.")}));
}

TEST_F(AboutSettingsTabTest, styles_each_areAsSet)
{
    EXPECT_EQ(symbol->symbol().name, QStringLiteral("note.text"));
    EXPECT_EQ(symbol->symbol().size, 48);
    EXPECT_EQ(symbol->ink(), (Ink{InkRole::primary, 0.8}));
    EXPECT_EQ(labels[0]->style(), TextStyles::title2.weighted(QFont::DemiBold));
    EXPECT_EQ(labels[1]->style(), TextStyles::callout);
    EXPECT_EQ(labels[1]->ink(), Ink{InkRole::secondary});
    EXPECT_TRUE(labels[1]->alignment() & Qt::AlignHCenter);
}

TEST_F(AboutSettingsTabTest, layout_always_standsAtTheTopAndInTheMiddle)
{
    const QRect picture = frameIn(tab, *symbol);
    EXPECT_EQ(picture.top(), 16 + 24);
    EXPECT_NEAR(picture.center().x(), 260, 1);
    EXPECT_NEAR(frame(0).center().x(), 260, 1);
    EXPECT_NEAR(frame(1).center().x(), 260, 1);
    EXPECT_EQ(frame(0).top(), picture.bottom() + 1 + 16);
    EXPECT_EQ(frame(1).top(), frame(0).bottom() + 1 + 16);
    EXPECT_EQ(frame(1).height(), labels[1]->heightForWidth(frame(1).width()));
}

} // namespace
} // namespace sablequill
