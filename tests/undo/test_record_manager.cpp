#include "support/Shared.h"

#include <kyr/undo/KyrRecordManager.h>

using namespace Kyr;
using KyrTest::inChild;

namespace {

/// A manager as an application has it, with a look at the base's members.
struct Manager : RecordManagerBase {
  static bool isRegistered(const RecordManagerBase* manager) { return manager == _manager_base; }
  static std::uint32_t nextId() { return _next_record_id++; }
};

TEST(RecordManager, IsTheOnlyOneEver) {
  const auto lived = inChild([] {
    bool right = Manager::isRegistered(nullptr) && Manager::nextId() == 0 && Manager::nextId() == 1;
    Manager first;
    Manager copy(first);
    copy = first;
    copy.clearAll();
    right = right && Manager::isRegistered(&first) && !first.isRecording() && !first.undo() &&
            !first.redo() && !first.isUndoRedoAllowed();
    std::printf(right ? "right" : "wrong");
  });
  EXPECT_EQ(lived.output, "right");
  for (const bool firstLives : {true, false}) {
    const auto refused = inChild([&] {
      auto first = std::make_optional<Manager>();
      first = firstLives ? first : std::nullopt;
      const Manager second;
    });
    EXPECT_EQ(reportProblem(refused, KyrTest::report("only one manager allowed",
                                                     "Kyr::RecordManagerBase::RecordManagerBase",
                                                     "kyr_record_manager", 23)),
              "")
        << firstLives;
  }
}

/// A container that does as it is told when it is reset.
struct Container : StructRecordVectorBase {
  using Act = std::function<void(Container*)>;
  explicit Container(Act itsAct = [](Container*) {}) : act(std::move(itsAct)) {}
  void resetRecordingMode() override { act(this); }
  Act act;
};

/// The registry must be there before main() and after it.
const Container outliving;

TEST(RecordedContainers, AreResetInTheOrderOfTheirAddresses) {
  std::vector<Container*> resets;
  std::optional<Container> room[4];  // ascending addresses
  for (const int place : {2, 0, 1}) {
    room[place].emplace([&](Container* container) { resets.push_back(container); });
  }
  room[3].emplace(*room[0]);
  *room[2] = *room[0];
  room[0].reset();
  StructRecordVectorBase::resetAllRecordingModes();
  EXPECT_EQ(resets, (std::vector<Container*>{&*room[1], &*room[2]}))
      << "a copy, an ended one, or another order";
}

TEST(RecordedContainers, AreCountedAcrossThreads) {
  int resets = 0;  // guarded by the registry's lock
  std::list<Container> all[4];
  KyrTest::inThreads(4, [&](int own) {
    for (int i = 0; i < 50; ++i) {
      all[own].emplace_back([&](Container*) { ++resets; });
      const Container passing = Container(all[own].back().act);
    }
  });
  KyrTest::inThreads(4, [](int) { StructRecordVectorBase::resetAllRecordingModes(); });
  EXPECT_EQ(resets, 4 * 4 * 50) << "rounds of several threads at once";
  KyrTest::inThreads(4, [&](int own) { all[own].clear(); });
  StructRecordVectorBase::resetAllRecordingModes();
  EXPECT_EQ(resets, 4 * 4 * 50) << "an ended one is still known";
}

TEST(RecordedContainers, SurviveAFailedRound) {
  const Container failing([](Container*) { throw 1; });
  EXPECT_THROW(StructRecordVectorBase::resetAllRecordingModes(), int);
  const Container late;  // hangs if the failed round keeps the lock
}

}  // namespace
