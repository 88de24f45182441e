/// \file
/// Standard output and standard error, in UTF-8 under every locale.
#pragma once

#include <QString>

#include <cstddef>
#include <functional>

namespace KyrTool {

/// Puts a buffer of the tool's own behind std::cout; before anything is written.
void prepareOutput();

/// Sets what is called before anything appears on a terminal, as the wiping of a bar.
void setBeforeWriting(std::function<void()> function);

/// Writes text.
void print(const QString& text);

/// Writes "kyr: ", the fault and a line end to standard error; of a very long fault the middle
/// is left out.
void printError(const QString& fault);

/// Writes bytes as they are.
/// \return false from the first failure on; finishOutput() then explains it
bool writeBytes(const char* bytes, std::size_t count);

/// Writes what is waiting and reports what went wrong with standard output, if anything; a
/// reader that has seen enough is no fault.
/// \return false when output was lost
bool finishOutput();

/// How a word stands out on a terminal.
enum Style_t { Strong, Good, Bad };

/// The text as standard output shows it: plain unless that is a terminal with colours, and with
/// the variable NO_COLOR.
QString styled(const QString& text, Style_t style);

/// The text on one line, every character without a glyph replaced by its number.
QString printable(const QString& text);

}  // namespace KyrTool
