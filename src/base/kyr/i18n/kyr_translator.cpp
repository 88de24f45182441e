#include <kyr/i18n/KyrTranslate.h>

namespace Kyr {

QString translate(const char* /*context*/, const char* text) {
  return QString::fromUtf8(text);
}

}  // namespace Kyr
