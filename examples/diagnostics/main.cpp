/// \file
/// How an application keeps the look of a legend in a settings file, notices that memory runs
/// short, and writes a report for support with a part of its own.
///
///   diagnostics DIRECTORY
///
/// Exit codes: 0 all is well, 1 a file is at fault, 2 wrong usage.

#include <kyr/core/KyrException.h>
#include <kyr/diagnostics/KyrMemoryObserver.h>
#include <kyr/diagnostics/KyrSystemReport.h>
#include <kyr/files/KyrFileParse.h>
#include <kyr/files/KyrSafeFile.h>
#include <kyr/os/KyrOS.h>
#include <kyr/text/KyrTextCodec.h>
#include <kyr/trace/KyrTrace.h>
#include <kyr/values/KyrColour.h>
#include <kyr/values/KyrFont.h>
#include <kyr/values/KyrSound.h>

#include <QCoreApplication>

#include <cstdio>

namespace {

struct Look {
  Kyr::Font font{"DejaVu Sans", 10.5, Kyr::Font::bold};
  Kyr::Colour background{255, 255, 255, 200};
  Kyr::Sound whenDone{"sounds/measured twice.wav", 80};
};

void save(const Look& look, const QString& name) {
  Kyr::SafeFile file(name);
  for (const QString& line :
       {QString(Kyr::getCodecForLine(Kyr::CodecUtf8)), look.font.toLine("LEGEND_FONT"),
        look.background.toLine("LEGEND_BACKGROUND"), look.whenDone.toLine("DONE_SOUND")}) {
    file.stream() << line.toUtf8().constData() << '\n';
  }
  file.commit();
}

Look load(const QString& name) {
  Kyr::FileParse::File file(name);  // its failures name the file, the line and the column
  return {Kyr::Font::read(file, "LEGEND_FONT"), Kyr::Colour::read(file, "LEGEND_BACKGROUND"),
          Kyr::Sound::read(file, "DONE_SOUND")};
}

/// Shows a warning for want of memory. An application polls from a timer; the observer does not run
/// by itself.
void watchMemory() {
  Kyr::MemoryObserver observer;
  observer.watch(Kyr::MemoryObserver::ProcessSize, 1 << 20, [](const Kyr::MemoryUse& use) {
    std::printf("over a MiB: %s\n", use.resident > 1 << 20 ? "yes" : "no");
    Kyr::MemoryObserver::freeMemory();
  });
  observer.poll();
  observer.poll();  // calls nobody a second time
}

void writeReport(const Look& look, const QString& settings, const QString& folder) {
  const Kyr::TraceSpan span("write the report");  // seen when KYR_TRACE names a file
  Kyr::SystemReport report;
  report.collect();
  report.add("Legend", [&](Kyr::SystemReport::Section& section) {
    section.add("font", look.font.toText());
    section.add("background", look.background.toHex());
  });
  report.addFile(settings, "legend.txt");
  report.write(folder + "/" + report.name() + ".tar.gz");
  std::printf("sections: %u, files: %u\n", unsigned(report.sections().size()),
              unsigned(report.files().size()));
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() != 2 || words[1].startsWith('-')) {
    std::fprintf(stderr, "usage: diagnostics DIRECTORY, which receives settings and a report\n");
    return 2;
  }
  const QString& folder = words[1];
  const QString settings = folder + "/legend.txt";
  try {
    Kyr::OS::makeDirectory(folder);
    save(Look(), settings);
    const Look look = load(settings);
    std::printf("legend: %s on %s\n", qPrintable(look.font.toText()),
                qPrintable(look.background.toHex()));
    watchMemory();
    writeReport(look, settings, folder);
    return 0;
  } catch (const Kyr::Exception& error) {
    std::fprintf(stderr, "diagnostics: %s\n", qPrintable(error.getText()));
    return 1;
  }
}
