#include "Shapes.h"

#include "support/Support.h"
#include "surface/project.h"
#include "viewer/display_unit.h"
#include "viewer/legend.h"
#include "viewer/main_window.h"
#include "viewer/message_bar.h"
#include "viewer/theme.h"
#include "viewer/view.h"

#include <kyr/app/KyrInit.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/KyrTranslator.h>
#include <kyr/units/KyrUnits.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {

using namespace Viewer;
using namespace KyrTest;

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
    resize(1, 1);  // as small as it goes: every picture takes its time
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
  const std::tuple<double, int, const char*> rows[] = {
      {-1, 1, "a ridge without the colour of ridges"},
      {1, -1, "a hollow without the colour of hollows"},
      {0, 0, "a plane with a colour"},
  };
  for (const auto& [bend, expected, fault] : rows) {
    Window window;
    ASSERT_EQ(window.load(write("scan.obj", curvedSquare(bend))), Outcome::Loaded);
    const QImage image = window.settledPicture();
    const std::vector<float>& values = window.view().picture()->values;
    int redness = 0;
    int covered = 0;
    for (int i = 0; i < image.width() * image.height(); ++i) {
      const QPoint place(i % image.width(), i / image.width());
      if (!std::isnan(values[std::size_t(i)])) {
        EXPECT_TRUE(image.rect().adjusted(1, 1, -1, -1).contains(place)) << "a part is cut off";
        redness += qRed(image.pixel(place)) - qBlue(image.pixel(place));
        ++covered;
      }
    }
    const int mean = redness / std::max(covered, 1);
    EXPECT_EQ(mean > 25 ? 1 : mean < -25 ? -1 : 0, expected) << fault << ": " << mean;
    EXPECT_GT(covered, image.width() * image.height() / 7);
    EXPECT_EQ(window.number("triangles"), "1,152");
  }
}

TEST_F(Viewing, TheUnitChangesEveryNumber) {
  Window window;
  ASSERT_EQ(window.load(write("scan.obj", curvedSquare(-1))), Outcome::Loaded);
  const char* const widths[] = {"2000 µm", "0.002000 m", "0.07874 in", "0.006562 ft", "78.74 mil"};
  for (const char* const width : widths) {
    QTest::keyClick(&window.get<QComboBox>("unit"), Qt::Key_Down);
    EXPECT_EQ(window.number("width"), QString(width).replace(' ', QChar(0xA0)));
    for (const auto& [label, kind] : {std::pair<const char*, const Kyr::Unit*>("area", &Kyr::uArea),
                                      {"volume", &Kyr::uVolume},
                                      {"median", &Kyr::uCurvature}}) {
      const QString unit = QString(' ' + kind->getName()).replace(' ', QChar(0xA0));
      EXPECT_TRUE(window.number(label).endsWith(unit)) << width << ": " << label;
      EXPECT_TRUE(unit.contains(QString(width).section(' ', 1)) || kind == &Kyr::uVolume) << label;
    }
    const double last = window.view().legend().numbers().last().toDouble();
    const double range = Kyr::uCurvature.to(window.scan()->range);
    EXPECT_TRUE(last <= range * 1.001 && last > range / 2) << "the legend is of another unit";
  }
}

TEST_F(Viewing, ADamagedFileLeavesTheScanAlone) {
  const Surface::Mesh mesh = curvedSquare(0.5);
  const QString good = _directory.file("good.kyr");
  Surface::writeProject(good, Surface::toBytes(mesh));
  const QByteArray whole = KyrTest::readFile(good);
  const std::tuple<QString, QString, const char*> rows[] = {
      {_directory.write("a.obj", "v 0 0 0\nv 1 0 0\nv 1 2\n"), "a.obj:3:6: ", "a point is missing"},
      {_directory.write("b.kyr", whole.left(whole.size() / 2)), "too early", "half a project"},
      {_directory.file("f.obj"), "f.obj was not opened", "a missing file"},
  };
  Window window;
  ASSERT_EQ(window.load(good), Outcome::Loaded);
  const auto scan = window.scan();
  EXPECT_EQ(scan->points, mesh.points.size());
  const QImage picture = window.settledPicture();
  for (const auto& [path, says, fault] : rows) {
    EXPECT_EQ(window.load(path), Outcome::Failed) << fault;
    EXPECT_TRUE(window.messages().text().contains(says))
        << fault << ": " << window.messages().text().toStdString();
    EXPECT_EQ(window.scan(), scan) << fault;
    EXPECT_EQ(window.number("name"), "good.kyr") << fault;
    EXPECT_FALSE(window.isBusy()) << fault;
    window.click("dismiss");
    EXPECT_EQ(window.messages().text(), "") << "the message cannot be put away";
  }
  EXPECT_EQ(window.settledPicture(), picture);
}

TEST_F(Viewing, AbortKeepsTheScanAndNothingElse) {
  const QString small = write("small.obj", curvedSquare(1));
  const QString large = write("large.obj", curvedSquare(-1, 100));
  constexpr unsigned copies = 60;  // 612 060 points
  Window window(copies);
  ASSERT_EQ(window.load(small), Outcome::Loaded);
  const auto scan = window.scan();
  const auto& bar = window.get<QProgressBar>("progress");
  for (const int percent : {0, 36, 60}) {
    QSignalSpy progress(&bar, &QProgressBar::valueChanged);
    QSignalSpy ended(&window, &MainWindow::ended);
    window.open(large);
    while (bar.value() < percent) {
      ASSERT_TRUE(progress.wait(patience)) << "no progress at " << bar.value();
    }
    window.click("abort");
    EXPECT_EQ(window.outcomeOf(ended), Outcome::Aborted) << "at " << percent << " percent";
    EXPECT_EQ(window.scan(), scan);
    EXPECT_TRUE(window.messages().text().contains("aborted"));
    EXPECT_FALSE(window.get<QPushButton>("abort").isVisible());
  }
  EXPECT_EQ(window.load(small), Outcome::Loaded) << "nothing can be opened after an abort";
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

TEST_F(Viewing, ThePictureFollowsMouseAndKeys) {
  Window window;
  ASSERT_EQ(window.load(write("scan.obj", curvedSquare(1, 6))), Outcome::Loaded);
  auto& view = window.get<QWidget>("view");
  const QPoint middle = view.rect().center();
  const auto move = [&](const QPoint& there, Qt::MouseButton held, Qt::KeyboardModifiers keys) {
    QMouseEvent event(QEvent::MouseMove, there, view.mapToGlobal(there), Qt::NoButton, held, keys);
    QApplication::sendEvent(&view, &event);
  };
  const auto drag = [&](Qt::KeyboardModifiers keys) {
    QTest::mousePress(&view, Qt::LeftButton, keys, middle);
    move(middle + QPoint(40, 25), Qt::LeftButton, keys);
    QTest::mouseRelease(&view, Qt::LeftButton, keys);
  };
  const auto covered = [&] {
    const std::vector<float>& values = window.view().picture()->values;
    return std::count_if(values.begin(), values.end(), [](float v) { return !std::isnan(v); });
  };
  const std::tuple<std::function<void()>, const char*, int, const char*> rows[] = {
      {[&] { drag(Qt::NoModifier); }, "reset", 0, "dragging does not turn"},
      {[&] { drag(Qt::ShiftModifier); }, "fit", 0, "dragging does not move"},
      {[&] { QTest::keyClick(&view, Qt::Key_Left); }, "reset", 0, "an arrow does not turn"},
      {[&] { QTest::keyClick(&view, Qt::Key_Plus); }, "fit", 1, "plus does not come nearer"},
  };
  const QImage first = window.settledPicture();
  const auto before = covered();
  move(middle, Qt::NoButton, Qt::NoModifier);
  EXPECT_NE(window.number("probe"), "") << "nothing is known of the place under the mouse";
  for (const auto& [act, back, nearer, fault] : rows) {
    act();
    EXPECT_NE(window.settledPicture(), first) << fault;
    EXPECT_GE((covered() - before) * nearer, 0) << fault;
    window.click(back);
    EXPECT_EQ(window.settledPicture(), first) << fault << ", or there is no way back";
  }
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
  const std::tuple<const char*, const char*, const char*> languages[] = {
      {"en", "Abort", "2.000 mm"},       {"de", "Abbrechen", "2,000 mm"},
      {"fr", "Interrompre", "2,000 mm"}, {"jp", "中止", "2.000 mm"},
      {"cn", "中止", "2.000 mm"},        {"pt", "Interromper", "2,000 mm"}};
  for (const auto& [language, abort, width] : languages) {
    Kyr::KyrInit::InitTranslator(language);
    Kyr::installTranslator("Examples");
    Window window;
    EXPECT_EQ(window.load(path), Outcome::Loaded);
    EXPECT_EQ(window.number("width"), QString(width).replace(' ', QChar(0xA0))) << language;
    QTest::keyClick(&window.get<QComboBox>("unit"), Qt::Key_Down);  // micrometres
    EXPECT_EQ(cutOff(window).join("; ").toStdString(), "") << language << ", with a scan";
    QSignalSpy ended(&window, &MainWindow::ended);
    window.open(large);
    EXPECT_EQ(window.get<QPushButton>("abort").text(), abort);
    EXPECT_EQ(cutOff(window).join("; ").toStdString(), "") << language << ", at work";
    window.outcomeOf(ended);
    Kyr::KyrInit::CloseTranslator();
  }
}

TEST_F(Viewing, ScreenshotsComeFromTheCommandLine) {
  const QString scan = write("scan.obj", curvedSquare(1));
  const QString bad = _directory.write("bad.obj", "v 1\n");
  const QString png = _directory.file("shot.png");
  const std::tuple<QStringList, int, const char*, const char*> rows[] = {
      {{"--screenshot", png, "--size", "800x600", scan}, 0, "", "no screenshot"},
      {{"--screenshot", png, bad}, 1, "bad.obj:1:", "a damaged file makes a screenshot"},
      {{"--screenshot", png, "--unit", "furlong", scan}, 2, "furlong", "an unknown unit"},
      {{scan}, 1, "there is no display", "a dump of the process instead of a word"},
  };
  for (const auto& [arguments, code, says, fault] : rows) {
    QFile::remove(png);
    const KyrTest::Ended ended =
        KyrTest::runProgram(KYR_VIEWER, arguments, {}, {}, [](QProcess& process) {
          QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
          // The offscreen platform leaks its screen.
          environment.insert("ASAN_OPTIONS", "detect_leaks=0");
          for (const char* display :
               {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET"}) {
            environment.remove(display);
          }
          process.setProcessEnvironment(environment);
        });
    EXPECT_EQ(ended.code, code) << fault;
    EXPECT_TRUE(ended.errors.contains(says)) << fault << '\n' << ended.errors.toStdString();
    EXPECT_EQ(QImage(png).size(), code == 0 ? QSize(800, 600) : QSize(0, 0)) << fault;
  }
}

}  // namespace
