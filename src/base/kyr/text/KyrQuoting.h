/// \file
/// Quoting of texts for the places that they go to.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/text/KyrString.h>

#include <QByteArray>
#include <QString>

namespace Kyr {

/// Makes a text one word of a POSIX shell, in double quotes.
/// \return in the local 8-bit encoding
/// \threadsafety any thread
KYR_EXPORT QByteArray toQuotedShellString(const QString& text);

/// Removes a double quote at either end, each by itself, and then the white space at both ends.
/// \threadsafety any thread
KYR_EXPORT QString qstringStripQuotes(const QString& text);

/// Escapes a text for a Python literal in single quotes; adds no quotes.
/// \threadsafety any thread
KYR_EXPORT QString quotePythonString(const QString& text);
/// Reverses quotePythonString(). An unknown escape stands for its character; a backslash at the
/// end is dropped.
/// \threadsafety any thread
KYR_EXPORT QString unquotePythonString(const QString& text);

/// Makes a plain text rich text (HTML) that looks the same.
/// \param nonBreakingSpaces keeps every blank, and no line breaks at one
/// \threadsafety any thread
KYR_EXPORT QString tokenizeRT(const QString& s, bool nonBreakingSpaces);

}  // namespace Kyr
