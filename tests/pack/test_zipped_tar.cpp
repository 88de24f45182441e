#include "pack/Bytes.h"

#include <kyr/pack/KyrCompress.h>
#include <kyr/pack/KyrZippedTar.h>

#include <filesystem>

namespace {

using namespace Kyr;
using namespace KyrTest;

const QString letters = QString::fromUtf8("M\xc3\xa4\xc3\x9f");

Bytes zip(const QByteArray& plain) {
  Bytes zipped;
  Kyr::Compress compress(Kyr::Compress::GzipFormat, &zipped);
  compress.write(plain.constData(), static_cast<unsigned>(plain.size()));
  compress.flush();
  return zipped;
}

QByteArray unzip(const Bytes& zipped) {
  Bytes plain;
  EXPECT_TRUE(Kyr::Decompress(Kyr::Decompress::GzipFormat, zipped).read(&plain));
  return KyrTest::arrayOf(plain);
}

void setModified(const QString& path, qint64 seconds) {
  QFile file(path);
  EXPECT_TRUE(
      file.open(QIODevice::ReadWrite) &&
      file.setFileTime(QDateTime::fromSecsSinceEpoch(seconds), QFileDevice::FileModificationTime));
}

/// \return false where there are no links
bool link(const char* target, const QString& name) {
  std::error_code error;
  std::filesystem::create_symlink(target, name.toStdU16String(), error);
  return !error;
}

QString failureOf(const std::function<void()>& action) {
  return QString::fromStdString(KyrTest::failure(action));
}

/// An entry as other programs write it, with an unsigned checksum.
QByteArray entry(const QByteArray& name, char type, const QByteArray& content,
                 const QByteArray& size = {}, const QByteArray& magic = {}) {
  QByteArray block = name.leftJustified(100, '\0', true) + QByteArray("0000644\0", 8) +
                     QByteArray(16, '\0') +
                     (size.isEmpty() ? QByteArray::number(content.size(), 8) : size)
                         .leftJustified(12, '\0', true) +
                     QByteArray("14\0         ", 12) + QByteArray(8, ' ') + type;
  block = (block.leftJustified(257, '\0') + magic).leftJustified(512, '\0');
  unsigned sum = 0;
  for (const char byte : block) {
    sum += static_cast<unsigned char>(byte);
  }
  block.replace(148, 8, QByteArray::number(sum, 8).rightJustified(7, ' ') + '\0');
  return block + content + QByteArray((512 - content.size() % 512) % 512, '\0');
}

QByteArray record(const QByteArray& text) {
  return QByteArray::number(text.size() + 4) + ' ' + text + '\n';  // texts of 6 to 95 bytes
}

const QByteArray mark(1024, '\0');

/// What a reader finds, as "name=content|...", with "!" in front when the archive is not valid, and
/// what it is without, as "-name: reason".
QString read(const Bytes& data, const Kyr::ZippedTarLimits& limits = {}) {
  const ZippedTarReader reader(data, limits);
  QStringList files;
  for (unsigned i = 0; i < reader.size(); ++i) {
    QString name;
    std::vector<unsigned char> content;
    reader.getFile(i, &name, &content);
    files += name + "=" +
             QString::fromUtf8(reinterpret_cast<const char*>(content.data()),
                               static_cast<int>(content.size()));
  }
  for (const Kyr::ZippedTarLoss& loss : reader.getLosses()) {
    files += "-" + loss.name + ": " + loss.reason;
  }
  return (reader.isValid() ? "" : "!") + files.join("|");
}

TEST(ZippedTar, WritesTheseBytes) {
  const TempDir dir;
  const QString path = dir.write("f", QByteArray(513, 'x'));
  const QString full = dir.write("g", QByteArray(512, 'y'));
  setModified(path, 1234567890);
  setModified(full, 1234567890);
  Bytes out;
  ZippedTarWriter writer(&out);
  writer.addFile(path, letters);
  writer.addFile(full, QString(99, 'n'));
  writer.addEof();
  writer.flush();
  const QByteArray tar = unzip(out);
  // 004176 is the sum with the four bytes of the two letters as negative numbers.
  QByteArray header = letters.toUtf8() + QByteArray(95, '\0') + "0000644" + '\0' + "0000000" +
                      '\0' + "0000000" + '\0' + "00000001001" + '\0' + "11145401322" + '\0' +
                      "004176" + '\0' + " 0";
  EXPECT_EQ(tar.left(512), header.leftJustified(512, '\0'));
  EXPECT_EQ(tar.mid(512, 1024), QByteArray(513, 'x') + QByteArray(511, '\0'));
  EXPECT_EQ(tar.mid(1536, 100), QByteArray(99, 'n') + '\0') << "names of 99 bytes fit";
  EXPECT_EQ(tar.mid(2048), QByteArray(512, 'y') + mark) << "a full block has no other behind it";
  EXPECT_EQ(writer.getFileCount(), 2U);
  EXPECT_EQ(read(out),
            letters + "=" + QString(513, 'x') + "|" + QString(99, 'n') + "=" + QString(512, 'y'));
  EXPECT_EQ(ZippedTarReader(out).getModificationTime(0), 1234567890);
}

TEST(ZippedTar, TakesAllWhenAsked) {
  const TempDir dir;
  const QString path = dir.write("f", "1");
  const QString early = dir.write("early", "2");
  setModified(early, -5);
  const QString kana = QString::fromUtf8("\xe3\x83\x8e").repeated(20);
  const QString cyrillic = QString::fromUtf8("\xd1\x84").repeated(45);
  const QString deep = QString("n").repeated(98) + letters;
  const QString parts = QString("n").repeated(98) + "/" + letters;
  const QString missing = dir.file("missing");
  Bytes out;
  ZippedTarWriter writer(&out);
  EXPECT_EQ(failureOf([&] { writer.addFile(path, kana); }), path);
  ASSERT_EQ(writer.getLosses().size(), 1U);
  EXPECT_TRUE(writer.getLosses()[0].reason.contains("checksum")) << "the length is not the reason";
  writer.setTaking(ZippedTarWriter::TakeAll);
  for (const QString& name : {kana, cyrillic, deep, parts, QString(5000, 'x')}) {
    writer.addFile(path, name);
  }
  writer.addFile(early, "early");
  for (const QString& bad : {missing, dir.path()}) {
    writer.addFile(bad, "bad");
  }
  writer.addFile(path, "d/");
  writer.addDirectory(missing, true, "bad");
  writer.addEof();
  writer.flush();
  const QString expected = kana + "=1|" + cyrillic + "=1|" + deep + "=1|" + parts + "=1|" +
                           QString(5000, 'x') + "=1|early=2";
  ASSERT_EQ(read(out).toStdString(), expected.toStdString());
  EXPECT_EQ(ZippedTarReader(out).getModificationTime(5), -5);
  EXPECT_EQ(writer.getFileCount(), 6U);
  EXPECT_FALSE(unzip(out).contains(QByteArray(98, 'n') + '/' + '\0')) << "a directory's name";
  QStringList lost;
  for (const Kyr::ZippedTarLoss& loss : writer.getLosses()) {
    lost += loss.name.mid(dir.path().size()) + " " + loss.reason.section(" ", 0, 2);
  }
  EXPECT_EQ(lost.mid(1).join("|"),
            "/missing cannot be read:| a directory|/f its name in|/missing cannot be read:");
}

TEST(ZippedTar, WritesSizesBeyondTheHeader) {
  const TempDir dir;
  const QString path = dir.write("huge", "");
  std::filesystem::resize_file(path.toStdU16String(), 9ULL << 30U);
  Limited limited(100000);
  std::ostream target(&limited);
  ZippedTarWriter writer(&target);
  writer.setTaking(ZippedTarWriter::TakeAll);
  EXPECT_EQ(failureOf([&] { writer.addFile(path, "huge"); }), "archive") << "all of 9 GiB";
  Bytes plain;
  const Bytes start = bytesOf(QByteArray::fromStdString(limited.taken));
  Kyr::Decompress(Kyr::Decompress::GzipFormat, start).read(&plain);
  const QByteArray tar(reinterpret_cast<const char*>(plain.data()), 1536);
  EXPECT_EQ(tar.mid(512, 20), QByteArray("19 size=9663676416\n\0", 20));
  EXPECT_EQ(tar.mid(1024, 5) + tar.mid(1024 + 124, 12), QByteArray("huge\0"
                                                                   "77777777777\0",
                                                                   17));
}

TEST(ZippedTar, LooksIncompleteWithoutItsEnd) {
  const TempDir dir;
  const QByteArray content = QByteArray::fromStdString(KyrTest::noisy(200000, 1));
  const QString path = dir.write("f", content);
  const Kyr::ZipPieces pieces = KyrTest::piecesBy(2);
  const struct {
    bool toFile, withEnd, flushed;
    const char* catches;
    bool inPieces = false;
  } rows[] = {
      {false, false, false, "given up in memory"},
      {true, false, false, "given up in a file"},
      {false, true, false, "the destructor finishes what has its end"},
      {true, true, false, "the same in a file"},
      {false, false, true, "finished gzip data without the mark"},
      {false, false, false, "given up in memory, in pieces", true},
      {true, false, false, "given up in a file, in pieces", true},
      {true, true, false, "finished in a file, in pieces", true},
  };
  for (const auto& row : rows) {
    const QString file = dir.file("a.tgz");
    Bytes out;
    {
      const auto writer = row.toFile     ? row.inPieces
                                               ? std::make_unique<ZippedTarWriter>(file, pieces)
                                               : std::make_unique<ZippedTarWriter>(file)
                              : row.inPieces ? std::make_unique<ZippedTarWriter>(&out, pieces)
                                         : std::make_unique<ZippedTarWriter>(&out);
      writer->addFile(path, "f");
      row.withEnd ? writer->addEof() : void();
      row.flushed ? writer->flush() : void();
    }
    out = row.toFile ? bytesOf(KyrTest::readFile(file)) : out;
    const ZippedTarReader reader(out);
    EXPECT_EQ(reader.isValid(), row.withEnd) << row.catches;
    Bytes plain;
    EXPECT_EQ(Kyr::Decompress(Kyr::Decompress::GzipFormat, out).read(&plain),
              row.withEnd || row.flushed)
        << row.catches;
    EXPECT_TRUE(reader.size() == 1 && reader.getContents(0).size() == 200000) << row.catches;
  }
}

TEST(ZippedTar, StaysWellFormedWhenAFileIsRefused) {
  const TempDir dir;
  const QString path = dir.write("f", "content");
  const QString shrinking = "/sys/devices/system/cpu/online";  // holds less than its size says
  const QString missing = dir.file("missing");
  Bytes out;
  ZippedTarWriter writer(&out);
  for (const auto& name : {QString(100, 'n'), letters.repeated(19), QString("a") + QChar::Null}) {
    EXPECT_EQ(failureOf([&] { writer.addFile(path, name); }), path);
  }
  EXPECT_EQ(failureOf([&] { writer.addFile(missing, "a"); }), missing);
  EXPECT_EQ(failureOf([&] { writer.addFile(dir.path(), "a"); }), dir.path());
  EXPECT_EQ(failureOf([&] { writer.addDirectory(missing, true, "a"); }), missing);
  EXPECT_EQ(failureOf([&] { ZippedTarWriter(dir.file("no/no")); }), dir.file("no/no"));
  const bool shrinks = QFile::exists(shrinking);
  EXPECT_EQ(failureOf([&] { shrinks ? writer.addFile(shrinking, "s") : void(); }),
            shrinks ? shrinking : QString());
  writer.addFile(path, "good");
  EXPECT_EQ(writer.getFileCount(), 1U);
  writer.addEof();
  EXPECT_EQ(failureOf([&] { writer.addFile(path, "late"); }), path) << "no reader would see it";
  writer.flush();
  writer.flush();
  EXPECT_EQ(read(out).section("|", shrinks ? 1 : 0), "good=content");
  writer.setTaking(ZippedTarWriter::TakeAll);
  writer.addContents("later", "content", 0);
  EXPECT_EQ(writer.getLosses().back().name, "later");
  const Kyr::ZipPieces pieces = KyrTest::piecesBy(2);
  const QString full = KyrTest::fullDevice();
  for (const auto& action :
       {std::function<void()>([&] { ZippedTarWriter(full).flush(); }),
        std::function<void()>([&] { ZippedTarWriter(full, pieces).flush(); })}) {
    EXPECT_EQ(failureOf(action), QFile::exists(full) ? full : QString());
  }
}

TEST(ZippedTar, SetsLittleMemoryAside) {
  const TempDir dir;
  const QString path = dir.write("f", QByteArray::fromStdString(KyrTest::noisy(1500000, 1)));
  for (const bool inPieces : {false, true}) {
    Bytes out;
    const auto writer = inPieces ? std::make_unique<ZippedTarWriter>(&out, KyrTest::piecesBy(1))
                                 : std::make_unique<ZippedTarWriter>(&out);
    for (int i = 0; i < 5; ++i) {
      writer->addFile(path, "f");
      EXPECT_TRUE(out.size() > std::size_t(1400000) * std::size_t(i) &&
                  out.capacity() - out.size() < 600000)
          << i;
    }
  }
}

TEST(ZippedTar, IsTheSameForEveryNumberOfWorkers) {
  const QByteArray content = QByteArray::fromStdString(KyrTest::noisy(3000000));
  std::string first;
  for (const unsigned workers : {1U, 2U, 16U}) {
    std::ostringstream target;
    ZippedTarWriter writer(&target, KyrTest::piecesBy(workers));
    writer.addContents("f", content, 0);
    writer.addContents("g", content.left(1000), 0);
    writer.addEof();
    writer.flush();
    first = first.empty() ? target.str() : first;
    EXPECT_TRUE(target.str() == first) << workers;
  }
  EXPECT_EQ(first.substr(0, 10), std::string("\x1F\x8B\x8\0\0\0\0\0\4\xFF", 10));
  const ZippedTarReader reader(bytesOf(QByteArray::fromStdString(first)));
  EXPECT_TRUE(reader.isValid() && reader.size() == 2);
  EXPECT_EQ(reader.getContents(0).size(), 3000000U);
}

TEST(ZippedTar, TakesTreesAndWritesFiles) {
  const TempDir dir;
  EXPECT_TRUE(QDir(dir.path()).mkpath("tree/sub/empty"));
  dir.write("tree/b", "1");
  dir.write("tree/" + letters, "2");
  dir.write("tree/sub/c", "3");
  link("sub", dir.file("tree/z"));
  link("missing", dir.file("tree/a"));
  dir.write("tree/old.tgz", "left out");
  const QString file = dir.file("tree/out.tgz");
  {
    ZippedTarWriter writer(file);
    writer.leaveOut(dir.file("sub/../tree/old.tgz"));
    writer.addDirectory(dir.file("tree"), true, "t");
    writer.addDirectory(dir.file("tree/"), false, "");
    writer.addEof();
  }
  EXPECT_EQ(read(bytesOf(KyrTest::readFile(file))),
            "t/" + letters + "=2|t/b=1|t/sub/c=3|/" + letters + "=2|/b=1");
}

TEST(ZippedTar, ReadsWhatOthersWrite) {
  const QByteArray a = entry("a", '0', "1");
  const QByteArray version1 = record("GNU.sparse.major=1") + record("GNU.sparse.realsize=8");
  const std::tuple<QByteArray, QString, const char*> rows[] = {
      {mark, "", "an archive without entries"},
      {a, "!a=1", "the mark of the end is missing"},
      {a + mark + "rest", "a=1", "bytes behind the end"},
      {entry(letters.toUtf8(), '0', "1"), letters + "=1", "unsigned checksums"},
      {entry("a", '\0', "1") + entry("b", '7', "2"), "a=1|b=2", "other types of plain files"},
      {entry("g", 'g', record("path=g")) + a, "a=1", "attributes of all entries are none of one"},
      {entry("d/", '\0', "") + entry("d", '5', "", "77") + entry("V", 'V', "skipped") + a, "a=1",
       "no files, whatever their size says"},
      {entry("p", '6', "", "11") + a + entry("Z", 'Z', "skipped") + entry("b", '4', ""),
       "a=1|-p: a pipe|-Z: an entry of the unknown type 90|-b: a device", "losses"},
      {entry("K", 'K', QByteArray("to\0", 3)) + entry("l", '2', "") + entry("m", '2', ""),
       "-l: a link to to|-m: a link to ", "where links lead"},
      {a + entry("a", '0', "2") + entry("x", 'x', record("linkpath=a")) + entry("h", '1', "", "1") +
           entry("x", 'x', record("linkpath=h")) + entry("i", '1', ""),
       "a=1|a=2|h=2|i=2", "further names of a file"},
      {entry("\xe4", '0', "1") + entry("\xf6", '0', "2") + entry("K", 'K', "\xe4") +
           entry("h", '1', ""),
       QString::fromUtf8("\xef\xbf\xbd=1|\xef\xbf\xbd=2|h=1"), "names that are no UTF-8"},
      {entry("K", 'K', "b") + entry("h", '1', "") + entry("b", '0', "2"),
       "b=2|-h: a further name of b, which is no file in the archive before it", "a later file"},
      {entry("L", 'L', QByteArray(99, 'n') + "/b") + entry(QByteArray(99, 'n') + '/', '0', "1") + a,
       QString(99, 'n') + "/b=1|a=1", "a name that the header cuts off behind a separator"},
      {entry("L", 'L', QByteArray(300, 'n') + '\0') + entry("D", 'D', "Yf") + a, "a=1",
       "the long name of a directory's list is none of the next file"},
      {entry("x", 'x', version1) + entry("s", '0', "2\n0\n2\n") + a,
       "a=1|-s: a sparse file of a kind that is not known here", "half a map"},
      {entry("x", 'x', record("GNU.sparse.size=8") + record("GNU.sparse.map=5,2,0,2")) +
           entry("s", '0', "abcd") + a,
       "a=1|-s: a sparse file of a kind that is not known here", "parts that go back"},
      {entry("x", 'x', record("GNU.sparse.size=5") + record("GNU.sparse.map=0,2,4,2")) +
           entry("s", '0', "abcd") + a,
       "a=1|-s: a sparse file of a kind that is not known here", "parts beyond the end"},
      {entry("b", '0', "1", {}, QByteArray("ustar\0", 6) + "00" + QByteArray(80, '\0') + "dir"),
       "dir/b=1", "the prefix of POSIX"},
      {entry("b", '0', "1", {}, "ustar  " + QByteArray(81, '\0') + "dir"), "b=1",
       "other fields of GNU in that place"},
      {entry("a", '0', "1", QByteArray("\x80\0\0\0\0\0\0\0\0\0\0\1", 12)), "a=1", "binary sizes"},
      {a.left(512), "!", "a content that is cut short"},
      {a + a.left(511), "!a=1", "a header that is cut short"},
      {a + QByteArray(512, 'x'), "!a=1", "garbage"},
      {entry("a", '0', "1", "8"), "!", "a size that is no octal number"},
      {entry("a", '0', "1", "77777777777"), "!", "a size of 8 GiB"},
      {entry("a", '0', "1", QByteArray(12, '\xff')), "!", "a negative or a huge binary size"},
      {entry("L", 'L', "", "77777777"), "!", "a name of 16 MB"},
      {entry("x", 'x', record("size=-1")) + a, "!", "a negative size"},
      {entry("x", 'x', "99 path=a\n") + a, "!", "a record beyond its end"},
      {entry("x", 'x', "-9 path=a\n") + a, "!", "a record of negative length"},
      {entry("x", 'x', "path") + a, "!", "no record at all"},
  };
  for (const auto& [tar, files, catches] : rows) {
    const bool isWhole = !files.startsWith("!");
    EXPECT_EQ(read(zip(isWhole ? tar + mark : tar)).toStdString(), files.toStdString()) << catches;
  }
  Bytes parts = zip(a);
  const Bytes more = zip(entry("b", '0', "2") + mark);
  parts.append(more.data(), more.size());
  EXPECT_EQ(read(parts), "a=1|b=2") << "several gzip files in a row";
}

TEST(ZippedTar, IsProtectedAgainstDamageAndBombs) {
  const Bytes good = zip(entry("a", '0', "12") + entry("b", '0', "") + mark);
  for (std::size_t i = 0; i < good.size(); ++i) {
    Bytes cut = good;
    cut.setSize(i);
    EXPECT_TRUE(read(cut).startsWith("!")) << "cut at " << i;
    Bytes changed = good;
    changed[i] ^= 0x55;
    const QString files = read(changed);
    EXPECT_TRUE(files.startsWith("!") || files == "a=12|b=") << "changed at " << i;
  }
  const std::tuple<Kyr::ZippedTarLimits, const char*> rows[] = {
      {{2560, 2}, "a=12|b="}, {{2559, 2}, "!a=12|b="}, {{2560, 1}, "!a=12"}, {{0, 9}, "!"}};
  for (const auto& [limits, files] : rows) {
    EXPECT_EQ(read(good, limits), files);
  }
  // Systems of 64 bits have room for a file of 3 GB; to make it would only be a long wait there.
  const Kyr::ZippedTarLimits of32Bits{sizeof(void*) == 4 ? ~0ULL : 9999, 9, 9};
  const QByteArray map = record("GNU.sparse.map=0,1");
  const QByteArray link = entry("x", 'x', record("linkpath=a")) + entry("h", '1', "");
  const std::tuple<QByteArray, Kyr::ZippedTarLimits, const char*, const char*> bombs[] = {
      {entry("x", 'x', record("path=a").repeated(4)), {9999, 9, 4}, "a=1", "as many as allowed"},
      {entry("x", 'x', record("path=a").repeated(5)), {9999, 9, 4}, "!", "many records"},
      {entry("x", 'x', record("GNU.sparse.map=1,1,2,1")), {9999, 9, 4}, "!", "long maps"},
      {entry("s", 'S', "", {}, QByteArray(386 - 257, '\0') + QByteArray(96, '1')),
       {9999, 9, 7},
       "!",
       "long maps of GNU tar"},
      {entry("x", 'x', map + record("GNU.sparse.size=10000")), {9999, 9, 9}, "!", "holes"},
      {entry("x", 'x', map + record("GNU.sparse.size=3000000000")), of32Bits, "!",
       "more than 32 bits can count"},
      {entry("a", '0', QByteArray(600, 'a')) + link, {5400, 9, 9}, "!", "copies"},
  };
  for (const auto& [tar, limits, files_, catches] : bombs) {
    const QString files = read(zip(tar + entry("a", '0', "1") + mark), limits);
    EXPECT_EQ((files.startsWith('!') ? "!" : files).toStdString(), files_) << catches;
  }
  const ZippedTarReader reader(good);
  const std::string report = KyrTest::report("Invalid file index", "Kyr::ZippedTarReader::getFile",
                                             "kyr_zipped_tar_reader", 121);
  const auto past = KyrTest::inChild([&] { reader.getFile(2, nullptr, nullptr); });
  EXPECT_EQ(KyrTest::reportProblem(past, report), "");
}

TEST(ZippedTar, ExtractsNothingOutsideTheDirectory) {
  const bool anyName = QDir::separator() == '/';  // Windows has no files of some names
  const struct {
    QByteArray name;
    bool written;
    const char* catches;
  } rows[] = {
      {letters.toUtf8(), true, "letters"},
      {"..x/.y", true, "names with dots"},
      {"/x", false, "the root"},
      {"a/../../x", false, "up"},
      {"..\\x", false, "up on Windows"},
      {"a/.. /x", false, "up with a blank"},
      {"C:x", false, "a drive"},
      {"\\\\server\\x", false, "another host"},
      {"a/..", false, "a directory"},
      {"", false, "no name"},
      {"a/nul.txt", anyName, "a device"},
      {"COM10/aux1", true, "what only looks like one"},
      {"a/x:y", anyName, "a stream of another file"},
      {"a./x", anyName, "a second name of a directory"},
  };
  for (const auto& row : rows) {
    const TempDir dir;
    const QString target = dir.file("new/target");
    const ZippedTarReader reader(zip(entry("first", '0', "1") + entry(row.name, '0', "2") +
                                     entry("./empty/.", '5', "") + mark));
    const QString failure = failureOf([&] { reader.extractTo(target); });
    EXPECT_EQ(failure.isEmpty(), row.written) << row.catches;
    const QFileInfo file(target + "/" + QString::fromUtf8(row.name));
    EXPECT_TRUE(!row.written || (KyrTest::readFile(file.filePath()) == "2" &&
                                 file.lastModified().toSecsSinceEpoch() == 12))
        << row.catches;
    EXPECT_EQ(QDir(target).exists(), row.written) << "half of it: " << row.catches;
    EXPECT_EQ(QDir(target + "/empty").exists(), row.written) << "directories: " << row.catches;
  }
  const TempDir dir;
  const QString kept = dir.write("kept", "old");
  const bool linked = link("kept", dir.file("a"));
  std::filesystem::create_hard_link(kept.toStdU16String(), dir.file("hard").toStdU16String());
  const ZippedTarReader reader(
      zip(entry("a", '0', "old") + entry("a", '0', "new") + entry("hard", '0', "new") + mark));
  const auto extract = [&](Kyr::OS::Existing_t existing) {
    return failureOf([&] { reader.extractTo(dir.path(), existing); });
  };
  EXPECT_TRUE(extract(Kyr::OS::KeepExisting).endsWith("/hard") || linked);
  EXPECT_EQ(KyrTest::readFile(dir.file("hard")), "old") << "an older file is replaced";
  EXPECT_EQ(QFile::exists(dir.file("a")), linked) << "half of what is refused";
  reader.extractTo(dir.path());
  EXPECT_EQ(KyrTest::readFile(dir.file("a")) + KyrTest::readFile(dir.file("hard")), "newnew");
  EXPECT_TRUE(KyrTest::readFile(kept) == "old") << "written through a link";
  EXPECT_FALSE(failureOf([&] { ZippedTarReader(zip("x")).extractTo(dir.path()); }).isEmpty());
  EXPECT_FALSE(failureOf([&] {
                 ZippedTarReader(zip(entry("kept/b", '0', "") + mark)).extractTo(dir.path());
               }).isEmpty());
  EXPECT_EQ(QDir(dir.path()).entryList({".kyr-save*"}, QDir::Files | QDir::Hidden).size(), 0);
}

/// What a watcher was told, until it ended the work by an exception.
struct Watched {
  std::uint64_t bytes = 0;
  unsigned files = 0;
  unsigned calls = 0;
  QString failure;
};

Watched watch(unsigned callsUntilEnd,
              const std::function<void(const ZippedTarReader::Watcher&)>& work) {
  Watched told;
  told.failure = failureOf([&] {
    work([&](std::uint64_t bytes, unsigned files) {
      told.bytes += bytes;
      told.files = files;
      if (++told.calls == callsUntilEnd) {
        throw Kyr::Exception("enough");
      }
    });
  });
  return told;
}

TEST(ZippedTar, TellsWatchersAndEndsAtTheirWish) {
  const QByteArray large(5000000, 'x');
  const Bytes packed =
      zip(entry("first", '0', "1") + entry("large", '0', large) + entry("empty", '0', "") + mark);
  const auto read = [&](const ZippedTarReader::Watcher& watcher) {
    EXPECT_TRUE(ZippedTarReader(packed, {}, watcher).isValid());
  };
  const Watched whole = watch(0, read);
  EXPECT_EQ(whole.bytes, packed.size());
  EXPECT_EQ(whole.files, 3U);
  EXPECT_GT(whole.calls, 10U) << "a large file in one part";
  const Watched ended = watch(4, read);
  EXPECT_EQ(ended.calls, 4U) << "it went on";
  EXPECT_EQ(ended.failure, "enough");
  EXPECT_TRUE(ended.bytes < packed.size() && ended.files == 1);

  const ZippedTarReader reader(packed);
  const struct {
    unsigned calls;
    QStringList there;
    const char* catches;
  } rows[] = {
      {1, {}, "a file that is written, but not in its place"},
      {2, {"first"}, "the end of a file"},
      {5, {"first"}, "the middle of one"},
      {0, {"empty", "first", "large"}, "no end"},
  };
  for (const auto& row : rows) {
    const TempDir dir;
    const Watched told = watch(row.calls, [&](const ZippedTarReader::Watcher& watcher) {
      reader.extractTo(dir.path(), OS::KeepExisting, watcher);
    });
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name), row.there)
        << row.catches;
    EXPECT_EQ(told.files, static_cast<unsigned>(row.there.size())) << row.catches;
    EXPECT_EQ(told.failure.isEmpty(), row.calls == 0) << row.catches;
    EXPECT_TRUE(row.calls != 0 || told.bytes == 1U + static_cast<unsigned>(large.size()));
  }
}

}  // namespace
