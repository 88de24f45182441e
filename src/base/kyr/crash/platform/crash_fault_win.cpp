#include <kyr/crash/crash_exception_p.h>
#include <kyr/crash/crash_win_p.h>

#include <windows.h>

namespace Kyr {

namespace {

struct Name {
  DWORD code;
  const char* text;
};

constexpr Name names[] = {
    {EXCEPTION_ACCESS_VIOLATION, "EXCEPTION_ACCESS_VIOLATION"},
    {EXCEPTION_DATATYPE_MISALIGNMENT, "EXCEPTION_DATATYPE_MISALIGNMENT"},
    {EXCEPTION_BREAKPOINT, "EXCEPTION_BREAKPOINT"},
    {EXCEPTION_SINGLE_STEP, "EXCEPTION_SINGLE_STEP"},
    {EXCEPTION_GUARD_PAGE, "EXCEPTION_GUARD_PAGE"},
    {EXCEPTION_ARRAY_BOUNDS_EXCEEDED, "EXCEPTION_ARRAY_BOUNDS_EXCEEDED"},
    {EXCEPTION_FLT_DENORMAL_OPERAND, "EXCEPTION_FLT_DENORMAL_OPERAND"},
    {EXCEPTION_FLT_DIVIDE_BY_ZERO, "EXCEPTION_FLT_DIVIDE_BY_ZERO"},
    {EXCEPTION_FLT_INEXACT_RESULT, "EXCEPTION_FLT_INEXACT_RESULT"},
    {EXCEPTION_FLT_INVALID_OPERATION, "EXCEPTION_FLT_INVALID_OPERATION"},
    {EXCEPTION_FLT_OVERFLOW, "EXCEPTION_FLT_OVERFLOW"},
    {EXCEPTION_FLT_STACK_CHECK, "EXCEPTION_FLT_STACK_CHECK"},
    {EXCEPTION_FLT_UNDERFLOW, "EXCEPTION_FLT_UNDERFLOW"},
    {EXCEPTION_INT_DIVIDE_BY_ZERO, "EXCEPTION_INT_DIVIDE_BY_ZERO"},
    {EXCEPTION_INT_OVERFLOW, "EXCEPTION_INT_OVERFLOW"},
    {EXCEPTION_PRIV_INSTRUCTION, "EXCEPTION_PRIV_INSTRUCTION"},
    {EXCEPTION_IN_PAGE_ERROR, "EXCEPTION_IN_PAGE_ERROR"},
    {EXCEPTION_ILLEGAL_INSTRUCTION, "EXCEPTION_ILLEGAL_INSTRUCTION"},
    {EXCEPTION_NONCONTINUABLE_EXCEPTION, "EXCEPTION_NONCONTINUABLE_EXCEPTION"},
    {EXCEPTION_STACK_OVERFLOW, "EXCEPTION_STACK_OVERFLOW"},
    {EXCEPTION_INVALID_DISPOSITION, "EXCEPTION_INVALID_DISPOSITION"},
    {EXCEPTION_INVALID_HANDLE, "EXCEPTION_INVALID_HANDLE"},
};

const char* nameOf(DWORD code) noexcept {
  for (const Name& name : names) {
    if (name.code == code) {
      return name.text;
    }
  }
  return nullptr;
}

}  // namespace

void Crash::describe(const _EXCEPTION_RECORD& fault, const char* words, Text& headline) noexcept {
  const char* const name = words ? words : nameOf(fault.ExceptionCode);
  if (name) {
    headline << name;
  } else {
    headline.hexadecimal(fault.ExceptionCode);
    headline << (fault.ExceptionCode == abortCode ? abortWords : "");
  }
  if (fault.ExceptionCode == EXCEPTION_ACCESS_VIOLATION && fault.NumberParameters >= 2) {
    headline << (fault.ExceptionInformation[0] == 0 ? " (read from" : " (write to") << " address ";
    headline.hexadecimal(fault.ExceptionInformation[1]) << ")";
  }
  Text text;
  text << "caught exception: " << headline.data() << "\nat address ";
  text.hexadecimal(reinterpret_cast<std::uintptr_t>(fault.ExceptionAddress)) << "\n";
  write(text);
}

}  // namespace Kyr
