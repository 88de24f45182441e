/// \file
/// The one table of commands, arguments and options. The parser, the help, the manual page and the
/// completion of shells are made from it.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace KyrTool {

class Arguments;

/// What a shell offers in the place of an argument or of an option's value.
enum Completion_t { CompleteNothing, CompleteFiles, CompleteKinds, CompleteUnits };

/// How long a command may take.
enum Duration_t {
  Quick,         ///< nobody waits for it
  Long,          ///< gets a bar, and is stopped by Ctrl-C
  LongOnOutput,  ///< the same, but for the bar where its content goes to the terminal
};

/// An option of a command. One without value is a flag.
struct Option {
  const char* name;         ///< without "--"
  const char* value;        ///< as "N", or the choices as "zlib|fastest"; empty for a flag
  const char* description;  ///< English, of the context "Kyr_tool"
  Completion_t completion = CompleteNothing;
  char letter = 0;  ///< of the short form, as 'f' for "-f"

  bool isFlag() const { return *value == '\0'; }
  /// As "--force" or "--workers N".
  QString text() const;
  /// What the value is one of; empty for any text.
  QStringList choices() const;
};

/// A command of the tool.
struct Command {
  const char* name;       ///< one word, or two as "zip info"
  const char* arguments;  ///< as "FILE [DIRECTORY]"
  const char* summary;    ///< English, of the context "Kyr_tool"
  int fewest;             ///< arguments
  int most;
  std::vector<Option> options;
  int (*run)(const Arguments&);  ///< gives the exit code; throws UsageError or FileError
  Duration_t duration = Quick;
  Completion_t completion = CompleteFiles;
};

/// All commands, in the order in which people read about them.
const std::vector<Command>& commands();

/// The options that every command has.
const std::vector<Option>& commonOptions();

/// A command's own options and those of every command.
std::vector<Option> optionsOf(const Command& command);

/// \return null when there is none of this name
const Command* findCommand(const QString& name);

/// The second words of the commands whose first word this is; empty for a command of one word.
QStringList membersOf(const QString& group);

/// As "kyr zip pack FILE OUTPUT [--workers N]".
QString usageOf(const Command& command);

}  // namespace KyrTool
