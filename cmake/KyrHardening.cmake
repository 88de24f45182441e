# What makes a fault that is left harder to abuse, for everything that uses kyr_compile;
# tools/check_hardening.py reads it back from what is installed.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

# Programs lie at addresses that nobody can foretell, as libraries do.
check_pie_supported(LANGUAGES CXX)

if(WIN32)
  # Addresses that change, and data that cannot run. Programs of 64 bits spread over all of theirs.
  # No stack protector: the compiler's runs only with a DLL of its own, libssp, beside the programs.
  target_link_options(kyr_compile INTERFACE -Wl,--dynamicbase,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    target_link_options(kyr_compile INTERFACE -Wl,--high-entropy-va)
  endif()
else()
  # Addresses of other libraries' functions are filled in at the start, and then read-only.
  target_link_options(kyr_compile INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
  target_compile_options(kyr_compile INTERFACE -fstack-protector-strong)
  # Indirect jumps land only where the compiler says, on processors that look.
  check_cxx_compiler_flag(-fcf-protection=full KYR_HAS_CF_PROTECTION)
  if(KYR_HAS_CF_PROTECTION)
    target_compile_options(kyr_compile INTERFACE -fcf-protection=full)
  endif()
  # Needs an optimiser; the sanitizers look at more, and do not know its functions.
  if(NOT KYR_SANITIZE)
    target_compile_options(kyr_compile INTERFACE
      $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
  endif()
endif()
