#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>

namespace pingwell {

/// What the kernel holds for a process, in KiB.
struct Memory
{
    qint64 proportional = 0;
    qint64 privateDirty = 0;
};

/// A program under measurement. Qt Quick tells its frames on standard error, through its own logging category.
class MeasuredProcess
{
public:
    MeasuredProcess(const QString &program, const QStringList &arguments);
    ~MeasuredProcess();
    MeasuredProcess(const MeasuredProcess &) = delete;
    MeasuredProcess &operator=(const MeasuredProcess &) = delete;

    /// Milliseconds since the start.
    [[nodiscard]] double elapsed() const;
    /// Waits for the next frame; the milliseconds from this call until it, or less than 0 when none came in 10 s.
    double waitForFrame();
    [[nodiscard]] qint64 id() const { return m_process.processId(); }
    [[nodiscard]] Memory memory() const;
    /// Processor time spent so far, in milliseconds.
    [[nodiscard]] double processorTime() const;
    /// How often a thread of the program went to sleep by itself so far, and so was woken again.
    [[nodiscard]] qint64 wakeUps() const;

private:
    QProcess m_process;
    QElapsedTimer m_sinceStart;
};

} // namespace pingwell
