#include <kyr/core/KyrApplication.h>

#include <kyr/core/KyrProgError.h>

#include <QtGlobal>

#include <iterator>

namespace Kyr {

namespace {

constexpr ApplicationProperties table[] = {
    {QT_TRANSLATE_NOOP("KyrApplication", "Sheet Forming"), true, true},
    {QT_TRANSLATE_NOOP("KyrApplication", "Motion"), true, true},
    {QT_TRANSLATE_NOOP("KyrApplication", "Inspection"), true, true},
    {QT_TRANSLATE_NOOP("KyrApplication", "Viewer"), false, true},
    {QT_TRANSLATE_NOOP("KyrApplication", "Deformation"), true, true},
    {QT_TRANSLATE_NOOP("KyrApplication", "Material Test"), true, true},
    {QT_TRANSLATE_NOOP("KyrApplication", "Test Rig"), true, true},
    {QT_TRANSLATE_NOOP("KyrApplication", "Launcher"), false, true},
    {QT_TRANSLATE_NOOP("KyrApplication", "Computing Server"), false, false},
    {QT_TRANSLATE_NOOP("KyrApplication", "Sensor"), true, true},
    {QT_TRANSLATE_NOOP("KyrApplication", "Large Structure"), true, true},
    {QT_TRANSLATE_NOOP("KyrApplication", "Production Cell"), true, false},
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
