#include "StartWatch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdlib>
#include <ctime>
#include <sys/resource.h>
#include <unistd.h>

namespace pulselark {

namespace {

constexpr int SettlingMilliseconds = 2000;
constexpr int RestMilliseconds = 3000;

StartWatched program;

double Milliseconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// A painted window is on the screen when the events that were there with it are through.
class StartWatch final : public QObject {
public:
    StartWatch(double begun, int report) : begun_(begun), report_(report) {
        QCoreApplication::instance()->installEventFilter(this);
    }

private:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Timer && resting_ && object != this)
            ++figures_.TimersAtRest;
        if (event->type() == QEvent::Paint && !waiting_ && figures_.Settled == 0) {
            if (object->objectName() == "frmMain")
                window_ = qobject_cast<QWidget*>(object);
            if (window_ != nullptr) {
                waiting_ = true;
                QTimer::singleShot(0, this, [this] { NotePainting(); });
            }
        }
        return false;
    }

    void NotePainting() {
        waiting_ = false;
        const double now = WallMilliseconds() - begun_;
        if (figures_.Painted == 0)
            figures_.Painted = now;
        const bool settled = program.Settled == nullptr || program.Settled();
        if (!settled || figures_.Settled != 0)
            return;
        figures_.Settled = now;
        figures_.Width = window_->width();
        figures_.Height = window_->height();
        if (program.BeforeRest != nullptr)
            startTimer(SettlingMilliseconds);
        else
            Report();
    }

    // First the program stops what it does; then it settles; then it rests.
    void timerEvent(QTimerEvent* event) override {
        killTimer(event->timerId());
        if (++step_ == 1) {
            program.BeforeRest();
            startTimer(SettlingMilliseconds);
        } else if (step_ == 2) {
            resting_ = true;
            figures_.ProcessorAtRest = Milliseconds(CLOCK_PROCESS_CPUTIME_ID);
            startTimer(RestMilliseconds);
        } else {
            figures_.ProcessorAtRest = Milliseconds(CLOCK_PROCESS_CPUTIME_ID) - figures_.ProcessorAtRest;
            Report();
        }
    }

    void Report() {
        rusage use{};
        ::getrusage(RUSAGE_SELF, &use);
        figures_.PeakMebibytes = static_cast<double>(use.ru_maxrss) / 1024;
        if (::write(report_, &figures_, sizeof figures_) != sizeof figures_)
            ::_exit(1);
        ::_exit(0);
    }

    StartFigures figures_;
    double begun_;
    int report_;
    QWidget* window_ = nullptr;
    int step_ = 0;
    bool waiting_ = false;
    bool resting_ = false;
};

void InstallWatch() {
    const char* started = std::getenv(StartedVariable);
    const char* report = std::getenv(ReportVariable);
    if (started != nullptr && report != nullptr)
        new StartWatch(std::atof(started), std::atoi(report)); // lives as long as the process
}
Q_COREAPP_STARTUP_FUNCTION(InstallWatch)

} // namespace

double WallMilliseconds() {
    return Milliseconds(CLOCK_MONOTONIC);
}

void WatchStart(const StartWatched& watched) {
    program = watched;
}

} // namespace pulselark
