/// \file
/// How the examples start and end the library.
#pragma once

#include <kyr/core/KyrApplication.h>

#include <QStringList>

namespace Surface {

/// Lends the process standard streams where its starter left some closed: the next file that it
/// opens would take their place, and receive what is printed. The first act of main().
void keepStandardStreams();

/// The time between the start and the end of the library, on the main thread. Create it behind the
/// Qt application object and before any other thread.
class Session {
 public:
  /// Starts the library, its translator and the texts of the examples.
  ///
  /// The output of most programs of the suite goes to a file, since they have windows; that of the
  /// examples stays where it is, unless KYR_CONSOLE is set.
  explicit Session(Kyr::Application_t application);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// The program's name and what the user gave it, without what was meant for the library.
  const QStringList& arguments() const { return _arguments; }

 private:
  QStringList _arguments;
};

}  // namespace Surface
