#pragma once

#include "platform/child_process.h"

#include <QByteArray>
#include <QProcess>

#include <memory>
#include <vector>

namespace desktop {

// Programs as child processes on Qt's event loop. Each leads a process group of its own, so that what it
// starts ends with it.
class QtChildProcess : public platform::ChildProcess {
public:
    ~QtChildProcess() override;

    void start(const std::vector<base::Text>& command, const base::Text& folder) override;
    void cancel() override;
    bool isInstalled(const base::Text& program) const override;

private:
    // One run. Its signals are disconnected before it is dropped.
    struct Run {
        QProcess process;
        QByteArray output; // lines that are not complete
        QByteArray error;
    };
    using Report = std::function<void(base::TextView)> platform::ChildProcess::*;

    void read(Run& run, QProcess::ProcessChannel channel, bool isLast);
    void finish(Run& run, int code, QProcess::ExitStatus status);
    void fail(Run& run);

    std::shared_ptr<Run> run_;                // null while no program runs
    std::vector<std::shared_ptr<Run>> dying_; // cancelled, but not gone yet
};

} // namespace desktop
