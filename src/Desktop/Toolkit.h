// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QApplication;

namespace sablequill {

/// Starts the toolkit on its X platform, which the panel needs also where the toolkit would choose
/// another, and without the theme plug-in of the desktop, which would load a second toolkit. To be
/// called once; `programName` outlives the application object.
std::unique_ptr<QApplication> startToolkit(char* programName);

} // namespace sablequill
