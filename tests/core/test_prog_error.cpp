#include "support/Support.h"

#include <kyr/core/KyrApplication.h>
#include <kyr/core/KyrQtVersion.h>
#include <kyr/core/prog_error_p.h>

using namespace Kyr;
using KyrTest::inChild;

namespace {

const std::string prefix = "released;\nInternal program error: ";
const std::string umlaut = QtVersion::hasLocalEncodings ? "\xFC" : "\xC3\xBC";

void say(const char* text) {
  std::fputs(text, stderr);
}

}  // namespace

TEST(ProgErrorSteps, ReleasesCallsTheHookReportsAndFaults) {
  struct {
    FatalErrorHook hook;
    void (*raise)();
    std::string errors;
    const char* catches;
  } const rows[] = {
      {nullptr, [] { throw ProgError(); }, prefix + "Unknown error\n\n", "wrong default text"},
      {nullptr, [] { throw ProgError("stop", true); }, prefix + "stop\n\n", "a flag misread"},
      {nullptr, [] { throw ProgError(QString("\u00FC%1x").arg(QChar(0))); },
       prefix + umlaut + std::string("\0x\n\n", 4), "not the local encoding; cut at a zero"},
      {nullptr, [] { throw ProgError("Kyr::A::b", "kyr_a", 94, "Not started"); },
       prefix + "Not started\nin function Kyr::A::b\nin file kyr_a line 94\n\n", "wrong order"},
      {nullptr, [] { throw ProgError(nullptr, nullptr, 0, nullptr); },
       prefix + "\nin function \nin file  line 0\n\n", "a null text; line 0 left out"},
      {nullptr, [] { throw ProgError("f", "g", 4294967295U, "m"); },
       prefix + "m\nin function f\nin file g line -1\n\n", "an unsigned line"},
      {nullptr, [] { applicationProperties(Application_t(-1)); },
       prefix + "unknown application\n\n", "a row before the table"},
      {nullptr, [] { applicationProperties(Application_t(applicationCount)); },
       prefix + "unknown application\n\n", "a row behind the table"},
      {[] { say("hook;"); }, [] { throw ProgError(); },
       "released;hook;\nInternal program error: Unknown error\n\n", "hook and release swapped"},
      {[] { throw ProgError("inner", true); }, [] { throw ProgError(); },
       "released;" + prefix + "inner\n\n", "a failing hook called for ever"},
      {[] { throw 1; }, [] { throw ProgError(); }, prefix + "Unknown error\n\n",
       "a hook that throws"},
      {nullptr, [] { ProgError::CallDebugger(); }, "", "a report without an error"},
  };
  for (const auto& row : rows) {
    const auto ended = inChild([&row] {
      QtVersion::setLocalEncoding("ISO-8859-1");
      Fatal::setSharedMemoryRelease([] { say("released;"); });
      setFatalErrorHook(row.hook);
      row.raise();
    });
    EXPECT_EQ(KyrTest::reportProblem(ended, row.errors), "") << row.catches;
  }
}
