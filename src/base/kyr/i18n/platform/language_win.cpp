#include <kyr/i18n/language_p.h>

#include <windows.h>

namespace Kyr {

unsigned Platform::userInterfaceLanguage() {
  return ::GetUserDefaultUILanguage();
}

}  // namespace Kyr
