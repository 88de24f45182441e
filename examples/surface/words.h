/// \file
/// Numbers in words, the same in every locale.
#pragma once

#include <QString>

namespace Surface {

/// A whole number with separators, "34,835".
QString counted(qint64 number);
/// A whole number of things, "1 point", "34,835 points".
QString counted(qint64 number, const QString& thing);
/// A number of bytes in words, "2.29 MiB".
QString bytes(qint64 count);
/// How fast bytes went, "at 200 MB/s"; the clock knows milliseconds, so short times have no speed.
QString speed(qint64 count, double seconds);

}  // namespace Surface
