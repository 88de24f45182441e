#include "Shapes.h"
#include "Threads.h"

#include "support/Support.h"
#include "surface/project.h"
#include "viewer/display_unit.h"
#include "viewer/legend.h"
#include "viewer/main_window.h"
#include "viewer/message_bar.h"
#include "viewer/theme.h"
#include "viewer/view.h"

#include <kyr/env/KyrInit.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/KyrTranslator.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/units/KyrUnits.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>

namespace {

using namespace Viewer;
using KyrTest::curvedSquare;
using KyrTest::objOf;

constexpr int patience = 60000;  // ms

/// Every test runs with an application and no display. It is never destroyed: the offscreen
/// platform would then leave its screen behind, as a leak.
class Application : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    _application = new QApplication(_count, _arguments);
    Theme::apply(*_application);
  }

 private:
  static QApplication* _application;
  int _count = 1;
  char _name[5] = "test";
  char* _arguments[2] = {_name, nullptr};
};
QApplication* Application::_application = nullptr;
const auto* const application = ::testing::AddGlobalTestEnvironment(new Application);

/// A window on the screen, and what one does with it.
class Window : public MainWindow {
 public:
  explicit Window(unsigned copies = 1) : MainWindow(1, copies) {
    setDisplayUnit(Kyr::Unit::Millimetre);
    resize(900, 600);
    show();
  }

  Outcome load(const QString& path) {
    QSignalSpy spy(this, &MainWindow::ended);
    open(path);
    return outcomeOf(spy);
  }

  Outcome outcomeOf(QSignalSpy& spy) {
    EXPECT_TRUE(!spy.isEmpty() || spy.wait(patience)) << "loading does not end";
    return spy.isEmpty() ? Outcome::Failed : spy.first().first().value<Outcome>();
  }

  QImage settledPicture() {
    QSignalSpy spy(&view(), &View::settled);
    while (!view().isSettled()) {
      if (!spy.wait(patience)) {
        ADD_FAILURE() << "the picture does not come";
        return {};
      }
    }
    return view().picture()->image;
  }

  template <class Widget>
  Widget& get(const char* name) {
    return *findChild<Widget*>(name);
  }
  void click(const char* name) { QTest::mouseClick(findChild<QWidget*>(name), Qt::LeftButton); }
  QString number(const char* name) { return get<QLabel>(name).text(); }
};

class Viewing : public ::testing::Test {
 protected:
  QString write(const QString& name, const Surface::Mesh& mesh) {
    return _directory.write(name, objOf(mesh));
  }
  const KyrTest::TempDir _directory;
};

TEST_F(Viewing, ScansAreShownWithTheirColours) {
  struct Row {
    double bend;
    int redness;  // sign of red above blue in the middle
    const char* fault;
  };
  const Row rows[] = {
      {-1, 1, "a ridge without the colour of ridges"},
      {1, -1, "a hollow without the colour of hollows"},
      {0, 0, "a plane with a colour"},
  };
  for (const Row& row : rows) {
    Window window;
    ASSERT_EQ(window.load(write("scan.obj", curvedSquare(row.bend))), Outcome::Loaded);
    const QImage image = window.settledPicture();
    const Picture& picture = *window.view().picture();
    int covered = 0;
    int redness = 0;
    QSet<QRgb> colours;
    for (int i = 0; i < image.width() * image.height(); ++i) {
      if (!std::isnan(picture.values[static_cast<std::size_t>(i)])) {
        const QRgb seen = image.pixel(i % image.width(), i / image.width());
        colours.insert(seen);
        redness += qRed(seen) - qBlue(seen);
        ++covered;
      }
    }
    const double share = static_cast<double>(covered) / (image.width() * image.height());
    EXPECT_GT(share, 0.15) << row.fault;
    EXPECT_LT(share, 0.9) << row.fault;
    EXPECT_GT(colours.size(), row.bend != 0 ? 200 : 3) << row.fault;
    const int mean = redness / std::max(covered, 1);
    EXPECT_EQ(mean > 25 ? 1 : mean < -25 ? -1 : 0, row.redness) << row.fault << ": " << mean;
    const Surface::CurvatureStatistics& curvature = window.scan()->curvature;
    const double extreme = row.bend < 0 ? curvature.highest : curvature.lowest;
    EXPECT_NEAR(extreme, -row.bend, 0.15) << row.fault;
    EXPECT_EQ(window.number("triangles"), "1,152");
  }
}

TEST_F(Viewing, TheUnitChangesEveryNumber) {
  Window window;
  ASSERT_EQ(window.load(write("scan.obj", curvedSquare(-1))), Outcome::Loaded);
  const Surface::Measures& measures = window.scan()->measures;
  struct Row {
    const char* label;
    const Kyr::Unit* kind;
    double value;
  };
  const Row rows[] = {
      {"width", &Kyr::uLength, measures.extent[0]},
      {"height", &Kyr::uLength, measures.extent[1]},
      {"depth", &Kyr::uLength, measures.extent[2]},
      {"area", &Kyr::uArea, measures.area},
      {"volume", &Kyr::uVolume, measures.volume},
      {"median", &Kyr::uCurvature, window.scan()->curvature.median},
      {"lowest", &Kyr::uCurvature, window.scan()->curvature.lowest},
      {"highest", &Kyr::uCurvature, window.scan()->curvature.highest},
      {"low", &Kyr::uCurvature, window.scan()->curvature.low},
      {"high", &Kyr::uCurvature, window.scan()->curvature.high},
  };
  const char* const widths[] = {"2000 µm", "0.002000 m", "0.07874 in", "0.006562 ft", "78.74 mil"};
  auto& units = window.get<QComboBox>("unit");
  for (const char* const width : widths) {
    QMap<QString, QString> before;
    for (const Row& row : rows) {
      before[row.label] = window.number(row.label);
    }
    const QStringList legend = window.view().legend().numbers();
    QTest::keyClick(&units, Qt::Key_Down);
    EXPECT_EQ(window.number("width"), QString(width));
    EXPECT_NE(window.view().legend().numbers(), legend) << width << ": the legend stays";
    for (const Row& row : rows) {
      const QString text = window.number(row.label);
      const QString unit = ' ' + row.kind->getName();
      const bool sameUnit = before[row.label].endsWith(unit);  // both volumes in cubic inches
      EXPECT_TRUE(text != before[row.label] || sameUnit) << row.label << " stays";
      ASSERT_TRUE(text.endsWith(unit)) << row.label << ": " << text.toStdString();
      const double shown = text.chopped(unit.size()).toDouble();
      const double expected = row.kind->to(row.value);
      EXPECT_NEAR(shown, expected, std::abs(expected) * 2e-3) << row.label;
    }
    const double last = window.view().legend().numbers().last().toDouble();
    const double range = Kyr::uCurvature.to(window.scan()->range);
    EXPECT_LE(last, range * 1.001) << "the legend goes beyond its colours";
    EXPECT_GT(last, range / 2) << "the legend is not of this unit";
  }
}

TEST_F(Viewing, ADamagedFileLeavesTheScanAlone) {
  const Surface::Mesh mesh = curvedSquare(0.5);
  const QString good = _directory.file("good.kyr");
  Surface::writeProject(good, Surface::toBytes(mesh));
  const QByteArray whole = KyrTest::readFile(good);
  struct Row {
    QString path;
    QString says;
    const char* fault;
  };
  const Row rows[] = {
      {_directory.write("a.obj", "v 0 0 0\nv 1 0 0\nv 1 2\n"), "line 3", "a point is missing"},
      {_directory.write("b.kyr", whole.left(whole.size() / 2)), "too early", "half a project"},
      {_directory.write("c.kyr", whole.left(60)), "c.kyr was not opened", "half a header"},
      {_directory.write("d.obj", "v 0 0 0\n"), "d.obj was not opened", "no surface"},
      {_directory.write("e.obj", ""), "e.obj was not opened", "an empty file"},
      {_directory.file("f.obj"), "f.obj was not opened", "a missing file"},
      {_directory.path(), "was not opened", "a folder"},
  };
  Window window;
  ASSERT_EQ(window.load(good), Outcome::Loaded);
  const auto scan = window.scan();
  EXPECT_EQ(scan->points, mesh.points.size());
  const QImage picture = window.settledPicture();
  for (const Row& row : rows) {
    EXPECT_EQ(window.load(row.path), Outcome::Failed) << row.fault;
    EXPECT_TRUE(window.messages().text().contains(row.says))
        << row.fault << ": " << window.messages().text().toStdString();
    EXPECT_EQ(window.scan(), scan) << row.fault;
    EXPECT_EQ(window.number("name"), "good.kyr") << row.fault;
    EXPECT_FALSE(window.isBusy()) << row.fault;
    window.click("dismiss");
    EXPECT_EQ(window.messages().text(), "") << "the message cannot be put away";
    EXPECT_EQ(window.settledPicture(), picture) << row.fault;
  }
}

TEST_F(Viewing, AbortKeepsTheScanAndNothingElse) {
  const QString small = write("small.obj", curvedSquare(1));
  const QString large = write("large.obj", curvedSquare(-1, 100));
  constexpr unsigned copies = 120;  // 1 224 120 points
  Window window(copies);
  ASSERT_EQ(window.load(small), Outcome::Loaded);
  const auto scan = window.scan();
  const QString width = window.number("width");
  const auto& bar = window.get<QProgressBar>("progress");
  for (const int percent : {0, 36, 60}) {
    QSignalSpy progress(&bar, &QProgressBar::valueChanged);
    QSignalSpy ended(&window, &MainWindow::ended);
    window.open(large);
    EXPECT_TRUE(window.get<QPushButton>("abort").isVisible());
    while (bar.value() < percent) {
      ASSERT_TRUE(progress.wait(patience)) << "no progress at " << bar.value();
    }
    EXPECT_TRUE(window.isBusy());
    QElapsedTimer watch;
    watch.start();
    window.click("abort");
    EXPECT_EQ(window.outcomeOf(ended), Outcome::Aborted) << "at " << percent << " percent";
    std::printf("aborted at %d percent, ended after %d ms\n", percent,
                static_cast<int>(watch.elapsed()));
    EXPECT_EQ(window.scan(), scan);
    EXPECT_EQ(window.number("width"), width);
    EXPECT_TRUE(window.messages().text().contains("aborted"));
    EXPECT_FALSE(window.get<QPushButton>("abort").isVisible());
    EXPECT_FALSE(Kyr::Progress::getAbortFlag()) << "the next computation stops at once";
    EXPECT_EQ(Kyr::Progress::getProgressString(), "");
  }
  EXPECT_EQ(window.load(small), Outcome::Loaded) << "nothing can be opened after an abort";
}

TEST_F(Viewing, TheBarIsFedByEventsOnly) {
  const QString path = write("scan.obj", curvedSquare(1));
  Window window;
  QSignalSpy progress(&window.get<QProgressBar>("progress"), &QProgressBar::valueChanged);
  Kyr::Progress::setCreateGUIEvents(false);
  ASSERT_EQ(window.load(path), Outcome::Loaded);
  EXPECT_EQ(progress.count(), 0) << "it reads the progress in another way";
  Kyr::Progress::setCreateGUIEvents(true);
  ASSERT_EQ(window.load(path), Outcome::Loaded);
  int before = -1;
  for (const auto& change : progress) {
    const int percent = change.first().toInt();
    EXPECT_TRUE(percent > before || percent == 0) << "it runs backwards";
    before = percent;
  }
  EXPECT_GT(progress.count(), 3);
}

TEST_F(Viewing, TheLastFileOpenedIsTheOneShown) {
  const QString large = write("large.obj", curvedSquare(1, 60));
  const QString small = write("small.obj", curvedSquare(1, 2));
  Window window;
  QSignalSpy ended(&window, &MainWindow::ended);
  window.open(large);
  window.open(large);
  window.open(small);
  EXPECT_EQ(window.outcomeOf(ended), Outcome::Loaded);
  EXPECT_EQ(window.number("name"), "small.obj");
  EXPECT_EQ(ended.count(), 1) << "a file that was given up reports its end";
  window.open(large);  // and the window goes while it is loaded
}

/// Closes a window when the news of the end of loading is about to reach it.
class Closer : public QObject {
  bool eventFilter(QObject* window, QEvent* event) override {
    if (event->type() == QEvent::MetaCall) {
      QCloseEvent close;
      QApplication::sendEvent(window, &close);
    }
    return false;
  }
};

TEST_F(Viewing, TheWindowMayCloseWhenLoadingEnds) {
  const QString path = write("scan.obj", curvedSquare(1, 2));
  Window window;
  Closer closer;
  window.installEventFilter(&closer);
  window.open(path);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isBusy(); }, patience));
  EXPECT_EQ(window.scan(), nullptr) << "a closed window shows a scan";
  window.removeEventFilter(&closer);
  EXPECT_EQ(window.load(path), Outcome::Loaded) << "nothing can be opened any more";
}

TEST_F(Viewing, ThePictureFollowsMouseAndKeys) {
  Window window;
  ASSERT_EQ(window.load(write("scan.obj", curvedSquare(1, 6))), Outcome::Loaded);
  auto& view = window.get<QWidget>("view");
  const QPoint middle = view.rect().center();
  const auto drag = [&](Qt::KeyboardModifiers keys, Qt::MouseButton button) {
    QTest::mousePress(&view, button, keys, middle);
    const QPoint there = middle + QPoint(40, 25);
    QMouseEvent move(QEvent::MouseMove, there, view.mapToGlobal(there), Qt::NoButton, button, keys);
    QApplication::sendEvent(&view, &move);
    QTest::mouseRelease(&view, button, keys, there);
  };
  const auto wheel = [&](int steps) {
    QWheelEvent turn(middle, view.mapToGlobal(middle), {}, {0, 120 * steps}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &turn);
  };
  struct Row {
    std::function<void()> act;
    const char* back;
    const char* fault;
  };
  const Row rows[] = {
      {[&] { drag(Qt::NoModifier, Qt::LeftButton); }, "reset", "dragging does not turn"},
      {[&] { drag(Qt::ShiftModifier, Qt::LeftButton); }, "fit", "dragging does not move"},
      {[&] { drag(Qt::NoModifier, Qt::RightButton); }, "fit", "the other button does not move"},
      {[&] { wheel(2); }, "fit", "the wheel does not come nearer"},
      {[&] { wheel(-30); }, "fit", "the wheel does not go away"},
      {[&] { QTest::keyClick(&view, Qt::Key_Left); }, "reset", "an arrow does not turn"},
      {[&] { QTest::keyClick(&view, Qt::Key_Plus); }, "fit", "plus does not come nearer"},
  };
  const QImage first = window.settledPicture();
  for (const Row& row : rows) {
    row.act();
    EXPECT_NE(window.settledPicture(), first) << row.fault;
    window.click(row.back);
    EXPECT_EQ(window.settledPicture(), first) << row.fault << ", or there is no way back";
  }
}

TEST_F(Viewing, ASystemWithoutThreadsIsNoReasonToHang) {
  const QString path = write("scan.obj", curvedSquare(1));
  KyrTest::threadsAreOut = true;
  Window window;
  EXPECT_EQ(window.load(path), Outcome::Failed);
  EXPECT_TRUE(window.messages().text().contains("no thread")) << "a silent failure";
  EXPECT_FALSE(window.isBusy());
  KyrTest::threadsAreOut = false;
  EXPECT_EQ(window.load(path), Outcome::Loaded);
  EXPECT_FALSE(window.settledPicture().isNull()) << "nobody draws";
}

/// The widgets of a window whose texts find no room.
QStringList cutOff(const QWidget& window) {
  QStringList names;
  for (const auto* widget : window.findChildren<QWidget*>()) {
    const auto* const label = qobject_cast<const QLabel*>(widget);
    const auto* const button = qobject_cast<const QAbstractButton*>(widget);
    const bool isText = button != nullptr || (label != nullptr && !label->wordWrap());
    if (isText && widget->isVisible() && widget->width() < widget->sizeHint().width()) {
      names << widget->objectName() + ' ' + (label != nullptr ? label->text() : button->text());
    }
  }
  return names;
}

TEST_F(Viewing, TextsFitInEveryLanguage) {
  const KyrTest::ScopedEnvironment console("KYR_CONSOLE", "terminal");
  const KyrTest::ScopedEnvironment settings("KYR_CONFIG_DIR", _directory.path().toUtf8());
  QStringList arguments{"viewer"};
  Kyr::KyrInit::InitLibrary(Kyr::ApplicationServer, arguments);
  const QString path = write("scan.obj", curvedSquare(-1));
  const QString large = write("large.obj", curvedSquare(1, 60));
  for (const auto& [language, abort] :
       {std::pair("en", "Abort"), {"de", "Abbrechen"}, {"fr", "Interrompre"}}) {
    Kyr::KyrInit::InitTranslator(language);
    Kyr::installTranslator("Examples");
    for (const QSize& size : {QSize(1, 1), QSize(1280, 800)}) {
      setDisplayUnit(Kyr::Unit::Millimetre);
      Window window;
      window.resize(size);
      EXPECT_EQ(cutOff(window).join("; ").toStdString(), "") << language << ", empty";
      QTest::keyClick(&window.get<QComboBox>("unit"), Qt::Key_Down);  // micrometres
      EXPECT_EQ(window.load(path), Outcome::Loaded);
      EXPECT_EQ(cutOff(window).join("; ").toStdString(), "") << language << ", with a scan";
      const QRect buttons = window.get<QWidget>("fit").parentWidget()->geometry();
      EXPECT_FALSE(window.get<QWidget>("legend").geometry().intersects(buttons)) << language;
      QSignalSpy ended(&window, &MainWindow::ended);
      window.open(large);
      EXPECT_EQ(window.get<QPushButton>("abort").text(), abort);
      window.get<QLabel>("progressText")
          .setText(Kyr::translate("Surface", "Sorting the corners of triangles"));
      QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
      EXPECT_EQ(cutOff(window).join("; ").toStdString(), "") << language << ", at work";
      window.outcomeOf(ended);
    }
    Kyr::KyrInit::CloseTranslator();
  }
}

TEST_F(Viewing, ScreenshotsComeFromTheCommandLine) {
  const QString scan = write("scan.obj", curvedSquare(1));
  const QString bad = _directory.write("bad.obj", "v 1\n");
  const QString png = _directory.file("shot.png");
  struct Row {
    QStringList arguments;
    int code;
    const char* says;
    const char* fault;
  };
  const Row rows[] = {
      {{"--screenshot", png, "--size", "800x600", scan}, 0, "", "no screenshot"},
      {{"--screenshot", png, bad}, 1, "bad.obj, line 1", "a damaged file makes a screenshot"},
      {{"--screenshot", _directory.file("no/such.png"), scan}, 1, "cannot write", "it is lost"},
      {{"--screenshot", png}, 2, "needs a file", "a screenshot of nothing"},
      {{"--screenshot", png, "--size", "8x", scan}, 2, "8x", "half a size"},
      {{"--screenshot", png, "--copies", "0", scan}, 2, "copies", "no copy at all"},
      {{"--screenshot", png, "--unit", "furlong", scan}, 2, "furlong", "an unknown unit"},
      {{scan}, 1, "there is no display", "a dump of the process instead of a word"},
  };
  for (const Row& row : rows) {
    QFile::remove(png);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS", "detect_leaks=0");  // of the offscreen platform's screen
    for (const char* display :
         {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET"}) {
      environment.remove(display);
    }
    process.setProcessEnvironment(environment);
    process.start(KYR_VIEWER, row.arguments);
    ASSERT_TRUE(process.waitForFinished(patience)) << row.fault;
    EXPECT_EQ(process.exitCode(), row.code) << row.fault;
    const QByteArray errors = process.readAllStandardError();
    EXPECT_TRUE(errors.contains(row.says)) << row.fault << '\n' << errors.toStdString();
    EXPECT_EQ(QImage(png).size(), row.code == 0 ? QSize(800, 600) : QSize(0, 0)) << row.fault;
  }
}

}  // namespace
