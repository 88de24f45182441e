/// \file
/// The library's growable array of plain elements.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

namespace Kyr {

/// Resizes a block of the C heap; asks the installed new-handler before it gives up.
/// \param block from an earlier call, or null for a new block
/// \param bytes the new size; 0 frees the block and gives null
/// \throws std::bad_alloc, the old block then stands unchanged
/// \threadsafety any thread, each with its own block
KYR_EXPORT void* reallocateStorage(void* block, std::size_t bytes);

/// A growable array of trivially copyable elements in one block of memory.
///
/// Growing leaves new elements uninitialised and moves the block with `realloc`, so that large
/// buffers grow without being copied. Appending costs amortised constant time.
/// \code
/// StructVector<unsigned char> bytes;
/// bytes.setSize(sizeof room);  // not initialised
/// std::memcpy(bytes.data(), room, bytes.size());
/// bytes.append(0);
/// \endcode
/// \threadsafety one thread at a time, as a standard container
template <class T>
class StructVector {
  static_assert(std::is_trivially_copyable_v<T>, "elements are moved as bytes");
  static_assert(alignof(T) <= alignof(std::max_align_t), "the C heap aligns no further");

 public:
  using value_type = T;  ///< as standard containers call it

  /// Empty, without memory.
  StructVector() = default;
  /// \param size number of elements, each a copy of \a value
  explicit StructVector(std::size_t size, const T& value = T()) {
    setCapacity(size);
    std::fill_n(_data, size, value);
    _size = size;
  }
  /// The elements of a list. As with std::vector, numbers in braces are elements: a size stands in
  /// parentheses.
  StructVector(std::initializer_list<T> elements) { append(elements.begin(), elements.size()); }
  StructVector(const StructVector& other) { append(other._data, other._size); }
  StructVector(StructVector&& other) noexcept { swap(other); }
  StructVector& operator=(const StructVector& other) {
    StructVector(other).swap(*this);
    return *this;
  }
  StructVector& operator=(StructVector&& other) noexcept {
    StructVector(std::move(other)).swap(*this);
    return *this;
  }
  ~StructVector() { reallocateStorage(_data, 0); }

  /// Elements in use.
  std::size_t size() const noexcept { return _size; }
  /// Elements for which there is memory.
  std::size_t capacity() const noexcept { return _capacity; }
  /// Whether size() is 0.
  bool empty() const noexcept { return _size == 0; }
  /// The first element; null where capacity() is 0. What makes it grow or shrink moves it.
  T* data() noexcept { return _data; }
  const T* data() const noexcept { return _data; }
  /// As data(), for loops and algorithms.
  T* begin() noexcept { return _data; }
  /// Behind the last element in use.
  T* end() noexcept { return _data + _size; }
  /// As data(), for loops and algorithms.
  const T* begin() const noexcept { return _data; }
  /// Behind the last element in use.
  const T* end() const noexcept { return _data + _size; }
  /// \param index below size(); not checked
  T& operator[](std::size_t index) noexcept { return _data[index]; }
  const T& operator[](std::size_t index) const noexcept { return _data[index]; }

  /// Changes the capacity by a signed number of elements, keeping the contents.
  /// \param difference may be negative; the capacity never falls below the size
  /// \throws std::bad_alloc; the vector is unchanged then
  void changeCapacity(std::ptrdiff_t difference) {
    if (difference < 0) {
      const auto less = std::size_t(0) - static_cast<std::size_t>(difference);
      setCapacity(std::max(_size, _capacity - std::min(_capacity, less)));
    } else {
      setCapacity(sum(_capacity, static_cast<std::size_t>(difference)));
    }
  }
  /// Gives back the memory behind the last element.
  /// \throws std::bad_alloc; the vector is unchanged then
  void trim() { setCapacity(_size); }
  /// Makes room for at least \a capacity elements, at least doubling when it grows.
  /// \throws std::bad_alloc; the vector is unchanged then
  void reserve(std::size_t capacity) {
    if (capacity > _capacity) {
      setCapacity(std::max(capacity, std::min(_capacity, maximum() / 2) * 2));
    }
  }
  /// Sets the number of elements in use; new ones are uninitialised.
  /// \throws std::bad_alloc; the vector is unchanged then
  void setSize(std::size_t size) {
    reserve(size);
    _size = size;
  }
  /// No element is in use any more; the memory stays for the next ones.
  void clear() noexcept { _size = 0; }

  /// Appends one element, which may be one of this vector.
  /// \throws std::bad_alloc; the vector is unchanged then
  void append(const T& element) {
    const T copy = element;
    if (_size == _capacity) {
      reserve(sum(_size, 1));
    }
    _data[_size++] = copy;
  }
  /// Appends \a count elements, which may be some of this vector.
  /// \throws std::bad_alloc; the vector is unchanged then
  void append(const T* elements, std::size_t count) {
    if (count == 0) {
      return;
    }
    const bool own = !std::less<>()(elements, _data) && std::less<>()(elements, _data + _size);
    const std::ptrdiff_t offset = own ? elements - _data : 0;
    reserve(sum(_size, count));
    const T* const source = own ? _data + offset : elements;
    std::memcpy(static_cast<void*>(_data + _size), source, count * sizeof(T));
    _size += count;
  }

  /// Exchanges elements and memory with another vector; no element moves.
  void swap(StructVector& other) noexcept {
    std::swap(_data, other._data);
    std::swap(_size, other._size);
    std::swap(_capacity, other._capacity);
  }

 private:
  static constexpr std::size_t maximum() {
    return static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / sizeof(T);
  }
  static std::size_t sum(std::size_t a, std::size_t b) {
    if (b > maximum() || a > maximum() - b) {
      throw std::bad_alloc();
    }
    return a + b;
  }
  void setCapacity(std::size_t capacity) {
    if (capacity > maximum()) {
      throw std::bad_alloc();
    }
    if (capacity != _capacity) {
      _data = static_cast<T*>(reallocateStorage(_data, capacity * sizeof(T)));
      _capacity = capacity;
    }
  }

  T* _data = nullptr;
  std::size_t _size = 0;
  std::size_t _capacity = 0;
};

template <class T>
bool operator==(const StructVector<T>& a, const StructVector<T>& b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
}
template <class T>
bool operator!=(const StructVector<T>& a, const StructVector<T>& b) {
  return !(a == b);
}

}  // namespace Kyr
