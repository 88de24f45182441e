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

/// Translates a text that has a number, in the form that the user's language has for that number:
/// some have one form for all, French has the same for 0 and 1. Without a catalogue that has it,
/// one of the two English forms.
///
/// The number is put in by who asks, written as the place wants it. Forms that stand in a table are
/// marked with QT_TRANSLATE_N_NOOP3.
/// \code
/// const quint64 missing = 1;
/// const QString message =
///     translate("Inspection", "%1 point is missing", "%1 points are missing",
///     missing).arg(missing);
/// \endcode
/// \param one the English source text for 1; null gives a null text
/// \param many the English source text for all other numbers, not null
/// \param number of the things that are counted
/// \throws ProgError as above
/// \threadsafety any thread
KYR_EXPORT QString translate(const char* context, const char* one, const char* many,
                             quint64 number);

/// How numbers are written in the user's language: the Translator's, English while there is none.
/// \threadsafety any thread while none creates or deletes the Translator
KYR_EXPORT QLocale userLocale();

/// FileParse::Error::getSentence() in the user's language: "points.txt:12:7: ...".
/// \throws ProgError as above
/// \threadsafety any thread
KYR_EXPORT QString translate(const FileParse::Error& error);

}  // namespace Kyr
