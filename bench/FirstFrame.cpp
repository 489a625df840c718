// Linked into a program, ends it right after the first frame of its main window was shown, and
// says when that was. The program's own source stays as it is.

#include <QApplication>
#include <QMainWindow>

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

/// The clock that every process of the machine reads alike.
long long monotonicNanoseconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1'000'000'000LL + now.tv_nsec;
}

class FirstFrame : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && qobject_cast<QMainWindow*>(watched) != nullptr) {
            QCoreApplication::instance()->removeEventFilter(this);
            // The window's children paint after it, then the frame is flushed to the window system;
            // the call that waits in the queue comes after both.
            QMetaObject::invokeMethod(this, &FirstFrame::end, Qt::QueuedConnection);
        }
        return false;
    }

  private:
    /// Without the programs' clean-up: it is no part of starting.
    static void end() {
        std::printf("%lld\n", monotonicNanoseconds());
        std::fflush(stdout);
        std::_Exit(0);
    }
};

void watchForFirstFrame() {
    QCoreApplication* application = QCoreApplication::instance();
    application->installEventFilter(new FirstFrame(application));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchForFirstFrame)
