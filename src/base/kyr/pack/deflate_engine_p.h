/// \file
/// The only door to deflate and inflate; no other file of the library calls zlib.
#pragma once

#include <memory>

struct z_stream_s;

namespace Kyr {

/// What stands around the compressed data.
enum class Container { Zlib, Gzip };

/// What one run of an engine came to.
enum class Step {
  Progressed,  ///< input was used up or the output room is full; go on with more of either
  Starved,     ///< nothing could be done with the input and room at hand; not an error
  Ended,       ///< the compressed stream is complete
  Failed,      ///< final
};

/// Input and output of an engine. Both stay the caller's and must live until they are used up.
class EngineBuffers {
 public:
  EngineBuffers(const EngineBuffers&) = delete;
  EngineBuffers& operator=(const EngineBuffers&) = delete;

  void setInput(const void* bytes, unsigned length) noexcept;
  void setOutput(void* room, unsigned length) noexcept;
  unsigned inputLeft() const noexcept;
  unsigned outputLeft() const noexcept;

 protected:
  EngineBuffers();
  ~EngineBuffers();

  const std::unique_ptr<z_stream_s> _stream;
};

/// Compresses at the fastest level. What comes out depends on the sequence of run() calls and
/// their input, not on the room given for the output.
class DeflateEngine : public EngineBuffers {
 public:
  /// \throws std::bad_alloc
  explicit DeflateEngine(Container container);
  ~DeflateEngine();

  /// \param finish no more input will come; call again with new room until Step::Ended
  Step run(bool finish) noexcept;
  /// Brings out everything that went in, and leaves the stream open; call again with new room
  /// while all of it gets used.
  void flush() noexcept;
};

/// Decompresses, and checks the checksum at the end.
class InflateEngine : public EngineBuffers {
 public:
  /// \throws std::bad_alloc
  explicit InflateEngine(Container container);
  ~InflateEngine();

  /// Produces as much as input and room allow.
  Step run() noexcept;
};

}  // namespace Kyr
