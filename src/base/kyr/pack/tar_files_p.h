/// \file
/// What archives ask of the file system; each platform has its own file.
#pragma once

#include <QString>

#include <cstdint>

namespace Kyr::TarFiles {

/// What a name leads to, links followed.
struct Facts {
  bool isFile = false;  ///< a plain one
  bool isDirectory = false;
  bool isLink = false;        ///< the name itself is one, wherever it leads
  bool isBroken = false;      ///< a link that cannot be followed; the reason is lastError()
  std::int64_t size = 0;      ///< in bytes
  std::int64_t modified = 0;  ///< seconds since 1970-01-01 00:00 UTC
};

/// Finds out what a name leads to.
/// \return false when there is nothing of this name, not even a link that leads nowhere, or it
///         cannot be examined; the reason is lastError()
bool examine(const QString& name, Facts& facts);

/// The name from the root on, by which it means the same from every current directory.
/// \return with "/" as separator
QString absolute(const QString& name);

/// Whether a part of a path stands for an entry of its directory, and no other part for the same
/// one; true also for "." and nothing.
bool canBeName(const QString& part);

/// Sets when a file was changed last; failures do not matter.
void setModified(const QString& name, std::int64_t seconds);

}  // namespace Kyr::TarFiles
