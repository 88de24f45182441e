/// \file
/// How a program is started that lacks some of its standard streams.
#pragma once

#include <QStringList>

QT_BEGIN_NAMESPACE
class QProcess;
QT_END_NAMESPACE

namespace KyrTest {

/// Starts a program with some standard streams closed.
/// \param closed any of the digits 0 for input, 1 for output and 2 for errors
void startWithClosed(QProcess& process, const QString& program, const QStringList& words,
                     const QString& closed);

}  // namespace KyrTest
