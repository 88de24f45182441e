#include <kyr/terminal/KyrInterruptWatch.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/files/live_files_p.h>
#include <kyr/log/journals_p.h>
#include <kyr/terminal/interrupt_p.h>

#include <atomic>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned Second = 44;
}

namespace {

std::atomic<bool> exists{false};

/// Makes sure that there is one only.
struct Single {
  Single() {
    if (exists.exchange(true)) {
      throw ProgError("Kyr::InterruptWatch::InterruptWatch", "kyr_interrupt_watch", site::Second,
                      "a second interrupt watch");
    }
  }
  ~Single() { exists = false; }
  Single(const Single&) = delete;
  Single& operator=(const Single&) = delete;
};

}  // namespace

struct InterruptWatch::Implementation {
  explicit Implementation(const StopToken& stopped) : token(stopped) {}

  void wished(int wish) {
    if (wishes.fetch_add(1) == 0) {
      token.stop();
    } else {
      Journals::flushForEnd();
      LiveFile::removeAllForEnd();
      Platform::Interrupts::endProcess(wish);
    }
  }

  const Single single;
  const StopToken token;
  std::atomic<unsigned> wishes{0};
  Platform::Interrupts interrupts{[this](int wish) { wished(wish); }};
};

InterruptWatch::InterruptWatch(const StopToken& token)
    : _implementation(std::make_unique<Implementation>(token)) {}

InterruptWatch::~InterruptWatch() = default;

bool InterruptWatch::wasInterrupted() const noexcept {
  return _implementation->wishes != 0;
}

}  // namespace Kyr
