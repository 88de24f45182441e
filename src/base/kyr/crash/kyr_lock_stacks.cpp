#include <kyr/crash/living_stacks_p.h>
#include <kyr/sync/lock_doctor_p.h>

#include <exception>

namespace Kyr {

namespace {

/// Tells the lock doctor where the holder of a lock stands. The heading is left out, as the doctor
/// has named the thread; the waiting thread itself has no stack here.
void tellStack(std::uint64_t thread, const LockBooks::Sink& sink) {
  try {
    const QByteArray all = Crash::stacksInTurn(thread, true);
    const auto heading = all.indexOf("backtrace of the hanging thread ");
    const auto begin = heading < 0 ? heading : all.indexOf('\n', heading);
    const QByteArray frames = all.mid(begin < 0 ? all.size() : begin + 1).trimmed();
    sink.write(sink.context, frames.constData(), static_cast<std::size_t>(frames.size()));
  } catch (const std::exception&) {
    const char reason[] = "not known: there is no memory";
    sink.write(sink.context, reason, sizeof reason - 1);
  }
}

/// As soon as the library is loaded, as the lock doctor may watch from then on.
[[maybe_unused]] const bool isTold = (LockBooks::setStackHook(&tellStack), true);

}  // namespace

}  // namespace Kyr
