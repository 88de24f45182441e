#include <kyr/sync/KyrLockDoctor.h>

#include <kyr/core/forever_p.h>
#include <kyr/core/prog_error_p.h>
#include <kyr/sync/lock_doctor_p.h>
#include <kyr/sync/lock_watch_p.h>
#include <kyr/sync/own_thread_p.h>

#include <array>
#include <atomic>
#include <charconv>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace Kyr {

namespace {

constexpr const char* variable = "KYR_LOCK_DOCTOR";

struct Note {
  LockFinding::Kind_t kind;
  LockBooks::Text text;
};

Forever<std::shared_ptr<const LockDoctorOptions>> wishRoom;
std::shared_ptr<const LockDoctorOptions>& wishes = wishRoom.object;  // of guard()
std::array<Note, 32> notes;                                          // of guard(), as their number
std::size_t noteCount = 0;
std::atomic<unsigned> wait{0};
std::atomic<void (*)(std::uint64_t, const LockBooks::Sink&)> stackHook{nullptr};

void watchForks() {
  const auto before = [] {
    LockBooks::setBusy(true);
    LockBooks::guard().lock();
  };
  const auto inParent = [] {
    LockBooks::guard().unlock();
    LockBooks::setBusy(false);
  };
  const auto inChild = [] {
    LockBooks::guard().unlock();
    LockBooks::keepOnlyThisThread();
    LockBooks::setBusy(false);
  };
  Platform::callAroundForks(before, inParent, inChild);
}

std::shared_ptr<const LockDoctorOptions> takeNote(LockFinding::Kind_t kind,
                                                  const LockBooks::Text& text) noexcept {
  const std::lock_guard<std::mutex> lock(LockBooks::guard());
  if (noteCount < notes.size()) {
    notes[noteCount].kind = kind;
    notes[noteCount++].text = text;
  }
  return wishes;
}

void print(const LockBooks::Text& text) noexcept {
  LockBooks::Text lines(text);
  lines << "\n";
  Fatal::writeToStandardError(lines.data(), lines.length());
}

void handOn(const LockDoctorOptions& to, LockFinding::Kind_t kind,
            const LockBooks::Text& text) noexcept {
  try {
    to.report({kind, text.data()});
  } catch (...) {
    print(text);  // rather twice than never
  }
}

LockHolder::Lock lockOf(LockBooks::Use use) {
  const LockBooks::Site& site = LockBooks::siteAt(use.site());
  return {site.function.data(), site.file.data(), site.line,
          static_cast<LockHolder::Mode_t>(use.mode())};
}

LockHolder holderOf(const LockBooks::Glance& glance) {
  LockHolder holder;
  holder.thread = glance.who.number;
  holder.name = glance.who.name.data();
  holder.made = glance.who.made.data();
  for (std::uint32_t i = 0; i < glance.count; ++i) {
    holder.held.push_back(lockOf(glance.held[i]));
  }
  if (glance.wants) {
    holder.wanted.push_back(lockOf(glance.wanted));
    holder.sleeps = glance.sleeps;
  }
  return holder;
}

/// \return false for a word that means nothing
bool apply(std::string_view word, LockDoctorOptions& asked, bool& on) {
  constexpr std::string_view prefix = "wait=";
  if (word == "0" || word == "1") {
    on = word == "1";
    return true;
  }
  on = true;
  if (word == "strict") {
    asked.endsProcess = true;
    asked.longestWait = 0;
    return true;
  }
  const char* const end = word.data() + word.size();
  if (word.substr(0, prefix.size()) != prefix || word.size() == prefix.size()) {
    return false;
  }
  const auto [last, error] = std::from_chars(word.data() + prefix.size(), end, asked.longestWait);
  return error == std::errc() && last == end;
}

void complain(const char* value) {
  LockBooks::Text text;
  text << variable << "=" << value
       << " is not understood: 0, 1, strict and wait=MILLISECONDS are, with commas between them";
  print(text);
}

void startAsAsked(const char* value) {
  LockDoctorOptions asked;
  bool on = false;
  for (std::string_view rest = value; !rest.empty();) {
    const std::size_t comma = rest.find(',');
    if (!apply(rest.substr(0, comma), asked, on)) {
      complain(value);
      return;
    }
    rest.remove_prefix(comma == std::string_view::npos ? rest.size() : comma + 1);
  }
  if (on) {
    LockDoctor::start(asked);
  }
}

/// As soon as the library is loaded: later, locks might be held that nobody has seen taken.
[[maybe_unused]] const bool isAsked = [] {
  if (const char* const value = std::getenv(variable)) {
    startAsAsked(value);
  }
  return true;
}();

}  // namespace

void LockDoctor::start(const LockDoctorOptions& options) {
  static const bool watchesForks = (watchForks(), true);
  static_cast<void>(watchesForks);
  auto kept = std::make_shared<const LockDoctorOptions>(options);
  const std::lock_guard<std::mutex> lock(LockBooks::guard());
  wishes.swap(kept);
  wait = options.longestWait;
  if (!isOn()) {
    LockBooks::forgetOrders();
    LockBooks::beginWatch();
    noteCount = 0;
    LockWatch::the._on = true;
  }
}

void LockDoctor::stop() noexcept {
  LockWatch::the._on = false;
}

std::vector<LockFinding> LockDoctor::findings() {
  std::vector<LockFinding> found;
  const LockBooks::Busy busy;  // memory may run short, and who gives some back takes locks
  const std::lock_guard<std::mutex> lock(LockBooks::guard());
  for (std::size_t i = 0; i < noteCount; ++i) {
    found.push_back({notes[i].kind, notes[i].text.data()});
  }
  return found;
}

std::vector<LockHolder> LockDoctor::holders() {
  std::vector<LockHolder> found;
  for (std::size_t i = 0; isOn() && i < LockBooks::threadCapacity; ++i) {
    const LockBooks::Glance glance = LockBooks::lookAt(i);
    if (glance.who.number != 0) {
      found.push_back(holderOf(glance));
    }
  }
  return found;
}

void LockDoctor::describeHolders(void (*write)(void* context, const char* line, std::size_t length),
                                 void* context) noexcept {
  for (std::size_t i = 0; isOn() && i < LockBooks::threadCapacity; ++i) {
    const LockBooks::Glance glance = LockBooks::lookAt(i);
    if (glance.who.number != 0) {
      LockBooks::Text text;
      LockBooks::describe(glance, text);
      text << "\n";
      write(context, text.data(), text.length());
    }
  }
}

void LockBooks::setStackHook(void (*hook)(std::uint64_t thread, const Sink& sink)) noexcept {
  stackHook = hook;
}

unsigned LockBooks::longestWait() noexcept {
  return wait.load(std::memory_order_relaxed);
}

void LockBooks::describeStack(std::uint64_t thread, Text& text) noexcept {
  if (const auto hook = stackHook.load()) {
    text << ", stands at\n";
    hook(thread, {[](void* context, const char* part, std::size_t length) {
                    static_cast<Text*>(context)->append(part, length);
                  },
                  &text});
  }
}

void LockBooks::report(unsigned kind, const Text& text) noexcept {
  const auto finding = static_cast<LockFinding::Kind_t>(kind);
  const auto to = takeNote(finding, text);
  const bool ends = to->endsProcess && finding == LockFinding::Circle;
  if (to->report) {
    handOn(*to, finding, text);
  }
  if (!to->report || ends) {
    print(text);
  }
  if (ends) {
    Fatal::endProcess(LockDoctor::circleCode);
  }
}

}  // namespace Kyr
