// The units at the very end of a process.
#include "support/Support.h"

#include <kyr/units/KyrUnits.h>

namespace {

/// Called when the C library empties its streams, behind the last destructor of every library.
ssize_t convertAtTheEnd(void* kind, const char* /*bytes*/, std::size_t /*size*/) {
  const auto* const unit = static_cast<const Kyr::Unit*>(kind);
  const bool works = unit->to(50.8, Kyr::Unit::Inch) == 2 && Kyr::Unit::getID(unit) == "LENGTH" &&
                     Kyr::UnitDiff::getUnit("DIFF_LENGTH_s")->getUName(Kyr::Unit::Inch) == "in/s";
  std::_Exit(works ? 9 : 1);
}

TEST(Units, MayBeInUseWhenTheProcessEnds) {
  const auto ended = KyrTest::inChild([] {
    Kyr::UnitDiff::getUnit(&Kyr::uLength, "s");
    cookie_io_functions_t functions{};
    functions.write = convertAtTheEnd;
    std::fputs("x", ::fopencookie(&Kyr::uLength, "w", functions));
    std::exit(0);
  });
  EXPECT_EQ(std::pair(ended.code, ended.errors), std::pair(9, QByteArray()));
}

}  // namespace
