/// \file
/// What the start of the library asks of the platforms.
#pragma once

#include <QString>

#include <cstdint>

namespace Kyr::Start {

/// Makes the C runtime serve blocks of up to 1016 bytes from its pools, where it has such pools.
void setSmallBlockThreshold() noexcept;

/// Whether two names that differ in capitals only are one file.
bool namesIgnoreCase() noexcept;

/// What is done about a file of the name before standard output goes to it.
enum class Target_t {
  Named,  ///< the user's file: written to its end
  Own,    ///< the process's own: removed and made anew, so that nobody else reads or plants it
};

/// A second way to where standard error goes, which children do not inherit.
/// \return a descriptor or handle; 0 when standard error goes nowhere
std::intptr_t keepErrors() noexcept;
/// Closes what keepErrors() has given.
void dropErrors(std::intptr_t kept) noexcept;

/// Sends standard output to the end of a file.
/// \return false when the file cannot be opened; standard output then stays as it is
bool redirectOutput(const QString& path, Target_t target);
/// Sends standard error to the file that redirectOutput() has just opened.
bool redirectErrors(const QString& path);

/// Gives the process a console window of its own and its standard streams.
/// \return false where it cannot, or the system has a terminal for that
bool openConsole();

/// Sends the message "the main window is up" to the launcher.
/// \param name of the launcher's window, as "start_app-5"
/// \return false when nobody received it
bool tellLauncher(const QString& name);

}  // namespace Kyr::Start
