#include "support/Support.h"

#include <kyr/core/KyrApplication.h>
#include <kyr/core/KyrException.h>
#include <kyr/core/KyrProgError.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/core/prog_error_p.h>

#include <gtest/gtest.h>

#include <QTextCodec>

#include <cstdio>
#include <cstdlib>
#include <set>

using namespace Kyr;
using KyrTest::inChild;
using KyrTest::report;
using KyrTest::reportProblem;

namespace {

const std::string prefix = "\nInternal program error: ";

template <class Caught>
std::string caughtAs(void (*raise)()) {
  try {
    raise();
  } catch (const Caught& error) {
    return error.what();
  } catch (...) {
    return "another type";
  }
  return "nothing";
}

void raiseEnd() {
  throw FileParse::EndOfFile("end");
}
void raiseError() {
  throw FileParse::Error("bad line");
}

void say(const char* text) {
  std::fputs(text, stderr);
}

}  // namespace

TEST(Exception, KeepsItsTextAsUtf8) {
  const QString texts[] = {"", "plain",
                           QString::fromUtf8("Pr\xC3\xBC"
                                             "fma\xC3\x9F \xF0\x9F\x98\x80")};
  for (const QString& text : texts) {
    const Exception error(text);
    EXPECT_EQ(error.getText(), text);
    EXPECT_EQ(error.what(), text.toUtf8().toStdString());
  }
  EXPECT_STREQ(Exception().what(), "");
  Exception assigned("before");
  assigned = FileParse::EndOfFile("after");
  EXPECT_EQ(assigned.getText(), "after");
}

TEST(Exception, IsCaughtByEachBaseAndNoOther) {
  EXPECT_EQ(caughtAs<FileParse::EndOfFile>(raiseEnd), "end");
  EXPECT_EQ(caughtAs<FileParse::Error>(raiseEnd), "end");
  EXPECT_EQ(caughtAs<Exception>(raiseEnd), "end");
  EXPECT_EQ(caughtAs<std::logic_error>(raiseEnd), "end");
  EXPECT_EQ(caughtAs<FileParse::EndOfFile>(raiseError), "another type");
}

TEST(ProgError, ReportsAndFaults) {
  struct {
    void (*raise)();
    std::string reported;
    const char* catches;
  } const rows[] = {
      {[] { throw ProgError(); }, prefix + "Unknown error\n\n", "wrong default text"},
      {[] { throw ProgError("stop here", true); }, prefix + "stop here\n\n", "a flag misread"},
      {[] {
         QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
         throw ProgError(QString(QChar(0xFC)) + QChar(0) + "x");
       },
       prefix + std::string("\xFC\0x\n\n", 5),
       "UTF-8 instead of the local encoding; cut at a zero"},
      {[] { throw ProgError("Kyr::DebugTimer::mark", "kyr_debug_timer", 94, "Timer not started"); },
       prefix + "Timer not started\nin function Kyr::DebugTimer::mark\nin file kyr_debug_timer "
                "line 94\n\n",
       "pieces out of order"},
      {[] { throw ProgError("f", "g", 0, "m"); }, report("m", "f", "g", 0), "line 0 left out"},
      {[] { throw ProgError("f", "g", 4294967295U, "m"); },
       prefix + "m\nin function f\nin file g line -1\n\n", "an unsigned line number"},
      {[] { throw ProgError(nullptr, nullptr, 7, nullptr); }, report("", "", "", 7),
       "a null text that faults before the report is out"},
      {[] { ProgError::CallDebugger(); }, "", "a report without an error"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(reportProblem(inChild(row.raise), row.reported), "") << row.catches;
  }
}

TEST(ProgError, ExitsWithoutCleanUpWhenAsked) {
  const auto ended = inChild([] {
    static_cast<void>(std::atexit([] { say("clean-up ran"); }));
    throw ProgError("no root", false);
  });
  EXPECT_TRUE(ended.exited);
  EXPECT_EQ(ended.code, 1);
  EXPECT_EQ(ended.errors.toStdString(), prefix + "no root\n\n");
}

TEST(ProgError, CallsReleaseThenHookBeforeTheReport) {
  struct {
    FatalErrorHook hook;
    std::string reported;
    const char* catches;
  } const rows[] = {
      {nullptr, "released;" + prefix + "m\n\n", "a null hook called"},
      {[] { say("hook;"); }, "released;hook;" + prefix + "m\n\n", "wrong order"},
      {[] { throw ProgError("inner", true); }, "released;released;" + prefix + "inner\n\n",
       "a failing hook that is called for ever"},
      {[] { throw 1; }, "released;" + prefix + "m\n\n", "a report lost with a throwing hook"},
  };
  for (const auto& row : rows) {
    const auto ended = inChild([&row] {
      Fatal::setSharedMemoryRelease([] { say("released;"); });
      setFatalErrorHook(row.hook);
      throw ProgError("m", true);
    });
    EXPECT_EQ(reportProblem(ended, row.reported), "") << row.catches;
  }
  const FatalErrorHook hook = [] {};
  EXPECT_EQ(setFatalErrorHook(hook), nullptr);
  EXPECT_EQ(setFatalErrorHook(nullptr), hook);
}

TEST(ProgError, NamesTheFloatingPointFault) {
  EXPECT_STREQ(ProgErrorNS::FPU_EXCEPTION_STRING, "floating point exception occured");
}

TEST(Application, HasOneNamedRowForEachValue) {
  std::set<std::string> names;
  for (unsigned number = 0; number < applicationCount; ++number) {
    names.insert(applicationProperties(static_cast<Application_t>(number)).name);
  }
  EXPECT_EQ(names.size(), applicationCount);
  EXPECT_STREQ(applicationProperties(ApplicationProduction).name, "Production Cell");
  EXPECT_FALSE(applicationProperties(ApplicationServer).hasUserInterface);
  EXPECT_TRUE(applicationProperties(ApplicationSensor).usesProfile);
  for (const int number : {-1, 12}) {
    const auto ended = inChild([=] { applicationProperties(static_cast<Application_t>(number)); });
    EXPECT_EQ(reportProblem(ended, prefix + "unknown application\n\n"), "") << number;
  }
}

TEST(Version, IsTheTextThatFilesCarry) {
  EXPECT_STREQ(libraryVersion(), "6.2.0-6");
}
