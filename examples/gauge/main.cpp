/// \file
/// The gauge: shows a quantity that the user types as people write it, in the unit that the user
/// likes to see.
///
/// Exit codes: 0 closed, or the screenshot is written; 1 no screenshot, or no display; 2 wrong
/// usage.

#include "gauge_window.h"
#include "quantity_field.h"

#include "surface/session.h"
#include "viewer/display.h"
#include "viewer/theme.h"

#include <kyr/app/KyrInit.h>
#include <kyr/i18n/KyrTranslate.h>

#include <QApplication>
#include <QCommandLineParser>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

using Kyr::translate;

struct Options {
  Gauge::Instrument instrument;
  QString unit;
  QString quantity;
  QString screenshot;
};

void complain(const QString& problem) {
  std::fprintf(stderr, "gauge: %s\n", problem.toLocal8Bit().constData());
}

[[noreturn]] void refuseUsage(const QString& problem) {
  complain(problem + '\n' + translate("Gauge", "Try gauge --help."));
  std::exit(2);
}

QString idOf(const Gauge::Instrument& instrument) {
  return Kyr::Unit::getID(instrument.kind);
}

Gauge::Instrument instrumentOf(const QString& id) {
  const auto all = Gauge::instruments();
  const auto found = std::find_if(all.begin(), all.end(), [&](const Gauge::Instrument& each) {
    return idOf(each).compare(id, Qt::CaseInsensitive) == 0;
  });
  if (found == all.end()) {
    refuseUsage(translate("Gauge", "there is no gauge for %1").arg(id));
  }
  return *found;
}

Options parseArguments(const QStringList& arguments) {
  QStringList kinds;
  for (const Gauge::Instrument& instrument : Gauge::instruments()) {
    kinds += idOf(instrument);
  }
  QCommandLineParser parser;
  parser.setApplicationDescription(
      translate("Gauge", "Shows a quantity that is typed as people write it."));
  const QString quantity = translate("Gauge", "quantity");
  parser.addPositionalArgument(quantity, translate("Gauge", "what the field holds at first"),
                               '[' + quantity + ']');
  const QCommandLineOption help({"h", "help"}, translate("Gauge", "shows this"));
  const QCommandLineOption kind("kind", kinds.join(", "), translate("Gauge", "kind"),
                                kinds.first());
  const QCommandLineOption unit("unit", translate("Gauge", "in which the quantity is shown"),
                                translate("Gauge", "unit"));
  const QCommandLineOption screenshot(
      "screenshot", translate("Gauge", "writes a picture of the window and ends"), "png");
  parser.addOptions({help, kind, unit, screenshot});
  if (!parser.parse(arguments)) {
    refuseUsage(parser.errorText());
  }
  if (parser.isSet(help)) {
    std::fputs(parser.helpText().toLocal8Bit().constData(), stdout);
    std::exit(0);
  }
  if (parser.positionalArguments().size() > 1) {
    refuseUsage(translate("Gauge", "give one quantity, in quotes"));
  }
  return {instrumentOf(parser.value(kind)), parser.value(unit),
          parser.positionalArguments().value(0), parser.value(screenshot)};
}

void chooseUnit(Gauge::GaugeWindow& window, const Options& options) {
  const Kyr::Unit& kind = *options.instrument.kind;
  Kyr::UnitName unit;
  if (!Kyr::QuantityText::findUnit(kind, options.unit, &unit) || unit.number < 0) {
    refuseUsage(translate("Gauge", "the gauge has no unit %1").arg(options.unit));
  }
  window.setUnit(static_cast<Kyr::Unit::Units_t>(unit.number));
}

}  // namespace

int main(int argc, char** argv) {
  Surface::keepStandardStreams();
  const bool headless = !Viewer::prepareDisplay(argc, argv);
  QApplication application(argc, argv);
  QCoreApplication::setApplicationName("gauge");
  const Surface::Session session(Kyr::ApplicationViewer);
  const Options options = parseArguments(session.arguments());
  if (headless && options.screenshot.isEmpty()) {
    complain(translate("Gauge", "there is no display for a window; --screenshot needs none"));
    return 1;
  }
  Viewer::Theme::apply(application);
  Gauge::GaugeWindow window(options.instrument);
  if (!options.unit.isEmpty()) {
    chooseUnit(window, options);
  }
  window.field().setText(options.quantity);
  window.field().setFocus();
  window.show();
  Kyr::KyrInit::signalMainWindowStarted();
  if (options.screenshot.isEmpty()) {
    return QApplication::exec();
  }
  QCoreApplication::processEvents();
  if (!window.grab().save(options.screenshot, "PNG")) {
    complain(translate("Gauge", "cannot write %1").arg(options.screenshot));
    return 1;
  }
  return 0;
}
