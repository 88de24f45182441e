/// \file
/// How texts of any language fit into the columns of a terminal.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>
#include <QStringList>

namespace Kyr {

/// How many columns of a terminal a text takes: East Asian letters take two (Unicode Standard
/// Annex #11), marks on letters none.
/// \code
/// const QStringList titles = {"Width", "Krümmung", "曲率"};
/// int columns = 0;
/// for (const QString& title : titles) {
///   columns = std::max(columns, Kyr::columnsOf(title));
/// }
/// const QString aligned = Kyr::filledTo(titles[0], columns + 2) + "1.25 mm";
/// \endcode
/// \threadsafety any thread
KYR_EXPORT int columnsOf(const QString& text);

/// A text with blanks behind it, in at least so many columns; a longer one stays as it is.
/// \threadsafety any thread
KYR_EXPORT QString filledTo(const QString& text, int columns);

/// The pieces of a word between which a line may end though there is no blank: in Chinese and
/// Japanese nearly everywhere, but not before a full stop or behind an opening bracket (Unicode
/// Standard Annex #14). Words of other writings are one piece.
/// \param word a text without blanks
/// \return together the word; empty for an empty one
/// \threadsafety any thread
KYR_EXPORT QStringList breakablePieces(const QString& word);

}  // namespace Kyr
