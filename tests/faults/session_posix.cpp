// What a program does with the library from its start to its end, step by step, for those who let
// its calls fail or end it in the midst of them:
//
//   faults_session STEPS FOLDER SEED
//
// STEPS are names with "," between them, "start" the first. SEED decides about the content of what
// is saved. A step that fails says why and is tried again, once. Ends with 0 when all has gone
// well, with 3 when it has at the second try, and with 1 when a step has failed twice. "endless" in
// front of the steps repeats them, with a SEED from 1 to 8 each time, until one fails or somebody
// ends the process.
#include <kyr/Kyr.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Kyr;

extern "C" __attribute__((weak)) void kyrFaultsBegin();

namespace {

constexpr int points = 300;
constexpr unsigned version = 7;
constexpr int savedBytes = 600000;
constexpr int seeds = 8;

struct Session {
  QString folder;
  int seed = 0;
  QStringList arguments;

  QString file(const char* name) const { return folder + '/' + name; }
};

void expect(bool holds, const char* what) {
  if (!holds) {
    throw std::runtime_error(what);
  }
}

/// Lines that deflate cannot make much smaller, so that a saved file has several pieces.
std::string contentOf(int seed) {
  std::string content;
  content.reserve(savedBytes);
  unsigned state = static_cast<unsigned>(seed) + 1;
  while (content.size() < savedBytes) {
    state = state * 1664525U + 1013904223U;
    content.push_back(static_cast<char>('!' + (state >> 24U) % 64));
  }
  return content;
}

void start(Session& session) {
  KyrInit::InitLibrary({"session", "1.0"}, session.arguments);
}

void readScan(Session& session) {
  FileParse::File file(session.file("in/scan.txt"));
  double sum = 0;
  for (int i = 0; i < points; ++i) {
    std::vector<double> values;
    file.getDoubles("POINT", values);
    expect(values.size() == 3, "a point without three numbers");
    sum += values[0] + values[1] - values[2];
  }
  expect(sum == points * (points - 1) * 0.25, "the points are others");
}

void save(Session& session, const char* name, bool inPieces) {
  ZipPieces pieces;
  pieces.workers = 2;
  SafeFile file(session.file(name));
  const auto zip = inPieces ? std::make_unique<ZipOutStream>(&file.stream(), version, pieces)
                            : std::make_unique<ZipOutStream>(&file.stream(), version);
  const std::string content = contentOf(session.seed);
  zip->write(content.data(), static_cast<std::streamsize>(content.size()));
  zip->close();
  file.commit();
}

/// The content of a saved file, as far as it can be read, and whether that is all.
std::pair<std::string, bool> contentIn(const QString& name, unsigned workers) {
  ZipInStream in(name, version);
  ZipPieces pieces;
  pieces.workers = workers;
  in.setWorkers(pieces);
  std::string content(savedBytes + 1, '\0');
  in.read(&content[0], static_cast<std::streamsize>(content.size()));
  content.resize(static_cast<std::size_t>(in.gcount()));
  return {content, in.getState() == ZipInStream::StreamComplete};
}

void readBack(Session& session, const char* name) {
  const auto [content, isWhole] = contentIn(session.file(name), 2);
  expect(isWhole, "what was saved cannot be read");
  expect(content == contentOf(session.seed), "other bytes came back than were saved");
}

void pack(Session& session) {
  SafeFile file(session.file("archive.tar.gz"));
  ZippedTarWriter writer(&file.stream());
  writer.setTaking(ZippedTarWriter::TakeAll);
  writer.addDirectory(session.file("in"), true, "in");
  writer.addContents("seed", QByteArray::number(session.seed), 0);
  writer.addEof();
  writer.flush();
  expect(writer.getLosses().empty(), "the archive is without some files");
  file.commit();
}

/// All bytes of a file, of which there is at most a mebibyte.
std::string bytesOf(const QString& name) {
  OpenFile file(name);
  std::string bytes(std::size_t{1} << 20, '\0');
  file.stream().read(&bytes[0], static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(file.stream().gcount()));
  file.close();
  return bytes;
}

ZippedTarReader archiveOf(Session& session) {
  const std::string bytes = bytesOf(session.file("archive.tar.gz"));
  StructVector<unsigned char> packed;
  packed.append(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  return ZippedTarReader(packed);
}

/// The seed of an archive that holds all that it is to hold; empty otherwise.
std::string seedOf(Session& session, const ZippedTarReader& archive) {
  if (!archive.isValid() || archive.size() != 2) {
    return {};
  }
  const std::vector<unsigned char>& scan = archive.getContents(0);
  const std::vector<unsigned char>& seed = archive.getContents(1);
  const bool isScan = std::string(scan.begin(), scan.end()) == bytesOf(session.file("in/scan.txt"));
  return isScan ? std::string(seed.begin(), seed.end()) : std::string();
}

void unpack(Session& session) {
  const ZippedTarReader archive = archiveOf(session);
  expect(seedOf(session, archive) == std::to_string(session.seed), "the archive is not whole");
  archive.extractTo(session.file("out"), OS::ReplaceExisting);
  const std::string scan = bytesOf(session.file("out/in/scan.txt"));
  expect(scan == bytesOf(session.file("in/scan.txt")), "an extracted file is not whole");
}

void report(Session& session) {
  const QString name = session.file("report.tar.gz");
  QFile::remove(name);
  SystemReport report;
  report.collect(SystemReport::PartSystem | SystemReport::PartMemory |
                 SystemReport::PartDirectories | SystemReport::PartEnvironment);
  report.addFile(session.file("in/scan.txt"), "scan.txt");
  expect(report.missing().isEmpty(), "the report says that it is without something");
  report.write(name);
}

void keepJournal(Session& session) {
  Journal journal(session.file("session.log"));
  for (int i = 0; i < 20; ++i) {
    journal.add(Journal::Info, "session", QString("entry %1").arg(i));
  }
  journal.add(Journal::Warning, "session", "the last one");
  expect(journal.flush() && journal.getLost() == 0, "the journal says that it has lost entries");
}

void lock(Session& session) {
  ExclusiveLock lock(session.file("project.kyr"));
  expect(lock.tryLock(), "the lock was not to be had");
  ExclusiveLock other(session.file("project.kyr"));
  expect(!other.tryLock(), "a lock with two owners");
  lock.unlock();
  expect(other.tryLock(), "a lock that was given back was not to be had");
}

void share(Session& /*session*/) {
  std::atomic<long> sum{0};
  ParallelOptions options;
  options.threads = 4;
  parallelFor(
      1000, [&](std::size_t i) { sum += static_cast<long>(i); }, options);
  expect(sum == 499500, "a loop without some of its turns");
}

void showValues(Session& session) {
  expect(QuantityText(uLength).setUnit(Unit::Millimetre).text(2.5).contains("2.5"), "a length");
  const Filename::Series series(Filename::NameWithNumber(session.file("in/img_001.txt"), -1));
  expect(series.getMembers().empty(), "files that are not there");
  expect(NumString("a9") < NumString("a10"), "an order of names");
  expect(Colour::fromText("1 2 3").toText() == "1 2 3 255", "a colour");
}

/// Looks at files that others save meanwhile: each is whole, with the content of some seed.
void look(Session& session) {
  static const std::vector<std::string> contents = [] {
    std::vector<std::string> all(seeds);
    for (int i = 0; i < seeds; ++i) {
      all[static_cast<std::size_t>(i)] = contentOf(i + 1);
    }
    return all;
  }();
  const auto [content, isWhole] = contentIn(session.file("project.kyr"), 1);
  expect(isWhole, "the project is not whole");
  expect(std::find(contents.begin(), contents.end(), content) != contents.end(),
         "the project holds what nobody has saved");
  expect(!seedOf(session, archiveOf(session)).empty(), "the archive is not whole");
}

/// Writes one entry that counts from 0, and its number to standard output once it is written.
void enter(Session& session) {
  static Journal journal(session.file("shared.log"), JournalOptions{1 << 20, 99});
  static int number = 0;
  journal.add(Journal::Warning, "session", QString("number %1 of many").arg(number));
  const std::string line = std::to_string(number++) + '\n';
  expect(::write(STDOUT_FILENO, line.data(), line.size()) > 0, "nobody listens");
  ::usleep(200);
}

/// Takes a lock for a moment if it is free, in which nobody else may have it: a lock of the system
/// on another file shows that. It was opened before, and so is free before when the process is
/// ended.
void own(Session& session) {
  const int witness =
      ::open(qPrintable(session.file("witness")), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  {
    ExclusiveLock lock(session.file("project.kyr"));
    if (lock.tryLock()) {
      expect(::flock(witness, LOCK_EX | LOCK_NB) == 0, "two processes have the lock");
      expect(::write(STDOUT_FILENO, "o", 1) > 0, "nobody listens");
      ::usleep(200);
      ::flock(witness, LOCK_UN);
    }
  }
  ::close(witness);
}

using Step = std::function<void(Session&)>;

const std::map<QString, Step>& steps() {
  static const std::map<QString, Step> all = {
      {"start", start},
      {"read", readScan},
      {"save", [](Session& session) { save(session, "project.kyr", true); }},
      {"plain", [](Session& session) { save(session, "plain.kyr", false); }},
      {"back",
       [](Session& session) {
         readBack(session, "project.kyr");
         readBack(session, "plain.kyr");
       }},
      {"pack", pack},
      {"unpack", unpack},
      {"report", report},
      {"journal", keepJournal},
      {"lock", lock},
      {"share", share},
      {"values", showValues},
      {"look", look},
      {"enter", enter},
      {"own", own},
      {"close", [](Session& /*session*/) { KyrInit::CloseLibrary(); }},
  };
  return all;
}

bool succeeds(const QString& name, Session& session) {
  try {
    steps().at(name)(session);
    return true;
  } catch (const Exception& error) {
    std::cerr << qPrintable(name) << ": " << qPrintable(error.getText()) << '\n';
  } catch (const std::exception& error) {
    std::cerr << qPrintable(name) << ": " << error.what() << '\n';
  }
  return false;
}

/// \return how often it had to be tried
int tries(const QString& name, Session& session) {
  return succeeds(name, session) ? 1 : succeeds(name, session) ? 2 : 3;
}

int repeat(const QStringList& names, Session& session) {
  start(session);
  while (std::all_of(names.begin(), names.end(),
                     [&](const QString& name) { return succeeds(name, session); })) {
    session.seed = session.seed % seeds + 1;
  }
  return 1;
}

int run(char** words) {
  Session session{QString(words[2]), std::atoi(words[3]), QCoreApplication::arguments()};
  const QStringList names = QString(words[1]).split(',');
  if (names.first() == "endless") {
    return repeat(names.mid(1), session);
  }
  steps();
  if (names.first() != "start") {
    start(session);
  }
  if (kyrFaultsBegin) {
    kyrFaultsBegin();
  }
  int most = 1;
  for (const QString& name : names) {
    most = std::max(most, tries(name, session));
  }
  return most == 1 ? 0 : most == 2 ? 3 : 1;
}

}  // namespace

int main(int count, char** words) {
  if (count != 4) {
    return 2;
  }
  const QCoreApplication application(count, words);
  try {
    return run(words);
  } catch (const std::bad_alloc&) {
    std::fputs("session: not enough memory\n", stderr);
    std::_Exit(1);  // the end of the application needs memory
  }
}
