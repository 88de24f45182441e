/// \file
/// What damaged project files look like to their reader.
#pragma once

#include "page.h"

#include <QString>

namespace Tour {

/// Damages copies of a good project file in ways that happen in the field, and shows what the
/// reader says of each.
/// \param fileName a good project file, which is left alone
/// \return whether none was taken for good data
bool showDamage(const QString& fileName, Page& page);

}  // namespace Tour
