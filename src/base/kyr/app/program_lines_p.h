/// \file
/// What reports of crashes say of the program.
#pragma once

#include <QStringList>

namespace Kyr::Start {

/// Remembers which file standard error goes to.
/// \param path its whole path; empty for none
void setReportFile(const QString& path);
/// Puts the sentences together that tell the person at the terminal of a report in that file, in
/// the user's language once there is a translator.
void prepareNotice();

/// Prepares it while the process is well.
/// \param arguments of the program, its name first
void describeProgram(const QStringList& arguments);

}  // namespace Kyr::Start
