// SPDX-License-Identifier: MIT
//
// A Wayland client that fills the screen and prints what it gets: "focus in", "focus out",
// "key <evdev code>", "press".

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QRasterWindow>

#include <cstdio>

namespace {

/// The difference between the codes of X (and of the toolkit) and those of the kernel.
constexpr int codeOffset = 8;

void print(const char* text)
{
    std::puts(text);
    std::fflush(stdout);
}

class FullScreenWindow : public QRasterWindow {
protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(0, 0, width(), height(), QColor(250, 120, 20));
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        std::printf("key %d\n", static_cast<int>(event->nativeScanCode()) - codeOffset);
        std::fflush(stdout);
    }
    void mousePressEvent(QMouseEvent*) override { print("press"); }
    void focusInEvent(QFocusEvent*) override { print("focus in"); }
    void focusOutEvent(QFocusEvent*) override { print("focus out"); }
};

} // namespace

int main(int argc, char* argv[])
{
    QGuiApplication application(argc, argv);
    FullScreenWindow window;
    window.showFullScreen();
    return QGuiApplication::exec();
}
