/// \file
/// Sounds as settings keep them.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/files/KyrFileParse.h>

#include <QString>

namespace Kyr {

/// A sound of a setting, for instance at the end of a measurement. A plain value: nothing here
/// plays it or asks whether the file exists. As text: docs/formats/values.md.
/// \code
/// const Sound done("sounds/done.wav", 80, 3);
/// std::cout << done.toLine("DONE").toStdString() << '\n';  // DONE sounds/done.wav 80 3
/// \endcode
/// \threadsafety as QString
class KYR_EXPORT Sound {
 public:
  static constexpr int loudest = 100;              ///< percent
  static constexpr int untilStopped = 0;           ///< repetitions without end
  static constexpr int mostRepetitions = 1000000;  ///< the largest number of them

  /// Silence.
  Sound() = default;
  /// \param file its name; empty for silence
  /// \param volume in percent, 0 to loudest
  /// \param repetitions how often it is played, 1 to mostRepetitions, or untilStopped
  /// \throws Exception for values outside these
  explicit Sound(const QString& file, int volume = loudest, int repetitions = 1);

  /// The name of the file; empty for silence.
  const QString& file() const { return _file; }
  /// In percent, 0 to loudest.
  int volume() const { return _volume; }
  /// How often it is played, 1 to mostRepetitions, or untilStopped.
  int repetitions() const { return _repetitions; }
  /// Whether there is nothing to be heard: no file, or no volume.
  bool isSilent() const { return _file.isEmpty() || _volume == 0; }

  /// The values of a line, as "sounds/done.wav 80 3".
  QString toText() const;
  /// A line of a keyed text file, without line end; a very long one is continued.
  /// \param key Latin-1, without white space
  QString toLine(const char* key) const;

  /// Reads what toText() writes; the repetitions, and the volume with them, may be missing.
  /// \throws Exception for any other text
  static Sound fromText(const QString& text);
  /// Reads the next line of a keyed text file.
  /// \throws FileParse::EndOfFile as FileParse::File::getLine()
  /// \throws FileParse::Error with line and reason, for people, when the line holds no sound
  static Sound read(FileParse::File& file, const char* key);

 private:
  QString _file;
  int _volume = loudest;
  int _repetitions = 1;
};

inline bool operator==(const Sound& left, const Sound& right) {
  return left.file() == right.file() && left.volume() == right.volume() &&
         left.repetitions() == right.repetitions();
}
inline bool operator!=(const Sound& left, const Sound& right) {
  return !(left == right);
}

}  // namespace Kyr
