/// \file
/// Threads that fill the flight recorder with entries that tell whether they are whole.
#pragma once

#include <kyr/recorder/KyrFlightRecorder.h>

#include "support/Support.h"

namespace KyrTest {

/// A text of one letter, as often as the number in front of it says.
inline std::string entryText(unsigned number) {
  const unsigned count = number * 7 % 150 + 1;
  return std::to_string(count) + std::string(count, static_cast<char>('a' + number % 26));
}

/// Whether a line of the recorder holds such a text and nothing else.
inline bool isWhole(const QString& line) {
  static const QRegularExpression form(
      R"(\A[-\d]{10}T[:\d]{8}\.\d{6}Z 0x[0-9a-f]+ writer: (\d+)(([a-z])\3*)\z)");
  const QRegularExpressionMatch match = form.match(line);
  return match.hasMatch() && match.captured(2).size() == match.captured(1).toInt();
}

/// Threads that write as long as the object lives.
class Writers {
 public:
  explicit Writers(unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
      _threads.emplace_back([this, i] { write(i); });
    }
    while (_writing < count) {
      std::this_thread::yield();
    }
  }
  ~Writers() {
    _end = true;
    for (std::thread& thread : _threads) {
      thread.join();
    }
  }
  Writers(const Writers&) = delete;
  Writers& operator=(const Writers&) = delete;

 private:
  void write(unsigned seed) {
    for (unsigned number = seed; !_end; ++number) {
      Kyr::FlightRecorder::note("writer", entryText(number).c_str());
      if (number == seed + 300) {
        ++_writing;
      }
    }
  }

  std::atomic<bool> _end{false};
  std::atomic<unsigned> _writing{0};
  std::vector<std::thread> _threads;
};

}  // namespace KyrTest
