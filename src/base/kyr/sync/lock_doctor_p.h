/// \file
/// What other rooms add to the lock doctor.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Kyr::LockBooks {

/// Takes text in pieces.
struct Sink {
  void (*write)(void* context, const char* text, std::size_t length);
  void* context;
};

/// Sets what tells where another thread stands, in lines with their ends. Called while that thread
/// runs on, by one that waits for it.
/// \param hook must not throw, nor wait for a Mutex under which others are taken; null takes it
/// back
void setStackHook(void (*hook)(std::uint64_t thread, const Sink& sink)) noexcept;

}  // namespace Kyr::LockBooks
