#include "surface/abort.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrProgress.h>

namespace Surface {

Aborted::Aborted() : Kyr::Exception(Kyr::translate("Surface", "stopped by the user")) {}

void stopIfAborted() {
  if (Kyr::Progress::getAbortFlag()) {
    throw Aborted();
  }
}

}  // namespace Surface
