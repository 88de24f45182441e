/// \file
/// Values in the registry of Windows that only one process sees.
#pragma once

#include <kyr/os/KyrOS.h>

namespace KyrTest {

/// In a child: gives the process a hive of its own with one value of the suite.
/// \param text is stored without a zero at its end
void registerValue(Kyr::OS::RegistryScope_t scope, const wchar_t* name, const wchar_t* text);

}  // namespace KyrTest
