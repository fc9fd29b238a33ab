// SPDX-License-Identifier: MIT
#include "Veil.h"

#include "CaptureShield.h"
#include "Veils.h"

#include <QApplication>
#include <QImage>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

/// A shield that lets windows wait as the test says.
class StubShield final : public CaptureShield {
public:
    void setWanted(bool) override { }
    bool mustWait(WId) const override { return isWaiting; }
    bool canHide() const override { return isAble; }
    void setWaiting(bool next)
    {
        isWaiting = next;
        Q_EMIT waitingChanged();
    }

    bool isWaiting = false;
    bool isAble = true;
};

class VeilTest : public testing::Test {
protected:
    VeilTest()
    {
        window.setAttribute(Qt::WA_TranslucentBackground);
        window.resize(60, 40);
        content->setAutoFillBackground(true);
        content->setPalette(Qt::red);
        content->resize(window.size());
    }

    bool isSeen()
    {
        QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        window.render(&image, {}, {}, QWidget::DrawChildren);
        const bool isRed = image.pixelColor(30, 20) == QColor(Qt::red);
        EXPECT_TRUE(isRed || image.pixelColor(30, 20).alpha() == 0);
        EXPECT_EQ(image.pixelColor(59, 39), image.pixelColor(0, 0));
        return isRed;
    }

    StubShield shield;
    QWidget window;
    QWidget* content = new QWidget(&window);
    Veil* veil = new Veil(window, shield);
};

TEST_F(VeilTest, show_nothingToWaitFor_contentIsSeen)
{
    window.show();
    EXPECT_TRUE(isSeen());
}

TEST_F(VeilTest, show_mustWait_nothingIsSeenUntilItNeedNot)
{
    shield.isWaiting = true;
    window.show();
    EXPECT_FALSE(isSeen());
    window.resize(90, 70);
    content->resize(window.size());
    EXPECT_FALSE(isSeen());
    shield.setWaiting(true);
    EXPECT_FALSE(isSeen());
    shield.setWaiting(false);
    EXPECT_TRUE(isSeen());
}

TEST_F(VeilTest, show_contentMadeLater_isNotSeenEither)
{
    delete content;
    content = new QWidget(&window);
    content->setAutoFillBackground(true);
    content->setPalette(Qt::red);
    content->resize(window.size());
    shield.isWaiting = true;
    window.show();
    EXPECT_FALSE(isSeen());
}

TEST_F(VeilTest, mustWait_windowAlreadySeen_staysSeen)
{
    window.show();
    shield.setWaiting(true);
    EXPECT_TRUE(isSeen());
}

TEST_F(VeilTest, show_windowThatIsNotTranslucent_isBlank)
{
    window.setAttribute(Qt::WA_TranslucentBackground, false);
    window.setPalette(Qt::gray);
    shield.isWaiting = true;
    window.show();
    QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
    window.render(&image, {}, {}, QWidget::DrawChildren);
    EXPECT_EQ(image.pixelColor(30, 20), window.palette().window().color());
    shield.setWaiting(false);
    EXPECT_TRUE(isSeen());
}

class VeilsTest : public testing::Test {
protected:
    static bool isVeiled(const QWidget& window)
    {
        const auto* veil = window.findChild<Veil*>(QString(), Qt::FindDirectChildrenOnly);
        return veil && veil->isVisible();
    }

    StubShield shield;
    Veils veils{shield};
};

TEST_F(VeilsTest, show_again_hasOneVeil)
{
    shield.isWaiting = true;
    QWidget window;
    for (int time = 0; time < 3; ++time) {
        window.show();
        EXPECT_TRUE(isVeiled(window));
        window.hide();
    }
    EXPECT_EQ(window.findChildren<Veil*>().size(), 1);
}

TEST_F(VeilsTest, show_nothingToWaitFor_hasNoVeil)
{
    QWidget window;
    window.show();
    EXPECT_TRUE(window.findChildren<Veil*>().empty());
}

TEST_F(VeilsTest, show_nothingCanEverBeHidden_eventsAreNotLookedAt)
{
    StubShield unable;
    unable.isAble = false;
    unable.isWaiting = true;
    const Veils idle(unable);
    QWidget window;
    window.show();
    EXPECT_TRUE(window.findChildren<Veil*>().empty());
}

TEST_F(VeilsTest, show_partOfAWindow_hasNoVeilOfItsOwn)
{
    QWidget window;
    QWidget part(&window);
    window.show();
    shield.isWaiting = true;
    part.hide();
    part.show();
    EXPECT_TRUE(window.findChildren<Veil*>().empty());
}

TEST_F(VeilTest, show_againAfterTheWaitEndedHidden_contentIsSeen)
{
    shield.isWaiting = true;
    window.show();
    window.hide();
    shield.setWaiting(false);
    window.show();
    EXPECT_TRUE(isSeen());
}

} // namespace
} // namespace sablequill
