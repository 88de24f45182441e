/// \file
/// Strict number parsers and searches for characters of a set.
///
/// The parsers refuse what follows a number, unless the caller asks with an end index where the
/// number stops. They read the same under every locale.
#pragma once

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrPlatform.h>

#include <QString>

namespace Kyr {

/// Parses an integer: white space, a sign, digits of the base (letters of either case).
/// \param ok receives whether it succeeded; may be null
/// \param base 2 to 36; any other counts as 10
/// \param end null to allow only white space behind the number; otherwise receives, on success,
///        the index of the first character that is no part of it
/// \return 0 on failure. The most negative value is read in most bases, as in 10, but fails in the
///         bases 2, 4, 8, 16 and 32, where its digits are a power of the base
/// \threadsafety any thread
KYR_EXPORT qint64 qstringToInt64(const QString& text, bool* ok = nullptr, int base = 10,
                                 int* end = nullptr);
/// As qstringToInt64(), without "-".
/// \threadsafety any thread
KYR_EXPORT quint64 qstringToUInt64(const QString& text, bool* ok = nullptr, int base = 10,
                                   int* end = nullptr);

/// As the 64-bit parsers, and fail for what the narrower type cannot hold; \a end is stored
/// even so.
/// \threadsafety any thread
KYR_EXPORT short qstringToShort(const QString& text, bool* ok = nullptr, int base = 10,
                                int* end = nullptr);
/// As qstringToShort(), for its own type.
/// \threadsafety any thread
KYR_EXPORT unsigned short qstringToUShort(const QString& text, bool* ok = nullptr, int base = 10,
                                          int* end = nullptr);
/// As qstringToShort(), for its own type.
/// \threadsafety any thread
KYR_EXPORT int qstringToInt(const QString& text, bool* ok = nullptr, int base = 10,
                            int* end = nullptr);
/// As qstringToShort(), for its own type.
/// \threadsafety any thread
KYR_EXPORT unsigned int qstringToUInt(const QString& text, bool* ok = nullptr, int base = 10,
                                      int* end = nullptr);

/// Parses what strtod accepts in the "C" locale, to the same bits.
/// \param ok receives whether it succeeded; may be null
/// \param end null to allow only blanks and tabs behind the number; a text without any number
///        then is 0.0, when it holds nothing else. Otherwise receives, on success, the index
///        behind the number
/// \return 0.0 on failure
/// \threadsafety any thread
KYR_EXPORT double qstringToDouble(const QString& text, bool* ok = nullptr, int* end = nullptr);
/// As qstringToDouble(); values beyond the range of float become infinite, with success.
/// \threadsafety any thread
KYR_EXPORT float qstringToFloat(const QString& text, bool* ok = nullptr, int* end = nullptr);

/// As the parsers above without an end index, where there must be a number: they say what is wrong
/// and at which column of the text, and take no empty text for 0.0.
/// \throws FileParse::Error with column and token; getText() is "column 3: \"12a\" is no integer"
/// \threadsafety any thread
KYR_EXPORT qint64 expectInt64(const QString& text, int base = 10);
/// As expectInt64(), without "-".
/// \throws FileParse::Error as expectInt64()
/// \threadsafety any thread
KYR_EXPORT quint64 expectUInt64(const QString& text, int base = 10);
/// As expectInt64(), for what the type holds.
/// \throws FileParse::Error as expectInt64()
/// \threadsafety any thread
KYR_EXPORT int expectInt(const QString& text, int base = 10);
/// As expectInt64(), for what the type holds.
/// \throws FileParse::Error as expectInt64()
/// \threadsafety any thread
KYR_EXPORT unsigned int expectUInt(const QString& text, int base = 10);
/// As expectInt64(), for what qstringToDouble() takes, but for the empty text.
/// \throws FileParse::Error as expectInt64()
/// \threadsafety any thread
KYR_EXPORT double expectDouble(const QString& text);
/// As expectDouble(). Refuses what float cannot hold, unlike qstringToFloat(); infinity itself it
/// takes.
/// \throws FileParse::Error as expectInt64()
/// \threadsafety any thread
KYR_EXPORT float expectFloat(const QString& text);

/// The first index at or after \a from whose character occurs in \a set, upper and lower case
/// being different.
/// \param from not negative
/// \return -1 when there is none
/// \threadsafety any thread
KYR_EXPORT int findFirstOf(const QString& text, const QString& set, int from = 0);
/// As findFirstOf(), for a character that does not occur in \a set.
/// \threadsafety any thread
KYR_EXPORT int findFirstNotOf(const QString& text, const QString& set, int from = 0);
/// The last index at or before \a from whose character occurs in \a set.
/// \param from outside of the text means its last character
/// \return -1 when there is none
/// \threadsafety any thread
KYR_EXPORT int findLastOf(const QString& text, const QString& set, int from = -1);
/// As findLastOf(), for a character that does not occur in \a set.
/// \threadsafety any thread
KYR_EXPORT int findLastNotOf(const QString& text, const QString& set, int from = -1);

}  // namespace Kyr
