/// \file
/// How processes are told apart, and the names of files that belong to one for a while.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace Kyr::Platform {

// Platform files define these.

/// What tells a process from all others that had or will have its number.
/// \return ASCII without blanks; empty when the system does not tell
QByteArray processStart(std::int64_t pid);

/// Where on this host the numbers of processes mean the same as for this one: a container has its
/// own.
/// \return empty when the system has one such space, or does not tell
QByteArray processSpace();

/// Hands a document or an address over to the desktop.
/// \throws Exception
void showOnDesktop(const QString& target);

}  // namespace Kyr::Platform

namespace Kyr::TemporaryFile {

/// The start of the name of each.
extern const char* const prefix;

/// A name in the directory of \a target that nobody else uses, and that tells who uses it.
QString besideOf(const QString& target);

/// Whether a file of this name, without directory, was left behind by a process of this host, or
/// container, that has ended.
bool isLeftover(const QString& name);

}  // namespace Kyr::TemporaryFile
