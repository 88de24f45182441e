#include <kyr/core/KyrApplication.h>

#include <kyr/core/KyrProgError.h>

#include <iterator>

namespace Kyr {

namespace {

constexpr ApplicationProperties table[] = {
    {"Sheet Forming", true, true},      {"Motion", true, true},
    {"Inspection", true, true},         {"Viewer", false, true},
    {"Deformation", true, true},        {"Material Test", true, true},
    {"Test Rig", true, true},           {"Launcher", false, true},
    {"Computing Server", false, false}, {"Sensor", true, true},
    {"Large Structure", true, true},    {"Production Cell", true, false},
};
static_assert(std::size(table) == applicationCount, "one row for each application");

}  // namespace

const ApplicationProperties& applicationProperties(Application_t application) {
  const auto row = static_cast<unsigned>(application);
  if (row >= applicationCount) {
    throw ProgError("unknown application", true);
  }
  return table[row];
}

}  // namespace Kyr
