// SPDX-License-Identifier: MIT
//
// Runs inside KWin. The program puts the call of this function behind it, with:
//   task      what to do with the program's windows
//   pid       whose windows they are
//   owner     the program's unique name on the session bus
//   path, interface   of the program's object there
//   name      this script's own name in KWin
//
// Most tasks stay, for the windows that come later: to KWin each showing of a window is a new one.
// No script outlives the program by more than its task's `patience`, in milliseconds.

(function (options) {
    "use strict";

    const task = {
        hide: {
            property: "excludeFromCapture", value: true, done: "hidden",
            isMeant: () => true, stays: true, patience: 1000,
        },
        show: {
            property: "excludeFromCapture", value: false, done: "shown",
            isMeant: () => true, stays: false,
        },
        // Only the panels are of that type.
        pin: {
            property: "onAllDesktops", value: true, done: "pinned",
            isMeant: (window) => window.criticalNotification, stays: true, patience: 60000,
        },
    }[options.task];

    function report(state) {
        callDBus(options.owner, options.path, options.interface, "Report", options.name, state);
    }

    function leave() {
        callDBus("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting", "unloadScript", options.name);
    }

    // Reads back: a compositor that only swallows the value does nothing.
    function mark(window) {
        window[task.property] = task.value;
        return window[task.property] === task.value;
    }

    function canMark(window) {
        return task.property in window;
    }

    let timer = null;
    let isTried = false;

    function giveUp() {
        if (timer !== null) {
            timer.stop();
            workspace.windowAdded.disconnect(take);
        }
        report("unsupported");
        leave();
    }

    function stateOf(windows) {
        if (windows.length === 0) {
            return "waiting";
        }
        const own = windows.filter((window) => window.pid === options.pid && task.isMeant(window));
        if (!canMark(windows[0]) || !own.every(mark)) {
            return "unsupported";
        }
        return task.done;
    }

    function take(window) {
        const state = stateOf([window]);
        if (state === "unsupported") {
            giveUp();
        } else if (!isTried) {
            isTried = true;
            report(state);
        }
    }

    function leaveWhenOrphaned() {
        callDBus("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "NameHasOwner", options.owner, (isAlive) => {
                if (!isAlive) {
                    timer.stop();
                    leave();
                }
            });
    }

    function stay() {
        workspace.windowAdded.connect(take);
        timer = new QTimer();
        timer.interval = task.patience;
        timer.timeout.connect(leaveWhenOrphaned);
        timer.start();
    }

    const state = typeof workspace.windowList === "function"
        ? stateOf([...workspace.windowList()]) : "unsupported";
    if (state === "unsupported") {
        giveUp();
    } else {
        isTried = state !== "waiting";
        report(state);
        if (task.stays) {
            stay();
        } else {
            leave();
        }
    }
})
