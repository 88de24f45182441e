#include "Fuzz.h"

#include <kyr/values/KyrColour.h>
#include <kyr/values/KyrFont.h>
#include <kyr/values/KyrSound.h>

namespace KyrFuzz {

namespace {

/// A value that was read is written so that it leads back, by itself and in a line of a file.
template <class Value>
void checkValue(const QString& text) {
  Value value;
  if (!refusal([&] { value = Value::fromText(text); }).isNull()) {
    return;
  }
  const QString written = value.toText();
  expect(Value::fromText(written) == value && Value::fromText(written).toText() == written,
         "a value leads back");
  const std::string line = "OTHER 1\n" + value.toLine("KEY").toStdString() + "\nKEY 0";
  expect(std::all_of(line.begin(), line.end(), [](char c) { return c >= 0x20 || c == '\n'; }),
         "a line is ASCII");
  for (const Kyr::TextCodec_t codec : {Kyr::CodecLatin1, Kyr::CodecUtf8}) {
    const Stream stream = streamOf(line);
    Kyr::FileParse::File file(stream.get(), codec);
    file.getLine("OTHER");
    expect(Value::read(file, "KEY") == value, "so it does in a file of any codec");
    file.getLine("KEY");
    expect(file.getCurrentLine() == "0", "the next line is another one");
  }
}

/// What a file holds is a value or refused with its line; then the next line is there.
template <class Value>
void checkLine(std::string_view text) {
  const std::string line = "# <defaultcodec>utf-8</defaultcodec>\nKEY " +
                           std::string(text.substr(0, text.find_first_of("\n\\"))) + "\nEND 1\n";
  const Stream stream = streamOf(line);
  Kyr::FileParse::File file(stream.get());
  try {
    Value::read(file, "KEY");
  } catch (const Kyr::FileParse::Error& error) {
    expect(error.getPlace().line == 2, "a refusal tells the line");
  }
  int end = 0;
  file.getInt("END", end);
  expect(end == 1, "only its own line is consumed");
}

template <class Value>
void check(std::string_view text) {
  checkValue<Value>(textOf(text));
  checkLine<Value>(text);
}

}  // namespace

void harness(Choices input) {
  const auto kind = input.upTo(2);
  (kind == 0 ? check<Kyr::Colour> : kind == 1 ? check<Kyr::Font> : check<Kyr::Sound>)(input.rest());
}

}  // namespace KyrFuzz
