// SPDX-License-Identifier: MIT
#include "CrossFade.h"

#include "TextLabel.h"
#include "Widgets.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class CrossFadeTest : public testing::Test {
protected:
    CrossFadeTest()
    {
        window.resize(100, 40);
        view->resize(100, 40);
        present(window);
    }

    QWidget window;
    TextLabel* view = new TextLabel(
        QStringLiteral("before"), TextStyles::title, {}, TextLabel::Lines::one, &window);
    CrossFade fade{view, 0.22};
};

TEST_F(CrossFadeTest, begin_shownView_fadesAndEnds)
{
    fade.begin();
    EXPECT_TRUE(fade.isFading());
    EXPECT_TRUE(fade.isVisible());
    view->setText(QStringLiteral("after"));
    EXPECT_TRUE(waitFor([&] { return !fade.isFading(); }));
    EXPECT_FALSE(fade.isVisible());
    EXPECT_EQ(view->graphicsEffect(), nullptr);
}

TEST_F(CrossFadeTest, begin_whileFading_startsOver)
{
    fade.begin();
    waitFor([&] { return view->graphicsEffect() != nullptr; });
    fade.begin();
    EXPECT_TRUE(fade.isFading());
    EXPECT_TRUE(waitFor([&] { return !fade.isFading(); }));
    EXPECT_EQ(view->graphicsEffect(), nullptr);
}

TEST_F(CrossFadeTest, begin_firstFrame_stillShowsWhatWasThere)
{
    const QImage before = picture(window);
    fade.begin();
    view->setText(QStringLiteral("after"));
    EXPECT_EQ(picture(fade), before);
}

TEST_F(CrossFadeTest, begin_hiddenView_doesNothing)
{
    window.hide();
    fade.begin();
    EXPECT_FALSE(fade.isFading());
    EXPECT_EQ(view->graphicsEffect(), nullptr);
}

} // namespace
} // namespace sablequill
