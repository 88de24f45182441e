/// \file
/// Where the windows of a program are shown.
#pragma once

namespace Viewer {

/// Prepares Qt for the display that there is, before the application object is made: what takes a
/// screenshot, or has no display, draws into memory, unless QT_QPA_PLATFORM says otherwise.
/// \return whether somebody could see a window
bool prepareDisplay(int argc, char** argv);

}  // namespace Viewer
