/// \file
/// Names of files and of parts: in their natural order, in series, and quoted.
///
///   names DIRECTORY

#include <kyr/core/KyrException.h>
#include <kyr/files/KyrFilename.h>
#include <kyr/os/KyrOS.h>
#include <kyr/text/KyrNumString.h>
#include <kyr/text/KyrQuoting.h>
#include <kyr/text/KyrString.h>

#include <QFile>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace Kyr;

namespace {

void sortNames() {
  std::vector<NumString> names{QString("item10"), QString("item9"), QString("item009")};
  std::sort(names.begin(), names.end());
  std::printf("sorted:");
  for (const NumString& name : names) {
    std::printf(" %s", qPrintable(name.getString()));
  }
  std::printf("\n");
}

/// The name behind the last of a series, which may have gaps.
QString nextName(Filename::NameWithNumber name) {
  const Filename::Series series(name);
  for (const Filename::Series::Gap& gap : series.getGaps()) {
    std::printf("missing: %u to %u\n", gap.first, gap.last);
  }
  unsigned number = name.getNumber();
  series.getNextNumber(&number);
  name.setNumber(number);
  return name.getFullName();
}

void makeSeries(const QString& directory) {
  OS::makeDirectory(directory);
  for (const char* const name : {"scan_001.dat", "scan_002.dat", "scan_007.dat"}) {
    QFile file(directory + "/" + name);
    if (!file.open(QIODevice::WriteOnly)) {
      throw Exception(QString("cannot write %1: %2").arg(file.fileName(), file.errorString()));
    }
  }
  const Filename::Name next(nextName({directory + "/scan_001.dat", 3}));
  std::printf("next: %s, %s\n", qPrintable(next.getFileName()),
              next.exists() ? "which is taken" : "which is free");
}

void quote() {
  const KString line = KString("%0 of %1").arg(KString::number(3)).arg(KString("my part"));
  std::printf("as one word: %s\n", tokenize(line, true).c_str());
  std::printf("for a shell: %s\n", toQuotedShellString("5\" $disk").constData());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 || argv[1][0] == '-') {
    std::fprintf(stderr, "usage: names DIRECTORY, which receives three files\n");
    return 2;
  }
  try {
    sortNames();
    makeSeries(QFile::decodeName(argv[1]));
    quote();
    return 0;
  } catch (const Exception& error) {
    std::fprintf(stderr, "names: %s\n", qPrintable(error.getText()));
    return 1;
  }
}
