/// \file
/// What a command that may take long owes its user.
#pragma once

#include "command_table.h"

#include <kyr/terminal/KyrInterruptWatch.h>
#include <kyr/terminal/KyrTerminalProgress.h>

#include <optional>

namespace KyrTool {

/// Shows a bar on a terminal and turns Ctrl-C into a stop, while it lives; neither for commands
/// that are quick.
class Work {
 public:
  explicit Work(const Command& command);
  ~Work();
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;

  bool wasInterrupted() const { return _watch && _watch->wasInterrupted(); }

 private:
  std::optional<Kyr::InterruptWatch> _watch;
  std::optional<Kyr::TerminalProgress> _bar;
};

}  // namespace KyrTool
