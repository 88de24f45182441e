/// \file
/// How the platforms share memory between processes.
#pragma once

#include <memory>

namespace Kyr {

/// Memory of the system, mapped into this process until the object ends.
class SharedBlock {
 public:
  SharedBlock(const SharedBlock&) = delete;
  SharedBlock& operator=(const SharedBlock&) = delete;
  virtual ~SharedBlock() = default;

  /// \throws Exception
  static std::shared_ptr<SharedBlock> create(unsigned size);
  /// \throws Exception
  static std::shared_ptr<SharedBlock> attach(unsigned size, int id);

  void* data() const noexcept { return _data; }
  int id() const noexcept { return _id; }

  /// Ends what other processes find the memory by, if this process has made it. Uses no heap;
  /// a second call does nothing. The memory stays.
  virtual void removeName() noexcept = 0;

 protected:
  explicit SharedBlock(int id) : _id(id) {}

  int _id;
  void* _data = nullptr;
};

}  // namespace Kyr
