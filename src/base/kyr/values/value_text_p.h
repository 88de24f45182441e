/// \file
/// How values stand in a line of a keyed text file.
#pragma once

#include <kyr/core/KyrException.h>
#include <kyr/files/KyrFileParse.h>

#include <QString>
#include <QStringList>

namespace Kyr::ValueText {

/// The words of a line, which blanks and tabs divide.
QStringList wordsOf(const QString& text);

/// A text as one word of ASCII, which every codec of a file leaves alone.
QString wordOf(const QString& text);
/// Reverses wordOf(); also takes letters that need no escape.
/// \return false for a word that no text gives
bool textOf(const QString& word, QString& text);

/// Reads a decimal integer without anything around it.
/// \return false when it is none, or not of lowest to highest
bool numberOf(const QString& word, int lowest, int highest, int& number);

/// The key and the values; more than a reader takes at once is continued on further lines.
QString line(const char* key, const QString& values);

/// The Exception for a text that is no value.
/// \param sentence with places for the text and the reason, as "\"%1\" is no font: %2"
/// \param text shortened when it is long
Exception refusal(const QString& sentence, const QString& text, const QString& reason);

/// The values of the next line.
/// \throws FileParse::EndOfFile also when its key only begins with this one
/// \throws FileParse::Error with line and reason when the end of the file cuts the line off
QString nextLine(FileParse::File& file, const char* key);
/// Refuses the value that the line holds.
/// \throws FileParse::Error with the place, and with line and reason as its message
[[noreturn]] void failInLine(const FileParse::File& file, const QString& reason);

template <class Value>
Value read(FileParse::File& file, const char* key) {
  const QString text = nextLine(file, key);
  try {
    return Value::fromText(text);
  } catch (const Exception& error) {
    failInLine(file, error.getText());
  }
}

}  // namespace Kyr::ValueText
