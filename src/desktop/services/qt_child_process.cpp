#include "desktop/services/qt_child_process.h"

#include "desktop/qt/conversions.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QTimer>

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>

namespace desktop {

namespace {

constexpr int niceness = 10;
constexpr int patience = 2000;            // ms between asking and force
constexpr int farewell = 1000;            // ms that the system may take for a killed process
constexpr qsizetype longestLine = 16'384; // bytes

// Runs in the child, between fork and exec, where only system calls are safe.
void becomeHelper(pid_t parent) {
    ::setpgid(0, 0);
    ::setpriority(PRIO_PROCESS, 0, niceness);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent)
        ::_exit(1); // this program ended before the line above
}

// Right after the start, there is no group yet.
void signalGroup(const QProcess& process, int signal) {
    const auto pid = static_cast<pid_t>(process.processId());
    if (pid > 0 && ::kill(-pid, signal) != 0)
        ::kill(pid, signal);
}

// Destroys it once the running handler, which may be one of its own, has returned.
void dropLater(std::shared_ptr<void> run) {
    QTimer::singleShot(0, QCoreApplication::instance(), [run = std::move(run)] {});
}

std::vector<base::Text> takeLines(QByteArray& bytes, bool isLast) {
    std::vector<base::Text> lines;
    qsizetype begin = 0;
    const auto take = [&](qsizetype end) {
        if (end > begin)
            lines.push_back(text(QString::fromUtf8(bytes.mid(begin, end - begin))));
    };
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        const bool ends = bytes[at] == '\n' || bytes[at] == '\r';
        if (!ends && at - begin < longestLine)
            continue;
        take(at);
        begin = ends ? at + 1 : at;
    }
    if (isLast)
        take(bytes.size());
    bytes = isLast ? QByteArray() : bytes.mid(begin);
    return lines;
}

} // namespace

QtChildProcess::~QtChildProcess() {
    if (run_)
        dying_.push_back(std::move(run_));
    for (const auto& run : dying_) {
        run->process.disconnect();
        signalGroup(run->process, SIGKILL);
        run->process.waitForFinished(farewell);
    }
}

void QtChildProcess::start(const std::vector<base::Text>& command, const base::Text& folder) {
    cancel();
    run_ = std::make_shared<Run>();
    Run& run = *run_;
    QProcess& process = run.process;
    // Queued: even a program that does not start is reported by the event loop.
    QObject::connect(
        &process, &QProcess::errorOccurred, &process,
        [this, &run](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                fail(run);
        },
        Qt::QueuedConnection);
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process,
                     [this, &run] { read(run, QProcess::StandardOutput, false); });
    QObject::connect(&process, &QProcess::readyReadStandardError, &process,
                     [this, &run] { read(run, QProcess::StandardError, false); });
    QObject::connect(&process, &QProcess::finished, &process,
                     [this, &run](int code, QProcess::ExitStatus status) { finish(run, code, status); });
    // Interpreters hold back what they print into a pipe.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PYTHONUNBUFFERED"), QStringLiteral("1"));
    environment.insert(QStringLiteral("PYTHONIOENCODING"), QStringLiteral("utf-8"));
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setWorkingDirectory(qstring(folder));
    process.setChildProcessModifier([parent = ::getpid()] { becomeHelper(parent); });
    QStringList arguments;
    for (std::size_t i = 1; i < command.size(); ++i)
        arguments.push_back(qstring(command[i]));
    process.start(command.empty() ? QString() : qstring(command.front()), arguments, QIODevice::ReadOnly);
}

void QtChildProcess::cancel() {
    if (!run_)
        return;
    const std::shared_ptr<Run> run = std::exchange(run_, nullptr);
    QProcess& process = run->process;
    process.disconnect();
    if (process.state() == QProcess::NotRunning) {
        dropLater(run);
        return;
    }
    dying_.push_back(run);
    QObject::connect(&process, &QProcess::finished, &process, [this, gone = std::weak_ptr(run)] {
        dropLater(gone.lock());
        std::erase(dying_, gone.lock());
    });
    process.setReadChannel(QProcess::StandardOutput);
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process,
                     [&process] { process.readAll(); });
    signalGroup(process, SIGTERM);
    QTimer::singleShot(patience, &process, [&process] { signalGroup(process, SIGKILL); });
}

bool QtChildProcess::isInstalled(const base::Text& program) const {
    const QString name = qstring(program);
    if (!name.contains(u'/'))
        return !QStandardPaths::findExecutable(name).isEmpty();
    const QFileInfo file(name);
    return file.isFile() && file.isExecutable();
}

void QtChildProcess::read(Run& run, QProcess::ProcessChannel channel, bool isLast) {
    const bool isError = channel == QProcess::StandardError;
    QByteArray& pending = isError ? run.error : run.output;
    run.process.setReadChannel(channel);
    pending += run.process.readAll();
    const auto kept = run_; // a handler may cancel the program
    for (const base::Text& line : takeLines(pending, isLast)) {
        if (run_.get() != &run)
            return;
        (isError ? ErrorLine : OutputLine)(line);
    }
}

void QtChildProcess::finish(Run& run, int code, QProcess::ExitStatus status) {
    const auto kept = run_;
    read(run, QProcess::StandardError, true);
    read(run, QProcess::StandardOutput, true);
    if (run_.get() != &run)
        return;
    run.process.disconnect();
    run_.reset();
    dropLater(kept);
    Finished({status == QProcess::NormalExit ? End::How::Exited : End::How::Killed, code, {}});
}

void QtChildProcess::fail(Run& run) {
    if (run_.get() != &run)
        return;
    const auto kept = std::exchange(run_, nullptr);
    dropLater(kept);
    Finished({End::How::NotStarted, 0, text(run.process.errorString())});
}

} // namespace desktop
