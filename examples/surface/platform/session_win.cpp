#include "surface/session.h"
#include "surface/session_p.h"

namespace Surface {

// A closed stream leaves no place on this system that another file could take.
void keepStandardStreams() {}

// Nothing is to be assumed: names on this system are Unicode.
void assumeUtf8() {}

}  // namespace Surface
