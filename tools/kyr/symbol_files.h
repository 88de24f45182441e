/// \file
/// Files with debug information, found by the build that they belong to.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace KyrTool {

/// What the head of a program, of a library or of its debug information tells.
struct FileIdentity {
  QString buildId;         ///< hexadecimal digits; empty when it has none
  std::uint64_t base = 0;  ///< the address at which the linker has placed it
};

/// Reads an ELF file of 64 bits or a PE file.
/// \return nothing for any other file, a damaged one, and one that cannot be read
std::optional<FileIdentity> identityOf(const QString& fileName);

/// What is known of the debug information of a module.
enum SymbolState_t {
  SymbolsMissing,     ///< there is none of that name and build
  SymbolsOfOther,     ///< there is only that of another build
  SymbolsFound,       ///< its build id is the one that was asked for
  SymbolsNotChecked,  ///< the only one of that name, and nobody knows the build
};

/// What a search has come to.
struct SymbolFile {
  SymbolState_t state = SymbolsMissing;
  QString fileName;        ///< of what may be used; else empty
  QStringList buildIds;    ///< of what was found but is not of the build
  std::uint64_t base = 0;  ///< see FileIdentity
};

/// Looks for the debug information of a build.
/// \param folders with ".build-id/xx/rest.debug" and modules.txt, or with files NAME.debug or NAME
/// \param name of the program or library, without folder
/// \param buildId hexadecimal digits; empty when nobody knows
SymbolFile findSymbols(const QStringList& folders, const QString& name, const QString& buildId);

}  // namespace KyrTool
