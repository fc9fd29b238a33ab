// SPDX-License-Identifier: MIT
//
// Runs inside KWin. The program puts the call of this function behind it, with:
//   isWanted  whether captures are to leave the program's windows out
//   pid       whose windows they are
//   owner     the program's unique name on the session bus
//   path, interface   of the program's object there
//   name      this script's own name in KWin
//
// Wanted, it stays, for the windows that come later: to KWin each showing of a window is a new one.
// Else it lets captures show all windows again and goes. It never outlives the program.

(function (options) {
    "use strict";

    function report(state) {
        callDBus(options.owner, options.path, options.interface, "Report", options.name, state);
    }

    function leave() {
        callDBus("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting", "unloadScript", options.name);
    }

    // Reads back: a compositor that only swallows the value hides nothing.
    function mark(window) {
        window.excludeFromCapture = options.isWanted;
        return window.excludeFromCapture === options.isWanted;
    }

    function canMark(window) {
        return "excludeFromCapture" in window;
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
        const own = windows.filter((window) => window.pid === options.pid);
        if (!canMark(windows[0]) || !own.every(mark)) {
            return "unsupported";
        }
        return options.isWanted ? "hidden" : "shown";
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
        timer.interval = 1000;
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
        if (options.isWanted) {
            stay();
        } else {
            leave();
        }
    }
})
