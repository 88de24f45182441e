#include "analyse.h"

#include "console_p.h"

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrPlatform.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrGUIThreadEvent.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/sync/KyrThread.h>
#include <kyr/time/KyrTime.h>

#include <QCoreApplication>
#include <QEventLoop>

#include <exception>
#include <utility>

namespace Tour {

namespace {

using Kyr::Progress;
using Surface::Analysis;

/// Shows one moment of the progress on the page.
class ProgressEvent : public Kyr::GUIThreadEvent {
 public:
  ProgressEvent(Page& page, Progress::State state) : _page(page), _state(std::move(state)) {}
  void process() override { _page.progress(_state.overall, _state.text); }

 private:
  Page& _page;
  const Progress::State _state;
};

class ProgressEventCreator : public Kyr::GUIThreadEventCreator {
 public:
  explicit ProgressEventCreator(Page& page) : _page(page) {}
  Kyr::GUIThreadEvent* createEvent() override {
    QEvent* const event = new ProgressEvent(_page, Progress::getState());
    Kyr::Platform::orderedBefore(event);
    return static_cast<ProgressEvent*>(event);
  }

 private:
  Page& _page;
};

class Receiver : public QObject {
 protected:
  void customEvent(QEvent* event) override {
    Kyr::Platform::orderedAfter(event);
    if (auto* const progress = dynamic_cast<Kyr::GUIThreadEvent*>(event)) {
      progress->process();
    }
  }
};

/// Lets events of the progress reach the page for as long as it lives.
class ProgressDisplay {
 public:
  explicit ProgressDisplay(Page& page) : _page(page), _creator(page) {
    Progress::reset();
    Progress::registerGUIEventCreator(&_creator);
    Progress::setEventReceiver(&_receiver);
    Progress::setCreateGUIEvents(true);
  }
  ~ProgressDisplay() {
    Progress::setCreateGUIEvents(false);
    Progress::setEventReceiver(nullptr);
    Progress::deregisterGUIEventCreator(&_creator);
    QCoreApplication::sendPostedEvents(&_receiver);
    _page.endProgress();
  }
  ProgressDisplay(const ProgressDisplay&) = delete;
  ProgressDisplay& operator=(const ProgressDisplay&) = delete;

 private:
  Page& _page;
  ProgressEventCreator _creator;
  Receiver _receiver;
};

class AnalysisThread : public Kyr::Thread {
 public:
  AnalysisThread(const Surface::Mesh& mesh, const Surface::AnalysisOptions& options)
      : Thread(NoLockGUI, "Tour::AnalysisThread::AnalysisThread", "analyse", 75),
        _mesh(mesh),
        _options(options) {}

  Analysis result() {
    if (_problem) {
      std::rethrow_exception(_problem);
    }
    return std::move(_result);
  }

 protected:
  void run() override {
    try {
      _result = analyse(_mesh, _options);
    } catch (...) {
      _problem = std::current_exception();
    }
  }

 private:
  const Surface::Mesh& _mesh;
  const Surface::AnalysisOptions _options;
  Analysis _result;
  std::exception_ptr _problem;
};

}  // namespace

Analysis analyseVisibly(const Surface::Mesh& mesh, const Surface::AnalysisOptions& options,
                        Page& page, Cost& cost) {
  const ProgressDisplay display(page);
  AnalysisThread thread(mesh, options);
  QEventLoop loop;
  QObject::connect(&thread, &QThread::finished, &loop, &QEventLoop::quit);
  const double userBefore = userSeconds();
  const Kyr::Time watch = Kyr::Time::currentTime();
  thread.start();
  if (!thread.isRunning() && !thread.isFinished()) {
    throw Kyr::Exception(Kyr::translate("Tour", "the system starts no thread for the analysis"));
  }
  loop.exec();
  thread.wait();
  cost.wallSeconds = watch.elapsed();
  cost.userSeconds = userSeconds() - userBefore;
  return thread.result();
}

}  // namespace Tour
