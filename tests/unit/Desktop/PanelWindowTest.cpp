// SPDX-License-Identifier: MIT
#include "PanelWindow.h"

#include "Journal.h"
#include "ResizeHandles.h"
#include "Widgets.h"

#include <QMouseEvent>

#include <gtest/gtest.h>

#include <memory>

namespace sablequill {
namespace {

constexpr QRect card(100, 200, 420, 280);

class PanelWindowTest : public testing::Test {
protected:
    PanelWindowTest()
    {
        window.isMovableByBackground = window.isResizable = true;
        window.minimumCard = QSize(280, 160);
        window.setCard(card);
        present(window);
        QObject::connect(&window, &PanelWindow::cardMoved, [this] { journal.record("moved"); });
        QObject::connect(&window, &PanelWindow::cardResized, [this] { journal.record("resized"); });
        QObject::connect(
            &window, &PanelWindow::liveResizeEnded, [this] { journal.record("ended"); });
        QObject::connect(&window, &PanelWindow::dragChanged,
            [this](bool isDragging) { journal.record(isDragging ? "drag" : "drop"); });
    }

    /// To whatever lies there when the button goes down, as a display server does.
    void press(QPoint place)
    {
        QWidget* hit = window.childAt(place);
        target = hit ? hit : &window;
        grabbedAt = place;
        send(QEvent::MouseButtonPress, place, Qt::LeftButton);
    }
    void moveBy(QPoint way) { send(QEvent::MouseMove, grabbedAt + way, Qt::LeftButton); }
    void release() { send(QEvent::MouseButtonRelease, grabbedAt, Qt::NoButton); }

    PanelWindow window{Qt::Window | Qt::FramelessWindowHint};
    Journal journal;

private:
    void send(QEvent::Type type, QPoint place, Qt::MouseButtons buttons)
    {
        const QPoint global = card.topLeft() + place;
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(
            type, target->mapFromGlobal(global), global, button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &event);
    }

    QWidget* target = nullptr;
    QPoint grabbedAt;
};

struct StepRow {
    const char* name;
    QPoint pressedAt;
    const char* report;
};

class PanelWindowStep : public PanelWindowTest, public testing::WithParamInterface<StepRow> { };

TEST_P(PanelWindowStep, drag_oneStep_isReportedOnce)
{
    press(GetParam().pressedAt);
    EXPECT_EQ(journal.take(), std::vector<std::string>{"drag()"});
    moveBy({-12, -12});
    EXPECT_EQ(journal.take(), std::vector<std::string>{GetParam().report});
}

INSTANTIATE_TEST_SUITE_P(, PanelWindowStep,
    testing::Values(StepRow{"background", {200, 100}, "moved()"},
        StepRow{"left", {1, 100}, "resized()"}, StepRow{"top", {200, 1}, "resized()"},
        StepRow{"right", {418, 100}, "resized()"}, StepRow{"bottom", {200, 278}, "resized()"},
        StepRow{"topLeft", {2, 2}, "resized()"}),
    [](const auto& row) { return row.param.name; });

TEST_F(PanelWindowTest, pull_released_endsTheResizeOnce)
{
    press({1, 100});
    moveBy({-12, 0});
    journal.take();
    release();
    release();
    EXPECT_EQ(journal.take(), (std::vector<std::string>{"drop()", "ended()"}));
}

TEST_F(PanelWindowTest, pull_clickAlone_isNoResize)
{
    press({1, 100});
    release();
    EXPECT_EQ(journal.take(), (std::vector<std::string>{"drag()", "drop()"}));
    EXPECT_EQ(window.card(), card);
}

/// The window's end hides what is left in it, which would report to handles that are gone.
TEST(ResizeHandlesTest, end_leavesNoBandInTheWindow)
{
    QWidget host;
    auto handles = std::make_unique<ResizeHandles>(&host);
    EXPECT_EQ(host.children().size(), 8);
    handles.reset();
    EXPECT_TRUE(host.children().isEmpty());
}

TEST_F(PanelWindowTest, pull_hiddenMeanwhile_endsThere)
{
    press({1, 100});
    moveBy({-12, 0});
    journal.take();
    window.hide();
    EXPECT_EQ(journal.take(), (std::vector<std::string>{"drop()", "ended()"}));
    const QRect pulled = window.card();
    moveBy({-50, 0});
    release();
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(window.card(), pulled);
}

TEST_F(PanelWindowTest, move_hiddenMeanwhile_endsThere)
{
    press({200, 100});
    moveBy({30, 40});
    journal.take();
    window.hide();
    EXPECT_EQ(journal.take(), std::vector<std::string>{"drop()"});
    moveBy({300, 40});
    release();
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(window.card(), card.translated(30, 40));
}

} // namespace
} // namespace sablequill
