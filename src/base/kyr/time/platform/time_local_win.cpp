#include <kyr/time/time_local_p.h>

#include <time.h>

namespace Kyr {

std::tm Platform::localFields(std::int64_t seconds) {
  // The 32 bits of std::time_t would end in the year 2038.
  const __time64_t moment = seconds;
  std::tm fields{};
  _tzset();  // the runtime alone does not notice that TZ has changed
  _localtime64_s(&fields, &moment);
  return fields;
}

}  // namespace Kyr
