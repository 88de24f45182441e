#include "text/reference_number.h"

#include <cstdlib>

double KyrTest::referenceToDouble(const std::string& text, std::size_t* length) {
  char* stop = nullptr;
  const double value = std::strtod(text.c_str(), &stop);
  *length = static_cast<std::size_t>(stop - text.c_str());
  return value;
}
