#include <kyr/i18n/catalogue_p.h>

#include <QDataStream>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <map>
#include <utility>

namespace Kyr {

namespace {

constexpr qint64 mostBytes = 64 << 20;
constexpr int mostCatalogues = 64;  // in a chain of dependencies, which may form a circle
constexpr int mostParts = 32;       // of one message; no language has more than six plural forms

/// The tables of a catalogue.
enum Table_t : quint8 {
  Contexts = 0x2f,
  Hashes = 0x42,
  Messages = 0x69,
  NumerusRules = 0x88,
  Dependencies = 0x96,
  Language = 0xa7,
};
using Tables = std::map<quint8, QByteArray>;

/// The parts of a message.
enum Part_t : quint8 {
  End = 1,
  Translation = 3,
  Obsolete = 5,
  SourceText = 6,
  Context = 7,
  Comment = 8
};

QByteArray magic() {
  return QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd");
}

/// Takes numbers, most significant byte first, and pieces from the front of bytes. Beyond the end
/// numbers are 0 and pieces empty, and isGood() is false from then on.
class Reader {
 public:
  Reader(const QByteArray& bytes, quint32 start) : _bytes(bytes) { take(start); }

  bool good() const { return _good; }
  bool atEnd() const { return _at == _bytes.size(); }
  quint8 number8() { return number<quint8>(); }
  quint16 number16() { return number<quint16>(); }
  quint32 number32() { return number<quint32>(); }
  /// \return a view of the bytes, not a copy
  QByteArray take(quint32 length) {
    _good = _good && length <= static_cast<quint32>(_bytes.size() - _at);
    const int size = _good ? static_cast<int>(length) : 0;
    QByteArray piece = QByteArray::fromRawData(_bytes.constData() + _at, size);
    _at += size;
    return piece;
  }

 private:
  template <class Number>
  Number number() {
    quint32 value = 0;
    const QByteArray bytes = take(sizeof(Number));  // const, as reading another array would copy it
    for (const char byte : bytes) {
      value = value << 8 | static_cast<quint8>(byte);
    }
    return static_cast<Number>(value);
  }

  const QByteArray& _bytes;
  int _at = 0;
  bool _good = true;
};

bool isTable(quint8 tag) {
  return tag == Contexts || tag == Hashes || tag == Messages || tag == NumerusRules ||
         tag == Dependencies || tag == Language;
}

/// The tables of a file.
/// \return empty when they do not fill the file, or one is unknown or there twice
Tables tablesOf(const QByteArray& file) {
  Tables tables;
  Reader reader(file, static_cast<quint32>(magic().size()));
  while (reader.good() && !reader.atEnd()) {
    const quint8 tag = reader.number8();
    const QByteArray table = reader.take(reader.number32());
    if (!isTable(tag) || table.isEmpty() || !tables.emplace(tag, table).second) {
      return {};
    }
  }
  return reader.good() ? tables : Tables();
}

/// Passes over a text in UTF-16.
/// \return false for a bad length, and for the one that stands for no text, at which Qt gives up on
///         the message
bool skipTranslation(Reader& reader) {
  constexpr quint32 none = 0xffffffff;
  const quint32 length = reader.number32();
  if (length != none) {
    reader.take(length);
  }
  return length == none || length % 2 == 0;
}

bool isSoundMessage(const QByteArray& messages, quint32 start) {
  Reader reader(messages, start);
  for (int parts = 0; parts < mostParts && reader.good(); ++parts) {
    switch (reader.number8()) {
      case End:
        return true;
      case Translation:
        if (!skipTranslation(reader)) {
          return false;
        }
        break;
      case Obsolete:
        reader.take(4);
        break;
      case SourceText:
      case Context:
      case Comment:
        reader.take(reader.number32());
        break;
      default:
        return false;
    }
  }
  return false;
}

/// Whether the table has pairs of a text's hash, in ascending order, and the place of its message.
bool areSoundHashes(const QByteArray& hashes, const QByteArray& messages) {
  Reader reader(hashes, 0);
  quint32 before = 0;
  while (!reader.atEnd()) {
    const quint32 hash = reader.number32();
    const quint32 message = reader.number32();
    if (!reader.good() || hash < before || !isSoundMessage(messages, message)) {
      return false;
    }
    before = hash;
  }
  return true;
}

/// Whether there is a chain of names with their lengths in front, ended by a 0 or by the table's
/// end.
/// \param budget the bytes that all chains together may still have; becomes less by this one
bool isSoundChain(const QByteArray& contexts, quint32 start, int& budget) {
  Reader reader(contexts, start);
  while (reader.good() && !reader.atEnd()) {
    const quint8 length = reader.number8();
    if (length == 0) {
      return true;
    }
    reader.take(length);
    budget -= length;
    if (budget < 0) {
      return false;
    }
  }
  return reader.good();
}

/// Whether the table has the number of places for hashes, for each place where its chain begins, in
/// pairs of bytes, and the chains.
bool areSoundContexts(const QByteArray& contexts) {
  Reader reader(contexts, 0);
  const quint32 size = reader.number16();
  auto budget = static_cast<int>(contexts.size());
  bool sound = size > 0;
  for (quint32 i = 0; i < size && sound; ++i) {
    const quint32 chain = reader.number16();
    sound =
        reader.good() && (chain == 0 || isSoundChain(contexts, 2 + 2 * size + 2 * chain, budget));
  }
  return sound;
}

bool areSound(const Tables& tables) {
  const auto hashes = tables.find(Hashes);
  const auto messages = tables.find(Messages);
  const auto contexts = tables.find(Contexts);
  const auto end = tables.end();
  // A catalogue may have no texts of its own, only dependencies.
  return !tables.empty() && (hashes == end) == (messages == end) &&
         (hashes == end || areSoundHashes(hashes->second, messages->second)) &&
         (contexts == end || areSoundContexts(contexts->second));
}

/// The catalogue for Qt: without its dependencies, which Qt would load unchecked, and with an end
/// for the last chain of contexts, which lrelease leaves open.
QByteArray catalogueOf(Tables tables) {
  tables.erase(Dependencies);
  if (const auto contexts = tables.find(Contexts); contexts != tables.end()) {
    contexts->second.append('\0');
  }
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  const QByteArray start = magic();
  stream.writeRawData(start.constData(), static_cast<int>(start.size()));
  for (const auto& [tag, table] : tables) {
    stream << tag << table;
  }
  return bytes;
}

bool isPlainName(const QString& name) {
  return !name.isEmpty() && !name.contains('/') && !name.contains('\\');
}

/// Reads the names of catalogues.
/// \return whether the table holds plain names and nothing else
bool readNames(const QByteArray& table, QStringList* names) {
  QDataStream stream(table);
  while (!stream.atEnd() && stream.status() == QDataStream::Ok) {
    QString name;
    stream >> name;
    names->append(name);
  }
  return stream.status() == QDataStream::Ok &&
         std::all_of(names->cbegin(), names->cend(), isPlainName);
}

/// The bytes of a file.
/// \return null for a file that cannot be read or is too large
QByteArray contentOf(const QString& path) {
  QFile file(path);
  const bool fits = file.open(QIODevice::ReadOnly) && file.size() <= mostBytes;
  return fits ? file.read(file.size()) : QByteArray();
}

struct HeldBytes {
  const QByteArray bytes;
};

/// A translator with the bytes that it reads in place. They end after it: Qt may ask a translator
/// until its last destructor has run.
class HoldingTranslator : private HeldBytes, public QTranslator {
 public:
  explicit HoldingTranslator(const QByteArray& checked) : HeldBytes{checked} {}
  /// \return also false for wrong rules of plural forms, which Qt checks
  bool read() {
    return load(reinterpret_cast<const uchar*>(bytes.constData()), static_cast<int>(bytes.size()));
  }
};

/// Loads a catalogue with all that it continues in.
class Loading {
 public:
  explicit Loading(QString directory) : _directory(std::move(directory)) {}

  /// \return false when one of them is missing or damaged
  bool add(const QString& file) {
    const QString path = _directory + "/" + file;
    if (++_begun > mostCatalogues || !QFileInfo(path).isFile()) {
      return false;
    }
    const Catalogue::Checked checked = Catalogue::check(contentOf(path));
    auto catalogue = std::make_unique<HoldingTranslator>(checked.bytes);
    if (!catalogue->read()) {
      std::fprintf(stderr, "Catalogue '%s' is not used: it is damaged or cannot be read.\n",
                   path.toLocal8Bit().constData());
      return false;
    }
    // Qt asks first what was installed last. So a catalogue comes behind its dependencies, and
    // these in reverse order.
    const QStringList& names = checked.dependencies;
    const bool complete = std::all_of(names.crbegin(), names.crend(),
                                      [this](const QString& name) { return add(name + ".qm"); });
    catalogues.push_back(std::move(catalogue));
    return complete;
  }

  std::vector<std::unique_ptr<QTranslator>> catalogues;

 private:
  const QString _directory;
  int _begun = 0;
};

}  // namespace

Catalogue::Checked Catalogue::check(const QByteArray& file) {
  const Tables tables = file.startsWith(magic()) ? tablesOf(file) : Tables();
  const auto dependencies = tables.find(Dependencies);
  Checked checked;
  if (areSound(tables) &&
      (dependencies == tables.end() || readNames(dependencies->second, &checked.dependencies))) {
    checked.bytes = catalogueOf(tables);
  }
  return checked;
}

std::vector<std::unique_ptr<QTranslator>> Catalogue::load(const QString& directory,
                                                          const QString& file) {
  Loading loading(directory);
  return loading.add(file) ? std::move(loading.catalogues)
                           : std::vector<std::unique_ptr<QTranslator>>();
}

}  // namespace Kyr
