/// \file
/// How the platforms open files. Names come here checked: not empty, no zero character.
#pragma once

#include <QString>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace Kyr::Platform {

/// The name as the system takes it.
std::filesystem::path nativePath(const QString& name);

/// The same in the spelling that takes every name of any length literally, where there is one.
std::filesystem::path verbatimPath(const QString& name);

/// The other way of nativePath().
QString nameOf(const std::filesystem::path& native);

/// Whether the name leads to a directory, which some systems open like a file.
bool isDirectory(const QString& name);

/// Opens the file behind a stream.
/// \return false on failure
bool openBuffer(std::filebuf& buffer, const QString& name, std::ios_base::openmode mode,
                bool shared);

/// \param mode as for fopen()
/// \return null on failure
FILE* openFile(const QString& name, const char* mode);

}  // namespace Kyr::Platform
