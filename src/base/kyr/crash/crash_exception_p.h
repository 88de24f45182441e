/// \file
/// The words for an end that no processor raises.
#pragma once

#include <kyr/crash/crash_text_p.h>
#include <kyr/crash/out_of_memory_p.h>

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <typeinfo>

#include <cxxabi.h>

namespace Kyr::Crash {

/// The number under which abort() is reported: the system's for "fatal application exit".
constexpr std::uint32_t abortCode = 0x40000015;
/// What stands behind abortCode when nothing more is known.
constexpr const char* abortWords = " (abort() was called)";
/// The number of exceptions of C++: under it they travel where the system has exceptions of its
/// own.
constexpr std::uint32_t uncaughtExceptionCode = 0x20474343;

/// Appends a name as the source has it, if it is a symbol of the compiler; any other as it is.
inline void appendPlainName(Text& text, const char* name) noexcept {
  int status = 0;
  char* plain = abi::__cxa_demangle(name, nullptr, nullptr, &status);
  text << (plain ? plain : name);
  std::free(plain);
}

/// Appends the name of an exception's type. That of std::bad_alloc is known, as there may be no
/// memory to find it; the library's own kind of it is named so as well, as others catch it by that.
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
