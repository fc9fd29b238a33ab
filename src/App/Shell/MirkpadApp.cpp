// SPDX-License-Identifier: MIT
#include "MirkpadApp.h"

#include "PlainOverlay.h"

namespace sablequill {

MirkpadApp::MirkpadApp(const Platform& platform)
    : appState(platform, [](AppState& state) { return std::make_unique<PlainOverlay>(state); })
{
}

void MirkpadApp::launch()
{
    delegate.applicationDidFinishLaunching();
    appState.bootstrap();
}

} // namespace sablequill
