#include "surface/abort.h"

#include <kyr/jobs/KyrProgress.h>

namespace Surface {

Aborted::Aborted() : Kyr::Exception("stopped by the user") {}

void stopIfAborted() {
  if (Kyr::Progress::getAbortFlag()) {
    throw Aborted();
  }
}

}  // namespace Surface
