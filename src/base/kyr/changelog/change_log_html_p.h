/// \file
/// What makes plain text HTML.
#pragma once

#include <QString>

namespace Kyr::ChangeLog {

/// The text as content of an element, well-formed both as HTML and as XML.
///
/// tokenizeRT() would not do: XML does not know its "<br>" and "&nbsp;", and it lets characters
/// pass that neither HTML nor XML may hold.
QString htmlOf(const QString& text);

}  // namespace Kyr::ChangeLog
