/// \file
/// The text of crash reports, as docs/formats/crash-report.md has it.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace KyrTool {

/// A function and the place in its source; what is not known is empty or 0.
struct Place {
  QString function;
  QString file;
  int line = 0;
};

/// A program or library that frames lie in.
struct CrashModule {
  QString name;     ///< without folder
  QString buildId;  ///< hexadecimal digits; empty when the report has none
  std::uint64_t begin = 0;
  std::uint64_t end = 0;  ///< 0 when the report does not tell where it was loaded
};

/// A line of a backtrace.
struct CrashFrame {
  int line = 0;  ///< its index in the report
  int stack = 0;
  int number = 0;
  std::uint64_t address = 0;
  bool isCall = true;  ///< the address is behind a call
  bool isInlined = false;
  bool isNamed = false;  ///< the report has its line already
  bool hasOffset = false;
  int module = -1;
  std::uint64_t offset = 0;        ///< from the module's beginning, if it is known
  QString rest;                    ///< what the report says behind the address
  Place given;                     ///< the same, taken apart
  std::vector<Place> places = {};  ///< what was found, the innermost inlined function first
};

/// The backtraces of a text, which may be a whole log with several reports.
struct CrashReport {
  QStringList lines;
  std::vector<CrashModule> modules;
  QStringList stacks;  ///< the lines above them
  std::vector<CrashFrame> frames;
};

/// Finds the backtraces in a text, and the module of each of their frames.
CrashReport parseReport(const QString& text);

/// The report with what was found: a frame has a line for each inlined function as well.
QStringList linesOf(const CrashReport& report);

}  // namespace KyrTool
