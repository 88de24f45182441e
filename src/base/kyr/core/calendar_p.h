/// \file
/// The Gregorian calendar, for those who have neither memory nor the C library.
#pragma once

#include <cstdint>

namespace Kyr::Calendar {

struct Date {
  std::int64_t year;
  std::int64_t month;
  std::int64_t day;
};

/// The date so many days after 1970-01-01.
/// \param days not before the year 1600
constexpr Date dateOf(std::int64_t days) noexcept {
  // Counts years from March on, so that the leap day is their last one; from the March of 1600.
  const std::int64_t since1600 = days + 135080;
  const std::int64_t era = since1600 / 146097;
  const std::int64_t day = since1600 % 146097;
  const std::int64_t year = (day - day / 1460 + day / 36524 - day / 146096) / 365;
  const std::int64_t dayOfYear = day - (365 * year + year / 4 - year / 100);
  const std::int64_t month = (5 * dayOfYear + 2) / 153;
  const bool isNextYear = month >= 10;
  return {1600 + era * 400 + year + (isNextYear ? 1 : 0), isNextYear ? month - 9 : month + 3,
          dayOfYear - (153 * month + 2) / 5 + 1};
}

}  // namespace Kyr::Calendar
