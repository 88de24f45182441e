#include "text/reference_number.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

// This strtod knows where a number ends, but rounds those near zero wrongly.
double KyrTest::referenceToDouble(const std::string& text, std::size_t* length) {
  char* stop = nullptr;
  double value = std::strtod(text.c_str(), &stop);
  *length = static_cast<std::size_t>(stop - text.c_str());
  if (*length == 0) {
    return 0;
  }
  const std::size_t digits = text.find_first_of("0123456789.");
  if (std::isfinite(value) && digits < *length) {
    const bool hexadecimal = text.find_first_of("xX") < *length;
    double magnitude = std::fabs(value);
    std::from_chars(text.data() + digits + (hexadecimal ? 2 : 0), stop, magnitude,
                    hexadecimal ? std::chars_format::hex : std::chars_format::general);
    value = std::copysign(magnitude, value);
  }
  return value;
}
