// SPDX-License-Identifier: MIT
#include "Toolkit.h"

#include "Environment.h"
#include "SessionBus.h"

#include <fontconfig/fontconfig.h>

#include <QApplication>
#include <QPixmapCache>
#include <QThreadPool>

#include <clocale>
#include <thread>

namespace sablequill {
namespace {

/// What the toolkit otherwise does at its first text, which then finds it done: fifty files of XML,
/// which take nearly as long as the toolkit's start.
void readFontConfiguration()
{
    // The toolkit sets the locale of the process meanwhile; numbers in the files have a point.
    const locale_t own = newlocale(LC_ALL_MASK, "C", nullptr);
    const locale_t previous = uselocale(own);
    FcInit();
    uselocale(previous);
    freelocale(own);
}

std::unique_ptr<QApplication> makeApplication(char* programName)
{
    // The toolkit reads these when its application object is made, and takes a plug-in of the
    // desktop's before any theme that is named.
    const TemporaryVariable platform("QT_QPA_PLATFORM", "xcb");
    const TemporaryVariable theme("QT_QPA_PLATFORMTHEME", "generic");
    const TemporaryVariable desktop("XDG_CURRENT_DESKTOP", "generic");
    // It removes this one while the fonts' thread reads variables.
    moveToTheEnd("DESKTOP_STARTUP_ID");
    static int argumentCount = 1;
    static char* arguments[] = {programName, nullptr};
    const std::jthread fonts(readFontConfiguration);
    return std::make_unique<QApplication>(argumentCount, arguments);
}

} // namespace

std::unique_ptr<QApplication> startToolkit(char* programName)
{
    auto toolkit = makeApplication(programName);
    // What it keeps of icons it looks through half a minute later, and the threads that help it
    // fill end then: both would wake a program that sleeps.
    QPixmapCache::setCacheLimit(0);
    QThreadPool::globalInstance()->setExpiryTimeout(0);
    // The first widget asks the toolkit for the bus, for the sake of accessibility, and waits: by
    // then it is there.
    QThreadPool::globalInstance()->start([] { sessionBus(); });
    return toolkit;
}

} // namespace sablequill
