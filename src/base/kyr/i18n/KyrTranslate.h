/// \file
/// User-visible texts in the user's language.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

namespace Kyr {

/// Translates a user-visible text; without a catalogue the text itself, read as UTF-8.
/// \param context names the family of the text, as "Kyr_zip_err"
/// \param text the English source text
/// \threadsafety any thread
KYR_EXPORT QString translate(const char* context, const char* text);

}  // namespace Kyr
