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

/// Where on this host the numbers of processes mean the same as for this one: a container has its
/// own.
/// \return empty when the system has one such space; what no other process has when it does not
///         tell
QByteArray processSpace();

/// What tells this machine from all others, also from those of the same name.
/// \return empty when the system does not tell
QByteArray machineIdentifier();

/// Hands a document or an address over to the desktop.
/// \throws Exception
void showOnDesktop(const QString& target);

// The rest is the same on all platforms.

/// processStart() of this process. The system is asked only until it has told.
QByteArray ownStart();

/// A fingerprint of machineIdentifier(), which itself is nobody else's business: 32 hexadecimal
/// digits. The system is asked only until it has told; empty before.
QByteArray ownMachine();

}  // namespace Kyr::Platform

namespace Kyr::TemporaryFile {

/// The start of the name of each.
extern const char* const prefix;

/// A name in the directory of \a target that nobody else uses, and that tells who uses it.
QString besideOf(const QString& target);

/// Whether a file of this name, without directory, was left behind by a process of this machine
/// and container that has ended; false when the system does not tell.
bool isLeftover(const QString& name);

}  // namespace Kyr::TemporaryFile
