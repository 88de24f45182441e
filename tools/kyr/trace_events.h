/// \file
/// The events of a trace, one after the other.
#pragma once

#include "input.h"

#include <QByteArray>
#include <QJsonObject>

#include <cstdint>

namespace KyrTool {

/// Reads an array of JSON whose elements are objects, without holding more than one of them. The
/// end may be missing, as in a trace whose process has died.
class TraceEvents {
 public:
  explicit TraceEvents(Input& input) : _input(input) {}

  /// \return false at the end
  /// \throws FileError for what is no such array, with the byte; Kyr::Stopped
  bool next(QJsonObject& event);
  /// Whether the array came to its end; known when next() has given false.
  bool isWhole() const { return _isWhole; }
  /// Throws the FileError for the event read last.
  [[noreturn]] void fail(const QString& reason) const;

 private:
  static constexpr int nothing = -1;

  int take();
  int takeBehindBlanks();
  bool collect();

  Input& _input;
  Kyr::StructVector<unsigned char> _piece;
  std::size_t _taken = 0;    // of the piece
  std::uint64_t _read = 0;   // bytes of the file
  std::uint64_t _begin = 0;  // of the event read last
  QByteArray _event;
  bool _hasBegun = false;
  bool _isWhole = false;
};

}  // namespace KyrTool
