/// \file
/// What the harnesses share. A harness is one file, NAME.cpp, with one function that takes any
/// bytes and ends the process where the library breaks a promise.
#pragma once

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrStructVector.h>

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace KyrFuzz {

constexpr std::size_t mostPlain = std::size_t{1} << 20U;

/// Takes an input apart, from its front. Beyond the end there are zeros and empty texts.
class Choices {
 public:
  explicit Choices(std::string_view bytes) : _rest(bytes) {}

  bool atEnd() const { return _rest.empty(); }
  /// A number from 0 to \a most. The digit 3 is 3, so that people can write inputs.
  /// \param most at most 255
  unsigned upTo(unsigned most);
  bool yes() { return upTo(1) == 1; }
  std::string_view take(std::size_t count);
  template <class Number>
  Number number() {
    Number value = 0;
    const std::string_view bytes = take(sizeof value);
    std::memcpy(&value, bytes.data(), bytes.size());
    return value;
  }
  /// The bytes up to the next line feed, which is dropped.
  std::string_view line();
  std::string_view rest() { return take(_rest.size()); }
  /// What is left, so many times, but less than \a most bytes of it.
  std::string repeated(std::size_t times, std::size_t most = mostPlain);
  /// An index into the first 64 KiB of bytes.
  std::size_t place(const std::string& bytes) {
    return (upTo(255) * 256 + upTo(255)) % bytes.size();
  }

 private:
  std::string_view _rest;
};

/// What a harness does with an input; each defines it.
void harness(Choices input);

/// Ends the process, for both sanitizers and libFuzzer to see, unless a promise holds.
/// \param promise what was to be, for the report
inline void expect(bool holds, const char* promise) {
  if (!holds) {
    std::fprintf(stderr, "Broken: %s\n", promise);
    __builtin_trap();
  }
}

/// What the Kyr::Exception says that an action throws; null when it throws none.
template <class Action>
QString refusal(const Action& action) {
  try {
    action();
  } catch (const Kyr::Exception& error) {
    return QString("refused: ") + error.getText();
  }
  return {};
}

/// A folder of this process's own among the temporary files, gone with the process.
const QString& folder();

/// A stream of the C library that holds these bytes, which live longer; closes itself.
using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
Stream streamOf(std::string_view bytes);

/// Bytes behind which the process has no memory: who reads on ends it, sanitizer or not.
/// \param bytes at most 1 MB
/// \return valid until the next call
std::string_view fenced(std::string_view bytes);

QByteArray contentOf(const QString& path);

inline Kyr::StructVector<unsigned char> vectorOf(std::string_view bytes) {
  Kyr::StructVector<unsigned char> vector;
  vector.append(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  return vector;
}

template <class Bytes>
std::string_view viewOf(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

inline QByteArray arrayOf(std::string_view bytes) {
  return {bytes.data(), static_cast<int>(bytes.size())};
}

inline QString textOf(std::string_view bytes) {
  return QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
}

/// Texts with halves of characters, which no UTF-8 gives.
inline QString halvesOf(std::string_view bytes) {
  QString text(static_cast<int>(bytes.size() / 2), QChar());
  std::memcpy(text.data(), bytes.data(), static_cast<std::size_t>(text.size()) * sizeof(QChar));
  return text;
}

}  // namespace KyrFuzz
