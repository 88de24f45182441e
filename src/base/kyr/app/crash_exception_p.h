/// \file
/// The words for an end that no processor raises.
#pragma once

#include <kyr/app/crash_text_p.h>
#include <kyr/app/out_of_memory_p.h>

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <typeinfo>

#include <cxxabi.h>

namespace Kyr::Crash {

/// That of "fatal application exit".
constexpr std::uint32_t abortCode = 0x40000015;
/// What stands behind that number when nothing more is known.
constexpr const char* abortWords = " (abort() was called)";
/// Under which the compiler's exceptions travel where the system has exceptions of its own.
constexpr std::uint32_t uncaughtExceptionCode = 0x20474343;

/// Appends a name as the source has it, if it is one of the compiler's; else as it is.
inline void appendPlainName(Text& text, const char* name) noexcept {
  int status = 0;
  char* plain = abi::__cxa_demangle(name, nullptr, nullptr, &status);
  text << (plain ? plain : name);
  std::free(plain);
}

/// Appends the name of an exception's type. The one for which there may be no memory to find it is
/// known, and of the library's own kinds of that the base is named, which is what others catch.
inline void appendTypeName(Text& text, const std::type_info* type) noexcept {
  if (type && (*type == typeid(OutOfMemory) || *type == typeid(std::bad_alloc))) {
    text << "std::bad_alloc";
  } else {
    appendPlainName(text, type ? type->name() : "unknown type");
  }
}

/// Appends the type and the text of the exception that is being handled, and of one for want of
/// memory how much was asked for.
inline void appendCurrentException(Text& text) noexcept {
  text.hexadecimal(uncaughtExceptionCode) << " (";
  appendTypeName(text, abi::__cxa_current_exception_type());
  std::size_t bytes = 0;
  try {
    throw;
  } catch (const OutOfMemory& failure) {
    text << ": " << failure.what();
    bytes = failure.bytes();
  } catch (const std::exception& exception) {
    text << ": " << exception.what();
  } catch (...) {
    // Only what derives from std::exception has a text.
  }
  text << ")";
  if (bytes > 0) {
    text << ", ";
    text.count(bytes) << " bytes were asked for";
  }
}

}  // namespace Kyr::Crash
