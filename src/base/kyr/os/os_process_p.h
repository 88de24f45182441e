/// \file
/// How processes are told apart, and the names of files that belong to one for a while.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace Kyr::Platform {

// Platform files define these.

/// What tells a process from all others that had or will have its number.
/// \return ASCII without blanks; empty when the system does not tell all of it
QByteArray processStart(std::int64_t pid);

/// Names the space in which numbers of processes mean the same as for this one: a container has one
/// of its own.
/// \return empty on a system with one space only; a name that no other process has where the
///         system does not tell
QByteArray processSpace();

/// What tells this machine from all others, also from those of the same name.
/// \return empty when the system does not tell
QByteArray machineIdentifier();

/// Hands a document or an address over to the desktop.
/// \throws Exception
void showOnDesktop(const QString& target);

// What follows is the same on all platforms.

/// processStart() of this process; the system is asked until it has answered once.
QByteArray ownStart();

/// A fingerprint of machineIdentifier(), which itself is nobody else's business: 32 hexadecimal
/// digits; empty where the system does not tell. It is asked until it has answered once.
QByteArray ownMachine();

}  // namespace Kyr::Platform

namespace Kyr::TemporaryFile {

/// How the names of all such files begin.
extern const char* const prefix;

/// A name in the directory of \a target that nobody else uses, and that tells who uses it.
QString besideOf(const QString& target);

/// Whether a file of this name, without directory, was left behind by a process of this machine
/// and container that has ended; false when the system does not tell.
bool isLeftover(const QString& name);

}  // namespace Kyr::TemporaryFile
