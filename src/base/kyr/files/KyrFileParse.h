/// \file
/// The reader of the suite's keyed text files.
#pragma once

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrPlatform.h>
#include <kyr/text/KyrTextCodec.h>

#include <QString>

#include <cstdio>
#include <memory>
#include <vector>

namespace Kyr::FileParse {

/// Reads a keyed text file line by line and a line value by value.
///
/// A data line is a key, blanks and values. Empty lines and lines that begin with `#` are passed
/// over, a backslash at the end of a line joins it with the next. The keyed operations (getLine
/// to getStringLine) move to the next data line, the value operations (nextInt to skipChars)
/// consume that line, the current line, from its front. The format: docs/formats/keyed-text.md.
///
/// A file that ends where a line is continued was cut short, and the line is not there to be read:
/// a reader in strict mode says so, any other gives what the line before it left.
///
/// \code
/// try {
///   FileParse::File file("points.txt");
///   file.getInt("WIDTH", width);
/// } catch (const Exception& error) {
///   std::cerr << qPrintable(error.getText());  // points.txt:12:7: "wide" is no integer
/// }
/// \endcode
///
/// Every Error and EndOfFile knows its place (getPlace()) and has a sentence for people
/// (getSentence(), translate()). Where the reader has opened the file by its name, that is also the
/// message; over a stream of the caller's the message is empty, as it always was.
///
/// Copies read from the same stream, each with its own current line.
/// \threadsafety one thread at a time; the stream as well
class KYR_EXPORT File {
 public:
  /// Takes the codec from a marker in the line at the stream's position, which is then consumed
  /// without being counted. Without a marker the stream moves to its start; where it cannot move
  /// (a pipe), the line is kept for the first read.
  ///
  /// Whatever else stands in that line, it is a marker if getCodecInLine() finds one: data such as
  /// `FILE <defaultcodec>_utf-8.txt` would be lost. Files whose first line may hold any text
  /// begin with the marker of their codec (getCodecForLine()), as only one line is searched.
  /// \param stream open for reading, closed by the caller after the last use of the reader and
  ///     its copies; null is read as an empty stream
  explicit File(std::FILE* stream);
  /// \param codec for files without a marker
  File(std::FILE* stream, TextCodec_t codec);
  /// Opens a file by its name, and closes it with the last copy of the reader. Such a reader is
  /// strict from the beginning, and what cannot be read is an Error, not the end of the file.
  /// \param name as for OS::openFile()
  /// \throws Exception "cannot open NAME: REASON"
  explicit File(const QString& name, TextCodec_t codec = CodecLatin1);
  File(const File& other);
  File& operator=(const File& other);
  ~File();

  /// The line feeds of the whole stream, without one in its very first byte. So a last line
  /// without line feed is not counted. The position stays as it is.
  /// \return 0 for a stream that cannot move, of which nothing is consumed; 2147483647 also for
  ///     more than that
  /// \throws Error where a file that was opened by name cannot be read
  int getNumberOfLines() const;

  /// Reads of lines so far by the keyed operations: physical lines, of which one of more than
  /// 4095 bytes counts several times, and the attempt at the end of the stream. Neither the marker
  /// line nor lines of getStringFromBlankLine() count. Stays at the largest int.
  int getLineNumber() const;

  /// The name by which the reader has opened the file; empty over a stream of the caller's.
  QString getFileName() const;

  /// The codec of the file's marker, without one that which the constructor was given.
  TextCodec_t getCodec() const;

  /// The line of the file, counted from 1 as an editor counts, in which the line read last
  /// begins; at the end of the stream the number behind the last line. For messages. Counts from
  /// where the reader began and only what it read itself, not what a copy of it took meanwhile.
  /// \return 0 before the first read
  qint64 getPhysicalLineNumber() const;

  /// The data line read last, whole, with its key and its continuations, tabs as blanks; also
  /// one that was refused for its key or cut off by the end of the stream. Empty at the end of
  /// the stream. For messages.
  QString getDataLine() const;

  /// Where the value stands that was taken last from the current line, and the value; before the
  /// first value the key. In a line that is continued, the line of the file in which it stands.
  /// A value's column does not count what damage has hidden, as zero bytes.
  Place getPlace() const;

  /// Refuses the value that was taken last, whose form was right, as a corner that does not exist.
  /// \param reason for people, in their language; a sentence without a full stop
  /// \param at the index of the first character of the value that is wrong
  /// \throws Error with the place of the value; its message is the sentence, also without a name
  [[noreturn]] void fail(const QString& reason, int at = 0) const;

  /// The rest of the current line that no operation has consumed.
  /// Costs its length after each change; loops over all values of a line ask atEndOfLine().
  /// \return a text that stays until the next call of this operation
  const QString& getCurrentLine() const;
  /// The same as getCurrentLine().
  const QString& getNextChar();
  /// Whether nothing of the current line is left, at constant cost.
  bool atEndOfLine() const;

  /// Whether the stream ended where a line is continued; a comment counts as well. What there was
  /// of that line is dropped. If it was anything and the reader is not strict, the operation that
  /// met it has succeeded all the same and left the current line as it was.
  /// \return stays true until a further line is read
  bool endedInside() const;

  /// Makes the keyed operations throw Error once when the stream ends where a data line is
  /// continued; behind it comes EndOfFile. A comment that is cut off there has nothing to lose and
  /// is passed over.
  /// \param strict in the beginning false over a stream, true for a file opened by name
  void setStrict(bool strict);
  /// What setStrict() was given last.
  bool isStrict() const;

  /// Moves to the next data line, which must begin with \a key; its values follow.
  /// A data line with another key is consumed all the same, and the current line then stays.
  /// A line that is continued at the end of the stream is dropped, without a failure; see
  /// endedInside() and setStrict().
  /// \param key Latin-1, compared with the start of the line only (`POINT` accepts `POINTS 5`);
  ///     an empty key accepts any data line
  /// \throws EndOfFile when there is no further data line or it has another key
  /// \throws Error when more than 2^29 characters are joined to one line; in strict mode at the
  ///     end of the stream within a line
  void getLine(const char* key);

  /// Looks at the first word of the next data line, which stays to be read: no counter moves. An
  /// optional line costs about as much as one that is read.
  /// \param key gets the characters up to the first blank or tab; stays without a line
  /// \return false where there is no further data line, also where the stream ends within it
  /// \throws Error where a file that was opened by name cannot be read; in strict mode where the
  ///     stream ends within a data line, until a keyed operation has said so
  bool peekKey(QString& key);

  /// getLine() and then nextInt().
  /// \throws EndOfFile, Error as these two
  void getInt(const char* key, int& value);
  void getInt(const char* key, unsigned int& value);
  void getInt(const char* key, bool& value);
  void getInt(const char* key, char& value);
  void getInt(const char* key, unsigned char& value);
  void getInt(const char* key, qint64& value);
  void getInt(const char* key, quint64& value);
  /// getLine() and then nextDouble().
  /// \throws EndOfFile, Error as these two
  void getDouble(const char* key, double& value);
  /// getLine() and then nextFloat().
  /// \throws EndOfFile, Error as these two
  void getFloat(const char* key, float& value);
  /// getLine() and then nextDoubles().
  /// \throws EndOfFile, Error as these two
  void getDoubles(const char* key, std::vector<double>& values);
  /// getLine() and then nextString().
  /// \throws EndOfFile, Error as these two
  void getString(const char* key, QString& value);
  /// getLine() and then the whole rest of the line, which may be empty.
  /// \throws EndOfFile, Error as getLine()
  void getStringLine(const char* key, QString& value);

  /// Takes a decimal integer and the blanks behind it. White space may precede it; what follows
  /// its digits directly begins the next value.
  /// \param value gets a number of -2147483648 to 2147483647 as it converts: `unsigned int`
  ///     keeps its bits, `char` the low eight, `bool` whether it is not 0; stays on failure
  /// \throws Error at the end of the line, without a number or outside that range
  void nextInt(int& value);
  void nextInt(unsigned int& value);
  void nextInt(bool& value);
  void nextInt(char& value);
  void nextInt(unsigned char& value);
  /// The same for the numbers that 64 bits hold; the unsigned one takes no "-".
  void nextInt(qint64& value);
  void nextInt(quint64& value);
  /// Takes a number in the forms of the C library's strtod, with a decimal point in every locale,
  /// and the blanks behind it.
  /// \throws Error at the end of the line or without a number
  void nextDouble(double& value);
  /// As nextDouble(), rounded.
  /// \throws Error as nextDouble(), and for a number that only double holds; it is not consumed
  void nextFloat(float& value);
  /// Takes all numbers that are left in the line; uses the memory that \a values has.
  /// \param values gets them; none where nothing is left, on failure those before the wrong one
  /// \throws Error where something is no number
  void nextDoubles(std::vector<double>& values);
  /// Takes the characters up to the next blank and the blanks behind them; an empty text when
  /// the current line begins with a blank. Uses the memory that \a value has.
  /// \throws Error at the end of the line
  void nextString(QString& value);
  /// Takes a pair `name="value"`; the value has no escapes and so no double quotes. What follows
  /// the closing quote, blanks included, stays.
  /// \param name Latin-1; white space may precede it, none may follow
  /// \throws Error at the end of the line or for any other form; nothing is consumed then
  void nextStringValue(const char* name, QString& value);
  /// Drops characters (UTF-16 units) from the front of the current line.
  /// \throws Error when fewer are left; nothing is consumed then
  void skipChars(unsigned int count);

  /// Takes the next line of the stream as it stands, without its line feed, past keys, comments
  /// and continuations. The current line stays.
  /// \return at most 4095 bytes, decoded; of a longer line the next call gives more
  /// \throws EndOfFile at the end of the stream
  QString getStringFromBlankLine();

 private:
  struct State;
  std::unique_ptr<State> _state;
};

}  // namespace Kyr::FileParse
