/// \file
/// The words for an end that no processor raises.
#pragma once

#include <kyr/app/crash_text_p.h>

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <typeinfo>

#include <cxxabi.h>

namespace Kyr::Crash {

/// That of "fatal application exit".
constexpr std::uint32_t abortCode = 0x40000015;
/// Under which the compiler's exceptions travel where the system has exceptions of its own.
constexpr std::uint32_t uncaughtExceptionCode = 0x20474343;

/// Appends a name as the source has it, if it is one of the compiler's; else as it is.
inline void appendPlainName(Text& text, const char* name) noexcept {
  int status = 0;
  char* plain = abi::__cxa_demangle(name, nullptr, nullptr, &status);
  text << (plain ? plain : name);
  std::free(plain);
}

/// Appends the type and the text of the exception that is being handled.
inline void appendCurrentException(Text& text) noexcept {
  const std::type_info* type = abi::__cxa_current_exception_type();
  text.hexadecimal(uncaughtExceptionCode) << " (";
  appendPlainName(text, type ? type->name() : "unknown type");
  try {
    throw;
  } catch (const std::exception& exception) {
    text << ": " << exception.what();
  } catch (...) {
    // Only what derives from std::exception has a text.
  }
  text << ")";
}

}  // namespace Kyr::Crash
