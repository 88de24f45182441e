/// \file
/// The words of a command line, sorted into arguments and options, and how commands fail.
#pragma once

#include "command_table.h"

#include <QMap>
#include <QString>
#include <QStringList>

namespace KyrTool {

/// Exit codes of the tool; scripts rely on them.
enum ExitCode_t {
  Fine = 0,
  FileAtFault = 1,  ///< a file is missing, damaged, foreign or cannot be written
  WrongUsage = 2,
  EndedByUser = 130,  ///< what shells expect after Ctrl-C
};

/// Thrown for a command line that nobody can mean.
struct UsageError {
  QString fault;
};

/// Thrown for a file that cannot be read or written.
struct FileError {
  QString fault;
};

/// The words after a command's name.
///
/// An option is a word that begins with "--", or with "-" and a letter; so "-" and "-40" are plain
/// arguments. Its value is the next word, or stands in the same one behind "=". A flag is an option
/// without value. After the word "--" everything is a plain argument.
class Arguments {
 public:
  /// \throws UsageError for unknown options, options without value, flags with one, and fewer or
  ///         more plain arguments than the command has
  Arguments(const QStringList& words, const Command& command);

  int count() const { return static_cast<int>(_plain.size()); }
  const QString& operator[](int index) const { return _plain[index]; }
  bool has(const QString& option) const { return _options.contains(option); }
  /// The value of an option; of one that stands there several times the last.
  QString option(const QString& name) const { return all(name).value(all(name).size() - 1); }
  /// All values of an option, in their order.
  QStringList all(const QString& name) const { return _options.value(name); }
  /// The value of an option as a number.
  /// \return \a otherwise when the option is not there
  /// \throws UsageError when it is no number from \a lowest to \a highest
  unsigned number(const QString& name, unsigned lowest, unsigned highest, unsigned otherwise) const;

 private:
  void takeOption(QStringList& words, const std::vector<Option>& known);

  QStringList _plain;
  QMap<QString, QStringList> _options;
};

}  // namespace KyrTool
