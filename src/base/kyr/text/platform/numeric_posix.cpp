#include <kyr/text/numeric_p.h>

#include <clocale>
#include <cstdlib>

#include <locale.h>

namespace Kyr::Numeric {

namespace {

// The locale is never freed: a number may be parsed while static objects are being destroyed.
locale_t plainLocale() noexcept {
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  return plain;
}

}  // namespace

double parseRareDouble(const char* text) noexcept {
  return strtod_l(text, nullptr, plainLocale());
}

}  // namespace Kyr::Numeric
