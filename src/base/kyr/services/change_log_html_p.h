/// \file
/// What makes plain text HTML.
#pragma once

#include <QString>

namespace Kyr::ChangeLog {

/// The text as content of an element, well-formed both as HTML and as XML.
///
/// Not tokenizeRT(), whose "<br>" and "&nbsp;" XML does not know, and which lets pass the
/// characters that neither may hold.
QString htmlOf(const QString& text);

}  // namespace Kyr::ChangeLog
