/// \file
/// How the platforms open files. Names come here checked: not empty, no zero character.
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace Kyr::Platform {

/// The name as the system takes it.
std::filesystem::path nativePath(const QString& name);

/// As nativePath(), on Windows in the spelling in which the system takes names of any length and
/// form literally.
std::filesystem::path verbatimPath(const QString& name);

/// The name that nativePath() would turn into \a native.
QString nameOf(const std::filesystem::path& native);

/// A path without the slashes at its end, but with one that is all of it.
QString withoutEndSlashes(QString path);

/// Whether the name leads to a directory, which some systems open like a file.
bool isDirectory(const QString& name);

/// Opens the file behind a stream.
/// \return false on failure
bool openBuffer(std::filebuf& buffer, const QString& name, std::ios_base::openmode mode,
                bool shared);

/// \param mode as for fopen()
/// \return null on failure
FILE* openFile(const QString& name, const char* mode);

/// Writes all bytes to an open file of the system.
/// \return false with the reason in lastError(); also when the system takes nothing and calls that
///         no failure
bool writeAll(std::intptr_t file, const char* bytes, std::size_t count) noexcept;

/// Writes to the end of a file, which is created when missing. Several processes may do so at once.
/// \return false when not all of it was written
bool appendToFile(const QString& name, const char* bytes, std::size_t count);

/// Makes a write that exceeds the largest size of files that the process may have fail, where it
/// would end the process. Whatever the application has set itself for that case stays. The library
/// calls it before it opens files for writing; further calls do nothing.
void surviveFileLimit() noexcept;

}  // namespace Kyr::Platform
