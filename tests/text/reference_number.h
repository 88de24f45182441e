/// \file
/// What a number in a text is worth, found out without the library.
#pragma once

#include <cstddef>
#include <string>

namespace KyrTest {

/// Reads a number as strtod of the locale "C" should.
/// \param length becomes how much of the text belongs to the number
double referenceToDouble(const std::string& text, std::size_t* length);

}  // namespace KyrTest
