// SPDX-License-Identifier: MIT
#include "OnboardingView.h"

#include "Accessibility.h"
#include "AppFixture.h"
#include "Ink.h"
#include "PagedView.h"
#include "SymbolView.h"
#include "TextLabel.h"
#include "Widgets.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include <cstdlib>

namespace sablequill {
namespace {

const QString back = QStringLiteral("Back");
const QString next = QStringLiteral("Continue");
const QString finish = QStringLiteral("Get Started");

class OnboardingViewTest : public AppFixture {
protected:
    OnboardingViewTest()
    {
        present(view);
        view.activateWindow();
        QObject::connect(
            &appState, &ObservableObject::objectWillChange, &appState, [this] { ++announcements; });
    }

    /// The page at rest, with the buttons that belong to it.
    void turnTo(int page)
    {
        view.setCurrentPage(page);
        EXPECT_TRUE(waitFor([&] { return shownPages() == 1 && pageFrame(page).x() == 0; }));
    }

    QWidget& pageAt(int index)
    {
        static const QStringList names{QStringLiteral("welcomePage"),
            QStringLiteral("mirkModePage"), QStringLiteral("shortcutsPage")};
        return found(view, names[index]);
    }
    QRect pageFrame(int index) { return frameIn(view, pageAt(index)); }

    /// More than one while they slide.
    int shownPages()
    {
        int count = 0;
        for (const int page : {0, 1, 2})
            count += pageAt(page).isVisible() ? 1 : 0;
        return count;
    }

    static TextLabel& textIn(const QWidget& root, const QString& words)
    {
        for (TextLabel* label : root.findChildren<TextLabel*>())
            if (label->text() == words)
                return *label;
        qFatal("no text says %s", qPrintable(words));
    }
    TextLabel& text(const QString& words) { return textIn(view, words); }
    QRect frame(const QString& words) { return frameIn(view, text(words)); }
    QWidget& button(const QString& title) { return found(view, title); }
    void click(const QString& title) { QTest::mouseClick(&button(title), Qt::LeftButton); }
    void press(Qt::Key key)
    {
        QTest::keyClick(view.focusWidget() ? view.focusWidget() : &view, key);
    }

    QStringList shownButtons()
    {
        QStringList titles;
        for (const QString& title : {back, next, finish})
            if (button(title).isVisible())
                titles.append(title);
        return titles;
    }

    int announcements = 0;
    OnboardingView view{appState};
    QSignalSpy dismissals{&view, &OnboardingView::dismissed};
};

// Texts

TEST_F(OnboardingViewTest, texts_welcomePage_areExact)
{
    EXPECT_EQ(textsIn(view),
        QStringList({QStringLiteral("Welcome to Sablequill"),
            QStringLiteral("A floating teleprompter for calls, podcasts, Loom recordings, and "
                           "presentations."),
            next}));
}

TEST_F(OnboardingViewTest, texts_mirkModePage_areExact)
{
    turnTo(1);
    EXPECT_EQ(textsIn(view),
        QStringList({QStringLiteral("Mirk Mode"),
            QStringLiteral("Mirk mode keeps your notes on a separate display when possible.\n"
                           "Share your presentation screen — not the Sablequill screen."),
            QStringLiteral("2 monitors"),
            QStringLiteral("Sablequill moves to Display 2. Share Display 1 only."),
            QStringLiteral("1 monitor"),
            QStringLiteral("Share a specific window — not Entire Screen."),
            QStringLiteral("Enabled by default"), back, next}));
}

TEST_F(OnboardingViewTest, texts_shortcutsPage_areExactWhateverTheBindings)
{
    appState.hotkeyManager->updateShortcut(
        HotkeyAction::quickOpen, {45, KeyboardShortcutBinding::ModifierFlags::option});
    turnTo(2);
    EXPECT_EQ(textsIn(view),
        QStringList({QStringLiteral("Keyboard Shortcuts"), QStringLiteral("Toggle overlay"),
            QStringLiteral("⌘⇧G"), QStringLiteral("Quick open"), QStringLiteral("⌘⇧O"),
            QStringLiteral("Previous note"), QStringLiteral("⌘⇧↑"), QStringLiteral("Next note"),
            QStringLiteral("⌘⇧↓"), back, finish}));
}

TEST_F(OnboardingViewTest, styles_each_areAsSet)
{
    const auto expect = [&](const QString& words, TextStyle style, InkRole role) {
        EXPECT_EQ(text(words).style(), style) << words.toStdString();
        EXPECT_EQ(text(words).ink(), Ink{role}) << words.toStdString();
    };
    const TextStyle title = TextStyles::title.weighted(QFont::DemiBold);
    for (const QString& words : {QStringLiteral("Welcome to Sablequill"),
             QStringLiteral("Mirk Mode"), QStringLiteral("Keyboard Shortcuts")})
        expect(words, title, InkRole::primary);
    expect(QStringLiteral("2 monitors"), TextStyles::caption.weighted(QFont::DemiBold),
        InkRole::primary);
    expect(QStringLiteral("Share a specific window — not Entire Screen."), TextStyles::caption,
        InkRole::secondary);
    expect(QStringLiteral("Enabled by default"), TextStyles::callout, InkRole::primary);
    expect(QStringLiteral("Quick open"), TextStyles::body, InkRole::secondary);
    expect(QStringLiteral("⌘⇧O"), TextStyles::body, InkRole::primary);
}

TEST_F(OnboardingViewTest, symbols_each_areTheOnesNamed)
{
    std::vector<Ink> inks;
    QStringList names;
    for (const SymbolView* symbol : view.findChildren<SymbolView*>()) {
        names.append(symbol->symbol().name);
        inks.push_back(symbol->ink());
        if (symbol->symbol().name != QStringLiteral("checkmark.circle.fill")) {
            EXPECT_EQ(symbol->symbol().size, 56);
            EXPECT_EQ(symbol->symbol().weight, QFont::Light);
        }
    }
    EXPECT_EQ(names,
        QStringList({QStringLiteral("note.text"), QStringLiteral("eye.slash.fill"),
            QStringLiteral("checkmark.circle.fill"), QStringLiteral("command")}));
    EXPECT_EQ(inks,
        (std::vector<Ink>{{InkRole::primary, 0.75}, {InkRole::green}, {InkRole::green},
            {InkRole::primary, 0.75}}));
}

// Sizes

TEST_F(OnboardingViewTest, size_always_is480By420With340ForThePages)
{
    EXPECT_EQ(view.size(), QSize(480, 420));
    EXPECT_EQ(view.minimumSize(), view.maximumSize());
    for (int page = 0; page < 3; ++page) {
        turnTo(page);
        EXPECT_EQ(pageFrame(page), QRect(0, 0, 480, 340));
        EXPECT_EQ(view.size(), QSize(480, 420));
    }
}

TEST_F(OnboardingViewTest, size_textsOfOtherLengths_staysAsItIs)
{
    const QString title = QStringLiteral("Welcome to Sablequill");
    const QFont usual = QApplication::font();
    for (const double percent : {50.0, 200.0, 400.0}) {
        QFont spaced = usual;
        spaced.setLetterSpacing(QFont::PercentageSpacing, percent);
        QApplication::setFont(spaced);
        OnboardingView other(appState);
        QApplication::setFont(usual);
        present(other);
        EXPECT_GT(std::abs(textIn(other, title).width() - text(title).width()), 40) << percent;
        for (int page = 0; page < 3; ++page) {
            other.setCurrentPage(page);
            turn();
            EXPECT_EQ(other.size(), QSize(480, 420)) << percent;
            EXPECT_EQ(other.findChild<PagedView*>()->size(), QSize(480, 340)) << percent;
        }
    }
}

TEST_F(OnboardingViewTest, contents_eachPage_lieInsideItWholly)
{
    for (int page = 0; page < 3; ++page) {
        turnTo(page);
        for (const QWidget* child : view.findChildren<QLabel*>())
            if (child->isVisible()) {
                EXPECT_TRUE(view.rect().contains(frameIn(view, *child)));
                EXPECT_GE(child->height(), child->sizeHint().height());
            }
    }
    EXPECT_LE(frame(QStringLiteral("Enabled by default")).bottom(), 339);
}

TEST_F(OnboardingViewTest, symbols_top_is40And40And32)
{
    const auto symbols = view.findChildren<SymbolView*>();
    for (int page = 0; page < 3; ++page)
        turnTo(page);
    EXPECT_EQ(frameIn(view, *symbols[0]).top(), 40);
    EXPECT_EQ(frameIn(view, *symbols[1]).top(), 40);
    EXPECT_EQ(frameIn(view, *symbols[3]).top(), 32);
    for (const int symbol : {0, 1, 3})
        EXPECT_NEAR(symbols[symbol]
                        ->mapTo(symbols[symbol]->parentWidget()->parentWidget(),
                            symbols[symbol]->rect().center())
                        .x(),
            240, 1);
}

TEST_F(OnboardingViewTest, paddings_mirkModePage_areAsSet)
{
    turnTo(1);
    const QRect two = frame(QStringLiteral("2 monitors"));
    const QRect one = frame(QStringLiteral("1 monitor"));
    const QRect tip = frame(QStringLiteral("Sablequill moves to Display 2. Share Display 1 only."));
    EXPECT_EQ(two.left(), 40);
    EXPECT_EQ(two.width(), 72);
    EXPECT_EQ(one.left(), 40);
    EXPECT_EQ(tip.left(), 40 + 72 + 8);
    EXPECT_EQ(
        frame(QStringLiteral("Share a specific window — not Entire Screen.")).left(), tip.left());
    EXPECT_EQ(one.top(), std::max(two.bottom(), tip.bottom()) + 1 + 8);
    EXPECT_EQ(two.top(), tip.top());
}

TEST_F(OnboardingViewTest, paddings_shortcutsPage_areAsSet)
{
    turnTo(2);
    const QRect label = frame(QStringLiteral("Toggle overlay"));
    const QRect plate = frameIn(view, *text(QStringLiteral("⌘⇧G")).parentWidget());
    const QRect second = frameIn(view, *text(QStringLiteral("⌘⇧O")).parentWidget());
    const QRect keys = frame(QStringLiteral("⌘⇧G"));
    EXPECT_EQ(label.left(), 60);
    EXPECT_EQ(plate.right(), 480 - 60 - 1);
    EXPECT_EQ(keys.left() - plate.left(), 8);
    EXPECT_EQ(plate.right() - keys.right(), 8);
    EXPECT_EQ(keys.top() - plate.top(), 4);
    EXPECT_EQ(second.top(), plate.bottom() + 1 + 10);
    EXPECT_EQ(plate.top(), frame(QStringLiteral("Keyboard Shortcuts")).bottom() + 1 + 16 + 8);
}

TEST_F(OnboardingViewTest, paddings_navigationBar_are20)
{
    turnTo(1);
    EXPECT_EQ(frameIn(view, button(back)).left(), 20);
    EXPECT_EQ(frameIn(view, button(next)).right(), 480 - 20 - 1);
    turnTo(2);
    EXPECT_EQ(frameIn(view, button(finish)).right(), 480 - 20 - 1);
}

// Pages

TEST_F(OnboardingViewTest, buttons_eachPage_areItsOwn)
{
    EXPECT_EQ(view.currentPage(), 0);
    EXPECT_EQ(shownButtons(), QStringList{next});
    click(next);
    EXPECT_EQ(view.currentPage(), 1);
    EXPECT_EQ(shownButtons(), QStringList({back, next}));
    click(next);
    EXPECT_EQ(view.currentPage(), 2);
    EXPECT_EQ(shownButtons(), QStringList({back, finish}));
    click(back);
    click(back);
    EXPECT_EQ(view.currentPage(), 0);
    EXPECT_EQ(shownButtons(), QStringList{next});
}

TEST_F(OnboardingViewTest, continue_click_slidesTheNextPageIn)
{
    click(next);
    EXPECT_EQ(pageFrame(0).x(), 0);
    EXPECT_TRUE(waitFor([&] { return pageFrame(0).x() < 0 && pageFrame(1).x() > 0; }));
    EXPECT_TRUE(waitFor([&] { return pageFrame(1).x() == 0; }));
}

TEST_F(OnboardingViewTest, arrowKeys_pages_changeWithinTheThree)
{
    press(Qt::Key_Left);
    EXPECT_EQ(view.currentPage(), 0);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(view.currentPage(), 2);
    EXPECT_EQ(shownButtons(), QStringList({back, finish}));
    press(Qt::Key_Left);
    EXPECT_EQ(view.currentPage(), 1);
}

TEST_F(OnboardingViewTest, arrowKeys_aButtonHasTheFocus_stillChangePages)
{
    focusAfterTab(view);
    press(Qt::Key_Right);
    EXPECT_EQ(view.currentPage(), 1);
    press(Qt::Key_Left);
    EXPECT_EQ(view.currentPage(), 0);
}

TEST_F(OnboardingViewTest, construct_again_beginsAtTheFirstPage)
{
    turnTo(2);
    EXPECT_EQ(OnboardingView(appState).currentPage(), 0);
}

// The end

TEST_F(OnboardingViewTest, getStarted_click_completesOnceAndStaysOnThePage)
{
    turnTo(2);
    click(finish);
    EXPECT_EQ(announcements, 1);
    EXPECT_FALSE(appState.showOnboarding);
    EXPECT_TRUE(savedSettings().hasCompletedOnboarding);
    EXPECT_EQ(view.currentPage(), 2);
    click(finish);
    EXPECT_EQ(announcements, 2);
}

TEST_F(OnboardingViewTest, backAndContinue_click_completeNothing)
{
    click(next);
    click(next);
    click(back);
    EXPECT_EQ(announcements, 0);
    EXPECT_FALSE(savedSettings().hasCompletedOnboarding);
}

TEST_F(OnboardingViewTest, escape_anywhere_dismissesAndCompletesNothing)
{
    press(Qt::Key_Escape);
    focusAfterTab(view);
    press(Qt::Key_Escape);
    EXPECT_EQ(dismissals.count(), 2);
    EXPECT_TRUE(appState.showOnboarding);
}

// Keyboard

TEST_F(OnboardingViewTest, show_always_takesTheKeys)
{
    EXPECT_TRUE(view.hasFocus());
}

TEST_F(OnboardingViewTest, returnKey_alone_leadsThroughTheGuide)
{
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_EQ(view.currentPage(), 2);
    EXPECT_EQ(announcements, 0);
    press(Qt::Key_Return);
    EXPECT_EQ(announcements, 1);
}

TEST_F(OnboardingViewTest, tabKey_eachPage_reachesItsButtons)
{
    EXPECT_EQ(accessibleName(*focusAfterTab(view)), next);
    turnTo(1);
    view.setFocus();
    EXPECT_EQ(accessibleName(*focusAfterTab(view)), back);
    EXPECT_EQ(accessibleName(*focusAfterTab(view)), next);
}

TEST_F(OnboardingViewTest, spaceKey_onContinue_leadsToGetStarted)
{
    focusAfterTab(view);
    press(Qt::Key_Space);
    EXPECT_EQ(accessibleName(*view.focusWidget()), next);
    press(Qt::Key_Space);
    EXPECT_EQ(view.currentPage(), 2);
    ASSERT_TRUE(view.focusWidget());
    EXPECT_EQ(accessibleName(*view.focusWidget()), finish);
    press(Qt::Key_Space);
    EXPECT_EQ(announcements, 1);
}

TEST_F(OnboardingViewTest, spaceKey_onBack_leadsToTheFirstPageAndContinue)
{
    turnTo(2);
    view.setFocus();
    focusAfterTab(view);
    press(Qt::Key_Space);
    EXPECT_EQ(view.currentPage(), 1);
    EXPECT_EQ(accessibleName(*view.focusWidget()), back);
    press(Qt::Key_Space);
    EXPECT_EQ(view.currentPage(), 0);
    ASSERT_TRUE(view.focusWidget());
    EXPECT_EQ(accessibleName(*view.focusWidget()), next);
}

// Screen readers

TEST_F(OnboardingViewTest, accessible_buttons_areNamedAndCanBePressed)
{
    for (const QString& title : {back, next, finish}) {
        EXPECT_EQ(accessibleName(button(title)), title);
        EXPECT_EQ(accessible(button(title)).role(), QAccessible::Button);
    }
    pressAccessibly(button(next));
    EXPECT_TRUE(waitFor([&] { return view.currentPage() == 1; }));
}

} // namespace
} // namespace sablequill
