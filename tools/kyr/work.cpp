#include "work.h"

#include "console_p.h"
#include "output.h"

namespace KyrTool {

namespace {

/// Lines in a pipe would be taken for faults, and a bar in the middle of content is one.
bool hasBar(const Command& command) {
  const bool isInTheWay = command.duration == LongOnOutput && isTerminal(StandardOutput);
  return isTerminal(StandardError) && !isInTheWay;
}

}  // namespace

Work::Work(const Command& command) {
  if (command.duration == Quick) {
    return;
  }
  _watch.emplace();
  if (hasBar(command)) {
    _bar.emplace();
    setBeforeWriting([this] { _bar->wipe(); });
  }
}

Work::~Work() {
  setBeforeWriting({});
}

}  // namespace KyrTool
