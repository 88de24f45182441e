#include <kyr/values/KyrSound.h>

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/values/value_text_p.h>

namespace Kyr {

namespace {

Exception refusal(const QString& text, const QString& reason) {
  return ValueText::refusal(translate("Kyr_diagnostics", "\"%1\" is no sound: %2"), text, reason);
}

QString wrongVolume() {
  return translate("Kyr_diagnostics", "the volume is a number from 0 to 100");
}

QString wrongRepetitions() {
  return translate("Kyr_diagnostics",
                   "the repetitions are a number from 1 to 1000000, or 0 without an end");
}

}  // namespace

Sound::Sound(const QString& file, int volume, int repetitions)
    : _file(file), _volume(volume), _repetitions(repetitions) {
  if (volume < 0 || volume > loudest) {
    throw refusal(file, wrongVolume());
  }
  if (repetitions < untilStopped || repetitions > mostRepetitions) {
    throw refusal(file, wrongRepetitions());
  }
}

QString Sound::toText() const {
  return QString("%1 %2 %3")
      .arg(ValueText::wordOf(_file), QString::number(_volume), QString::number(_repetitions));
}

QString Sound::toLine(const char* key) const {
  return ValueText::line(key, toText());
}

Sound Sound::fromText(const QString& text) {
  const QStringList words = ValueText::wordsOf(text);
  QString file;
  if (words.isEmpty() || !ValueText::textOf(words.first(), file)) {
    throw refusal(text, translate("Kyr_diagnostics",
                                  "the file is one word, with \\_ for each of its blanks"));
  }
  int volume = loudest;
  if (words.size() > 1 && !ValueText::numberOf(words[1], 0, loudest, volume)) {
    throw refusal(text, wrongVolume());
  }
  int repetitions = 1;
  if (words.size() > 2 &&
      !ValueText::numberOf(words[2], untilStopped, mostRepetitions, repetitions)) {
    throw refusal(text, wrongRepetitions());
  }
  if (words.size() > 3) {
    throw refusal(text, translate("Kyr_diagnostics", "nothing may follow the repetitions"));
  }
  return Sound(file, volume, repetitions);
}

Sound Sound::read(FileParse::File& file, const char* key) {
  return ValueText::read<Sound>(file, key);
}

}  // namespace Kyr
