/// \file
/// How the progress looks in a line of text.
#pragma once

#include <QString>

namespace Kyr::ProgressLine {

/// A bar with what it is about, and how long it may still take.
/// \param percent 0 to 100
/// \param seconds since the progress was at 0
/// \param width in columns; the line is never wider
QString bar(const QString& text, int percent, double seconds, int width);

/// The same for those who do not see a bar: "  7% text".
QString plain(const QString& text, int percent);

/// A time as "0:09", "12:05" or "1:00:00"; nothing for what nobody knows.
QString remaining(int percent, double seconds);

}  // namespace Kyr::ProgressLine
