#include <kyr/terminal/KyrTerminalProgress.h>

#include <kyr/jobs/KyrProgress.h>
#include <kyr/sync/KyrThread.h>
#include <kyr/terminal/KyrColumns.h>
#include <kyr/terminal/progress_line_p.h>
#include <kyr/terminal/terminal_p.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>

namespace Kyr {

namespace site {
constexpr unsigned Painter = 27;
}

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds silence(500);      // before anything is shown
constexpr milliseconds betweenBars(100);  // faster is no more to see
constexpr milliseconds betweenLines(5000);

double secondsSince(Clock::time_point moment) {
  return std::chrono::duration<double>(Clock::now() - moment).count();
}

}  // namespace

/// The thread that draws.
struct TerminalProgress::Implementation : Thread {
  explicit Implementation(Show_t show)
      : Thread(NoLockGUI, "Kyr::TerminalProgress::TerminalProgress", "kyr_terminal_progress",
               site::Painter),
        _shows(show != ShowNothing),
        _onTerminal(Platform::terminalWidth() != 0) {
    if (_shows) {
      start();
    }
  }
  ~Implementation() override {
    {
      const std::lock_guard<std::mutex> lock(_mutex);
      _ends = true;
    }
    _changed.notify_one();
    wait();
    if (_onTerminal) {
      wipe();
    } else if (!_line.isEmpty()) {
      drawLine();
    }
  }
  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

  void print(const QString& line) {
    const std::lock_guard<std::mutex> lock(_mutex);
    wipe();
    Platform::writeErrors(line + '\n');
  }

  void wipeNow() {
    const std::lock_guard<std::mutex> lock(_mutex);
    wipe();
  }

  void run() override {
    std::unique_lock<std::mutex> lock(_mutex);
    const auto ends = [this] { return _ends; };
    _changed.wait_for(lock, silence, ends);
    while (!_ends) {
      if (_onTerminal) {
        drawBar();
      } else {
        drawLine();
      }
      _changed.wait_for(lock, _onTerminal ? betweenBars : betweenLines, ends);
    }
  }

 private:
  void drawBar() {
    const Progress::State state = Progress::getState();
    if (state.overall < _percent) {
      _begun = Clock::now();  // something else has begun
    }
    _percent = state.overall;
    const int width = static_cast<int>(Platform::terminalWidth()) - 1;
    const QString line =
        ProgressLine::bar(state.text, std::max(_percent, 0), secondsSince(_begun), width);
    if (line == _line || _percent < 0) {
      return;
    }
    // The new line is written in one piece, over the old one, which is not wiped before: so nothing
    // flickers.
    const int left = std::min(columnsOf(_drawn), width) - columnsOf(line);
    Platform::writeErrors('\r' + line + QString(std::max(left, 0), ' '));
    _line = line;
    _drawn = line;
  }

  void wipe() {
    if (!_drawn.isEmpty() && _onTerminal) {
      const int width =
          std::min(columnsOf(_drawn), static_cast<int>(Platform::terminalWidth()) - 1);
      Platform::writeErrors('\r' + QString(std::max(width, 0), ' ') + '\r');
    }
    _drawn.clear();
  }

  void drawLine() {
    const Progress::State state = Progress::getState();
    const QString line = ProgressLine::plain(state.text, state.overall);
    if (line != _line && state.overall >= 0) {
      Platform::writeErrors(line + '\n');
      _line = line;
    }
  }

  const bool _shows;
  const bool _onTerminal;
  std::mutex _mutex;
  std::condition_variable _changed;
  bool _ends = false;
  Clock::time_point _begun = Clock::now();
  int _percent = 0;
  QString _line;   // shown last
  QString _drawn;  // what of it stands there
};

TerminalProgress::TerminalProgress(Show_t show)
    : _implementation(std::make_unique<Implementation>(show)) {}

TerminalProgress::~TerminalProgress() = default;

void TerminalProgress::print(const QString& line) const {
  _implementation->print(line);
}

void TerminalProgress::wipe() const {
  _implementation->wipeNow();
}

}  // namespace Kyr
