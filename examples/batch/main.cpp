/// \file
/// A series of numbered files with points becomes one project, on all processors.
///
///   batch scans/points_001.txt part.kyr in
///
/// reads each points_NUMBER.txt of the folder, with lines as "POINT 1.5 0 -2" in millimetres, and
/// tells the extents in inches. Where a file is at fault, or after Ctrl-C, an older project stays.
/// The journal part.kyr.log tells what became of every run; with KYR_TRACE=trace.json in the
/// environment the library writes where its time went.
///
/// Exit codes: 0 the project is saved; 1 a file is at fault; 2 wrong usage; 130 stopped with
/// Ctrl-C.

#include <kyr/Kyr.h>

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

using namespace Kyr;

namespace {

using Scan = std::array<std::vector<double>, 3>;  // x, y and z of its points in millimetres

Scan readScan(const QString& name) {
  FileParse::File file(name);
  Scan scan;
  for (QString key; scan[0].empty() || file.peekKey(key); throwIfStopped()) {
    file.getLine("POINT");  // there is one at least
    for (std::vector<double>& axis : scan) {
      file.nextDouble(axis.emplace_back());  // or: scans/points_007.txt:12:7: "x" is no number
    }
  }
  return scan;
}

std::vector<Scan> readSeries(const Filename::NameWithNumber& example, const TerminalProgress& bar) {
  const FileParse::File first(example.getFullName());  // throws unless it is there
  const Filename::Series series(example);
  for (const Filename::Series::Gap& gap : series.getGaps()) {
    bar.print(QString("missing: %1 to %2").arg(gap.first).arg(gap.last));
  }
  ProgressScope::setText("Reading points");
  std::vector<Scan> scans(series.getMembers().size());
  parallelFor(scans.size(), [&](std::size_t i) {  // the first fault ends the loop
    scans[i] = readScan(example.getDirectory() + "/" + series.getMembers()[i].fileName);
  });
  return scans;
}

void save(const QString& project, const std::vector<Scan>& scans) {
  SafeFile file(project);  // an older project stays until commit()
  ZipOutStream out(&file.stream(), 1, ZipPieces{OS::getNumberOfCPUs()});
  ProgressScope scope("save", scans.size());
  for (const Scan& scan : scans) {
    throwIfStopped();
    out << scan[0].size() << '\n';
    for (const std::vector<double>& axis : scan) {
      out.write(reinterpret_cast<const char*>(axis.data()), std::streamsize(8 * axis.size()));
    }
    scope.step();
  }
  out.close();
  file.commit();
}

void showExtent(const std::vector<Scan>& scans, std::size_t axis, const QuantityText& lengths) {
  std::vector<double> all;
  for (const Scan& scan : scans) {
    all.insert(all.end(), scan[axis].begin(), scan[axis].end());
  }
  const auto [least, most] = std::minmax_element(all.begin(), all.end());
  std::printf("%c: %s\n", "xyz"[axis], qPrintable(lengths.text(*most - *least)));
}

int run(const QStringList& words) {
  Unit::Units_t unit = Unit::Millimetre;
  if (words.size() != 4 || !uLength.getUnitByName(words[3], &unit)) {
    std::fprintf(stderr, "usage: batch ONE-OF-THE-FILES PROJECT UNIT-OF-LENGTH\n");
    return 2;
  }
  Journal journal(words[2] + ".log");
  const InterruptWatch watch;
  const TerminalProgress bar;
  try {
    ProgressScope scope("batch", 2);
    const std::vector<Scan> scans = readSeries(Filename::NameWithNumber(words[1], -1), bar);
    save(words[2], scans);
    bar.wipe();
    for (const std::size_t axis : {0, 1, 2}) {
      showExtent(scans, axis, QuantityText(uLength).setUnit(unit).setSignificantDigits(6));
    }
    journal.add(Journal::Info, "batch", QString("%1 files saved").arg(scans.size()));
    return 0;
  } catch (const Exception& error) {  // Ctrl-C makes it Stopped
    bar.print("batch: " + error.getText());
    journal.add(Journal::Error, "batch", error.getText());
    return watch.wasInterrupted() ? 130 : 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QStringList words = QCoreApplication::arguments();
  KyrInit::InitLibrary({"batch", "1.0"}, words);
  const int code = run(words);
  KyrInit::CloseLibrary();
  return code;
}
