#include <kyr/app/KyrInit.h>
#include <kyr/crash/KyrNewHandler.h>

#include "app/home.h"

using namespace Kyr;

namespace {

std::string asked;  // by which names, in their order

/// Answers what its script says, call by call: 'y' and 'n', 't' throws, 'a' allocates too much.
class Scripted : public NewHandler {
 public:
  Scripted(char name, std::string script) : _name(name), _script(std::move(script)) {}
  bool freeSomeMemory() override;

 private:
  char _name;
  std::string _script;
};

/// Asks operator new for more than there is.
std::string allocate() {
  static volatile std::size_t size = SIZE_MAX / 2;
  try {
    ::operator delete(::operator new(size));
  } catch (const std::bad_alloc& failure) {
    return failure.what();
  }
  return "got it";
}

bool Scripted::freeSomeMemory() {
  asked += _name;
  const char answer = _script.empty() ? 'n' : _script[0];
  _script.erase(0, 1);
  if (answer == 't') {
    throw std::bad_alloc();
  }
  if (answer == 'a') {
    asked += "(" + allocate() + ")";
  }
  return answer == 'y';
}

void fail() {
  asked += 'S';
  throw std::bad_alloc();
}

TEST(NewHandlers, AreAskedInTheirOrder) {
  KYR_SKIP_SANITIZERS("their operator new asks nobody");
  const struct {
    const char* first;
    const char* second;
    bool hasSystemHandler;
    const char* expected;
    const char* catches;
  } rows[] = {
      {"n", "n", false, "12 bad allocation", "another text; a handler is left out"},
      {"ny", "y", false, "12112 bad allocation", "all are asked although one freed; no retry"},
      {"n", "n", true, "12S std::bad_alloc", "the handler from before is forgotten"},
      {"t", "y", false, "1 std::bad_alloc", "the exception is swallowed"},
      {"a", "n", false, "1(bad allocation)2 bad allocation", "a handler that allocates hangs"},
  };
  const KyrTest::Home home;
  for (const auto& row : rows) {
    const auto ended = KyrTest::inChild([&] {
      std::set_new_handler(row.hasSystemHandler ? fail : nullptr);
      home.start({});
      home.start({});  // the library's own handler is not the one from before
      Scripted first('1', row.first);
      Scripted second('2', row.second);
      Scripted never('3', "y");
      never.registerThisNewHandler();
      first.registerThisNewHandler();
      second.registerThisNewHandler();
      never.deregisterThisNewHandler();
      const std::string outcome = allocate();
      first.deregisterThisNewHandler();  // hangs if the register was left locked
      home.say(QString::fromStdString(asked + " " + outcome));
    });
    EXPECT_EQ(home.said(), row.expected) << row.catches << ended.errors.toStdString();
  }
}

TEST(NewHandlers, LeaveTheRegisterAltogether) {
  const auto ended = KyrTest::inChild([] {
    Scripted twice('1', "");
    twice.registerThisNewHandler();
    twice.registerThisNewHandler();
    twice.deregisterThisNewHandler();
    twice.deregisterThisNewHandler();
  });
  EXPECT_EQ(KyrTest::reportProblem(
                ended, KyrTest::report("Unknown handler", "Kyr::NewHandler::removeHandler",
                                       "kyr_init", 2130)),
            "");
}

}  // namespace
