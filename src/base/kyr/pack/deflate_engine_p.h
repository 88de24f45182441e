/// \file
/// The door to deflate and inflate. No library shows in it: what stands behind it can change.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace Kyr {

/// What stands around the compressed data.
enum class Container_t {
  Zlib,
  Gzip,
  None,  ///< nothing, and no checksum either
};

/// What one run of an engine came to.
enum class Step_t {
  Progressed,  ///< input was used up or the output room is full; go on with more of either
  Starved,     ///< nothing could be done with the input and room at hand; not an error
  Ended,       ///< the compressed stream is complete
  Failed,      ///< final
};

/// Input and output of an engine. Both stay the caller's and must live until they are used up.
class EngineBuffers {
 public:
  virtual ~EngineBuffers() = default;
  EngineBuffers(const EngineBuffers&) = delete;
  EngineBuffers& operator=(const EngineBuffers&) = delete;

  void setInput(const void* bytes, unsigned length) noexcept {
    _input = static_cast<const unsigned char*>(bytes);
    _inputLeft = length;
  }
  void setOutput(void* room, unsigned length) noexcept {
    _output = static_cast<unsigned char*>(room);
    _outputLeft = length;
  }
  unsigned inputLeft() const noexcept { return _inputLeft; }
  unsigned outputLeft() const noexcept { return _outputLeft; }

 protected:
  EngineBuffers() = default;

  const unsigned char* _input = nullptr;
  unsigned _inputLeft = 0;
  unsigned char* _output = nullptr;
  unsigned _outputLeft = 0;
};

/// Compresses at the fastest level. What comes out depends on the sequence of run() calls and
/// their input, not on the room given for the output.
class DeflateEngine : public EngineBuffers {
 public:
  /// \throws std::bad_alloc
  static std::unique_ptr<DeflateEngine> make(Container_t container);

  /// \param finish no more input will come; call again with new room until Step::Ended
  virtual Step_t run(bool finish) noexcept = 0;
  /// Brings out everything that went in, and leaves the stream open; call again with new room
  /// while all of it gets used.
  virtual void flush() noexcept = 0;
};

/// Decompresses, and checks the checksum at the end.
class InflateEngine : public EngineBuffers {
 public:
  /// \throws std::bad_alloc
  static std::unique_ptr<InflateEngine> make(Container_t container);

  /// Produces as much as input and room allow.
  virtual Step_t run() noexcept = 0;
};

}  // namespace Kyr
