#include <kyr/time/time_local_p.h>

#include <time.h>

namespace Kyr {

static_assert(sizeof(std::time_t) == sizeof(std::int64_t), "moments reach beyond the year 2038");

std::tm Platform::localFields(std::int64_t seconds) {
  const std::time_t moment = seconds;
  std::tm fields{};
  ::tzset();  // localtime_r alone need not notice that TZ has changed
  ::localtime_r(&moment, &fields);
  return fields;
}

}  // namespace Kyr
