/// \file
/// Numbers for people, as the user's language has them.
#pragma once

#include <QString>

namespace Surface {

/// A number with some decimals: "0.25", in German "0,25".
QString fixed(double value, int decimals);
/// A whole number with separators: "34,835". Where a comma separates decimals, nobody is sure what
/// "34.835" is: no-break spaces stand between the groups there.
QString counted(qint64 number);
/// How things are counted, as texts of the context "Surface".
struct Thing {
  const char* one;
  const char* many;
};
namespace Things {
constexpr Thing byte = QT_TRANSLATE_N_NOOP3("Surface", "%1 byte", "%1 bytes");
constexpr Thing line = QT_TRANSLATE_N_NOOP3("Surface", "%1 line", "%1 lines");
constexpr Thing dataLine = QT_TRANSLATE_N_NOOP3("Surface", "%1 data line", "%1 data lines");
constexpr Thing openEdge = QT_TRANSLATE_N_NOOP3("Surface", "%1 open edge", "%1 open edges");
constexpr Thing point = QT_TRANSLATE_N_NOOP3("Surface", "%1 point", "%1 points");
constexpr Thing triangle = QT_TRANSLATE_N_NOOP3("Surface", "%1 triangle", "%1 triangles");
constexpr Thing worker = QT_TRANSLATE_N_NOOP3("Surface", "%1 worker", "%1 workers");
}  // namespace Things

/// A whole number of things in the language of the user, "1 point", "34,835 points".
QString counted(qint64 number, const Thing& thing);
/// A number of bytes in a fitting unit, "2.29 MiB".
QString bytes(qint64 count);
/// How fast bytes went, "at 200 MB/s"; the clock knows milliseconds, so short times have no speed.
QString speed(qint64 count, double seconds);

}  // namespace Surface
