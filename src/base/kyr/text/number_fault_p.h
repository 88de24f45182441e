/// \file
/// Why a text is no number, when a parser has refused it.
#pragma once

#include <QString>

namespace Kyr {

/// For an Error that knows its place.
struct NumberFault {
  int index = 0;                 ///< of the first character that does not fit
  const char* reason = nullptr;  ///< as FileParse::Finding has it, and the next
  QString detail;
};

/// What may stand behind a number.
enum class Rest { Nothing, Anything };

/// \param base as for qstringToInt64()
/// \param least and \a most say what would have been accepted
NumberFault integerFault(const QString& text, int base, qint64 least, quint64 most,
                         Rest rest = Rest::Nothing);
NumberFault numberFault(const QString& text);

/// Whether a float would make it infinite.
bool isBeyondFloat(double value);
NumberFault beyondFloat(const QString& text);

}  // namespace Kyr
