/// \file
/// The progress of a program in a terminal.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <memory>

namespace Kyr {

/// Shows Progress on standard error while it lives: on a terminal as a bar in one line, which is
/// wiped at the end; elsewhere, as in a pipe or a file, as a line every five seconds in which
/// something changes, and at the end. Nothing is shown of what takes less than half a second.
///
/// The bar is as wide as the terminal, whose width may change, and tells the text, the percentage
/// and how long it may still take. It is drawn by a thread of its own, in one piece, over what
/// stood there before, and hides nothing of the terminal: so nothing must be put back, however the
/// process ends. Standard output, which other programs read, stays free of it.
/// \code
/// void convertAll(const std::vector<QString>& names) {
///   const Kyr::TerminalProgress bar;  // sees the scope's end
///   Kyr::ProgressScope scope("convert", names.size());
///   for (const QString& name : names) {
///     scope.setText(name);
///     if (!convert(name)) {
///       bar.print(name + ": cannot be read");  // above the bar
///     }
///     scope.step();
///   }
/// }
/// \endcode
/// \threadsafety one object for a process; print() and wipe() on any thread
class KYR_EXPORT TerminalProgress {
 public:
  /// What is seen of the progress.
  enum Show_t : int {
    ShowWhereSeen = 0,  ///< a bar on a terminal, lines elsewhere
    ShowNothing = 1,    ///< as for the option --quiet; print() still prints
  };

  /// Begins to show; nothing is seen before half a second of work.
  /// \threadsafety one thread at a time; one object for a process
  explicit TerminalProgress(Show_t show = ShowWhereSeen);
  /// Wipes the bar.
  ~TerminalProgress();
  TerminalProgress(const TerminalProgress&) = delete;
  TerminalProgress& operator=(const TerminalProgress&) = delete;

  /// Prints a line on standard error, above the bar.
  /// \threadsafety any thread
  void print(const QString& line) const;
  /// Wipes the bar, for what the program itself is about to print; it comes back with the next
  /// change.
  /// \threadsafety any thread
  void wipe() const;

 private:
  struct KYR_HIDDEN Implementation;

  const std::unique_ptr<Implementation> _implementation;
};

}  // namespace Kyr
