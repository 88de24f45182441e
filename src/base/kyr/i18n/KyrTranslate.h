/// \file
/// User-visible texts in the user's language.
#pragma once

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrPlatform.h>

#include <QLocale>
#include <QString>

namespace Kyr {

/// Translates a user-visible text; without a catalogue that has it, the text itself, read as
/// UTF-8.
///
/// Both arguments are literals at most places, so that tools/check_messages.py finds the text;
/// others are marked with QT_TRANSLATE_NOOP where they stand.
/// \code
/// const QString message = translate("Inspection", "%1 points are missing").arg(width);
/// \endcode
/// \param context names the family of the text, as "Kyr_zip_err"; null counts as empty
/// \param text the English source text; null gives a null text
/// \throws ProgError "No Translator instantiated" in an application with a user interface that
///         has called KyrInit::InitLibrary() and has no Translator; all others, among them
///         programs that never call it, get the text untranslated
/// \threadsafety any thread
KYR_EXPORT QString translate(const char* context, const char* text);

/// How numbers are written in the user's language: the Translator's, English while there is none.
/// \threadsafety any thread while none creates or deletes the Translator
KYR_EXPORT QLocale userLocale();

/// FileParse::Error::getSentence() in the user's language: "points.txt:12:7: ...".
/// \throws ProgError as above
/// \threadsafety any thread
KYR_EXPORT QString translate(const FileParse::Error& error);

}  // namespace Kyr
