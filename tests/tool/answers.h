/// \file
/// Questions to the tool on the command line, and what it has to answer.
#pragma once

#include "support/Support.h"

namespace KyrTest {

struct Answer {
  const char* words;  // parted by blanks; "_" stands for a blank or nothing
  int code;
  QByteArray output;  // all of it with "$" in front, otherwise a part
  const char* error;  // a part; empty for none at all
  const char* fault;
  QByteArray input = {};
};

/// Runs the tool for each row in turn.
inline void expectAnswers(const TempDir& folder, const std::vector<Answer>& rows) {
  for (const Answer& row : rows) {
    QStringList words = QString(row.words).split(' ', Qt::SkipEmptyParts);
    const Ended ended =
        runProgram(KYR_TOOL, words.replaceInStrings("_", " "), folder.path(), row.input);
    EXPECT_EQ(ended.code, row.code) << row.words << ": " << row.fault;
    EXPECT_TRUE(row.output.startsWith('$') ? ended.output == row.output.mid(1)
                                           : ended.output.contains(row.output))
        << row.words << ": " << row.fault << ": " << ended.output.toStdString();
    EXPECT_TRUE(*row.error ? ended.errors.contains(row.error) : ended.errors.isEmpty())
        << row.words << ": " << row.fault << ": " << ended.errors.toStdString();
  }
}

/// Starts a program with some standard streams closed.
/// \param closed any of the digits 0 for input, 1 for output and 2 for errors
void startWithClosed(QProcess& process, const QString& program, const QStringList& words,
                     const QString& closed);

}  // namespace KyrTest
