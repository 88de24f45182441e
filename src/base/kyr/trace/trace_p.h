/// \file
/// What traces ask of the platforms.
#pragma once

#include <QString>

#include <cstdint>

namespace Kyr::Platform {

constexpr std::intptr_t noTrace = -1;

/// Opens and empties a file that no other process writes a trace into; programs that are started
/// do not inherit it.
/// \return noTrace on failure, with the reason in lastError()
std::intptr_t openTrace(const QString& name);
/// Makes the file as short as that, and writes on from there; does nothing where it cannot.
void cutTrace(std::intptr_t file, std::uint64_t size) noexcept;
void closeTrace(std::intptr_t file) noexcept;
/// Closes what a forked child has of the file, which stays its parent's.
void closeParentsTrace(std::intptr_t file) noexcept;

}  // namespace Kyr::Platform
