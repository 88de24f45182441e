/// \file
/// The icons of dialogs, drawn as lines of the theme's colours.
#pragma once

#include <QIcon>
#include <QStyle>

namespace Viewer {

/// The icon for what a style calls a standard one; sharp at any size.
/// \return null for those that are not drawn here
QIcon lineIcon(QStyle::StandardPixmap what);

}  // namespace Viewer
