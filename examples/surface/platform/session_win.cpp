#include "surface/session.h"
#include "surface/session_p.h"

namespace Surface {

// A closed stream has no place here that another file could take.
void keepStandardStreams() {}

// The system's names are Unicode.
void assumeUtf8() {}

}  // namespace Surface
