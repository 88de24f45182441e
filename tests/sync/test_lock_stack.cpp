#include "support/Support.h"

#include <kyr/sync/KyrLockDoctor.h>
#include <kyr/sync/lock_doctor_p.h>

using namespace Kyr;

namespace {

void tellPlace(std::uint64_t thread, const LockBooks::Sink& sink) {
  const std::string place = "    #0 of " + std::to_string(thread) + "\n    #1 main";
  sink.write(sink.context, place.data(), place.size());
}

}  // namespace

TEST(LockStack, ShowsWhereTheHolderStands) {
  LockDoctor::stop();
  LockDoctorOptions options;
  options.longestWait = 10;
  KyrTest::Gate reported;
  options.report = [&](const LockFinding&) { reported.open(); };
  LockDoctor::start(options);
  LockBooks::setStackHook(&tellPlace);
  Mutex mutex("owner", "file", 1);
  AutoMutex lock(&mutex);
  const std::uint64_t holder = LockDoctor::holders().at(0).thread;
  std::thread waiter([&] { const AutoMutex wanted(&mutex); });
  reported.await("the wait is reported");
  lock.unlock();
  waiter.join();
  LockBooks::setStackHook(nullptr);
  LockDoctor::stop();
  const std::string text = LockDoctor::findings().at(0).text;
  const std::string end =
      " holds owner (file:1), stands at\n    #0 of " + std::to_string(holder) + "\n    #1 main";
  EXPECT_TRUE(text.size() > end.size() && text.substr(text.size() - end.size()) == end) << text;
}
