/// \file
/// What the shared part of the test support needs of the platform.
#pragma once

namespace KyrTest::Platform {

/// This platform's name of a locale that Linux calls \a name; the same where there is no other.
const char* localeName(const char* name);

}  // namespace KyrTest::Platform
