#include "Fuzz.h"

#include <kyr/files/KyrDirectoryTree.h>
#include <kyr/pack/KyrCompress.h>
#include <kyr/pack/KyrZippedTar.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <map>

namespace KyrFuzz {

namespace {

constexpr std::size_t blockSize = 512;

void put(std::string& block, std::size_t at, std::size_t size, std::string_view text) {
  text = text.substr(0, size);
  block.replace(at, text.size(), text);
}

std::string octal(std::size_t number, int digits) {
  char text[32];
  const int size = std::snprintf(text, sizeof text, "%0*zo", digits, number);
  return {text, static_cast<std::size_t>(size)};
}

/// A header with its checksum.
std::string header(std::string_view name, char type, std::string_view size, std::string_view link) {
  std::string block(blockSize, '\0');
  put(block, 0, 100, name);
  put(block, 100, 8, "0000644");
  put(block, 124, 12, size);
  put(block, 136, 12, "00000000007");
  put(block, 148, 8, "        ");
  put(block, 156, 1, {&type, 1});
  put(block, 157, 100, link);
  put(block, 257, 8, std::string_view("ustar\00000", 8));
  std::size_t sum = 0;
  for (const char byte : block) {
    sum += static_cast<unsigned char>(byte);
  }
  put(block, 148, 8, octal(sum, 6) + '\0' + ' ');
  return block;
}

/// Entries as people can write them: type and form of the size, name, link, size, content with "|"
/// for line feeds.
std::string archiveOf(Choices& input) {
  std::string archive;
  while (!input.atEnd()) {
    const std::string_view kind = input.take(1);
    const bool hasOwnSize = input.yes();
    const std::string_view name = input.line();
    const std::string_view link = input.line();
    const std::string_view size = hasOwnSize ? input.line() : std::string_view();
    std::string content(input.line());
    std::replace(content.begin(), content.end(), '|', '\n');
    archive +=
        header(name, kind[0], hasOwnSize ? std::string(size) : octal(content.size(), 11), link);
    content.resize((content.size() + blockSize - 1) / blockSize * blockSize);
    archive += content;
  }
  return archive + std::string(2 * blockSize, '\0');
}

Kyr::StructVector<unsigned char> zipped(const std::string& archive) {
  Kyr::StructVector<unsigned char> packed;
  Kyr::Compress compress(Kyr::Compress::GzipFormat, &packed);
  compress.write(archive.data(), static_cast<unsigned>(archive.size()));
  compress.flush();
  return packed;
}

/// Nothing outside of the folder changes, whatever the names are; inside stands what was read.
void checkExtraction(const Kyr::ZippedTarReader& archive) {
  static const QString outside = folder() + "/outside";
  static const QString inside = outside + "/inside";
  static const bool made = QDir().mkpath(outside) && [] {
    QFile file(outside + "/witness");
    return file.open(QIODevice::WriteOnly) && file.write("stays") == 5;
  }();
  expect(made, "there is a folder");
  const QString refused = refusal([&] { archive.extractTo(inside); });
  expect(archive.isValid() || !refused.isNull(), "a damaged archive is refused");
  const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
  QStringList entries = QDir(outside).entryList(all);
  entries.removeAll("inside");
  expect(entries == QStringList("witness") && contentOf(outside + "/witness") == "stays" &&
             QDir(folder()).entryList(all) == QStringList("outside"),
         "nothing outside of the folder changes");
  if (refused.isNull()) {
    std::map<QString, unsigned> last;
    for (unsigned i = 0; i < archive.size(); ++i) {
      last[QDir::cleanPath(inside + '/' + archive.getName(i))] = i;
    }
    for (const auto& [path, index] : last) {
      expect(contentOf(path) == arrayOf(viewOf(archive.getContents(index))),
             "files have the content that was read");
    }
  }
  expect(Kyr::deleteDirectoryTree(inside, nullptr), "all of it can be removed");
}

void checkArchive(const Kyr::StructVector<unsigned char>& packed) {
  Kyr::ZippedTarLimits limits;
  limits.totalSize = 100000;
  limits.entries = 50;
  limits.records = 100;
  const Kyr::ZippedTarReader archive(packed, limits);
  std::size_t total = 0;
  for (unsigned i = 0; i < archive.size(); ++i) {
    total += archive.getContents(i).size();
  }
  expect(total <= limits.totalSize && archive.size() + archive.getLosses().size() <= limits.entries,
         "the limits hold");
  checkExtraction(archive);
}

/// What is added is read, whatever its name is.
void checkRoundTrip(Choices& input) {
  Kyr::StructVector<unsigned char> packed;
  Kyr::ZippedTarWriter writer(&packed);
  const bool takeAll = input.yes();
  writer.setTaking(takeAll ? Kyr::ZippedTarWriter::TakeAll : Kyr::ZippedTarWriter::RefuseUnfit);
  std::vector<std::pair<QString, QByteArray>> added;
  std::vector<std::int64_t> times;
  while (!input.atEnd()) {
    const QString name = textOf(input.line());
    const std::int64_t time = (std::int64_t{input.upTo(255)} - (takeAll ? 128 : 0)) * 100000000;
    const QByteArray contents = arrayOf(input.line());
    if (!takeAll && (name.isEmpty() || name.endsWith('/'))) {
      continue;  // written as it is, as ever, which readers take for a directory
    }
    const unsigned before = writer.getFileCount();
    const QString refused = refusal([&] { writer.addContents(name, contents, time); });
    if (writer.getFileCount() > before) {
      expect(refused.isNull(), "what is refused is not added");
      added.emplace_back(name, contents);
      times.push_back(time);
    }
  }
  writer.addEof();
  writer.flush();
  const Kyr::ZippedTarReader archive(packed);
  expect(archive.isValid() && archive.size() == added.size(), "an archive is read whole");
  for (unsigned i = 0; i < archive.size(); ++i) {
    expect(archive.getName(i) == added[i].first && archive.getModificationTime(i) == times[i] &&
               added[i].second == arrayOf(viewOf(archive.getContents(i))),
           "names, times and contents come back");
  }
}

}  // namespace

void harness(Choices input) {
  switch (input.upTo(3)) {
    case 0:
      return checkArchive(vectorOf(input.rest()));
    case 1:
      return checkArchive(zipped(std::string(input.rest())));
    case 2:
      return checkArchive(zipped(archiveOf(input)));
    default:
      checkRoundTrip(input);
  }
}

}  // namespace KyrFuzz
