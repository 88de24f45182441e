/// \file
/// What the tour asks of the system that it runs on; one set of whole files for each system.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

namespace Tour {

/// Whether somebody watches standard output, so that a line may be drawn over and over.
bool standardOutputIsTerminal();

/// Makes the standard streams take bytes as they are, and a console show what encoded() gives.
void prepareStandardStreams();

/// A text as readers of the standard streams expect it: in the user's encoding; on Windows in
/// UTF-8, because code pages lack half of the units.
QByteArray encoded(const QString& text);

/// The time that all threads of this process have spent computing for it, in seconds.
double userSeconds();

/// Turns the user's wish to interrupt the program (Ctrl-C) into calls of a function, instead of
/// the end of the process.
///
/// Create the only one before any other thread exists; it lives as long as the program has work
/// to do. Later wishes are ignored: the process is about to end and to say how its work went.
class InterruptWatch {
 public:
  /// \param interrupted called for each wish, on a thread of the watch or of the system; it may do
  ///        what any thread may, but not end the watch
  explicit InterruptWatch(std::function<void()> interrupted);
  /// Afterwards the function is not called any more.
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

 private:
  struct Implementation;
  const std::unique_ptr<Implementation> _implementation;
};

}  // namespace Tour
