#include "measured_process.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcessEnvironment>

#include <unistd.h>

namespace pingwell {

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

qint64 numberAfter(const QByteArray &text, const QByteArray &key)
{
    const qsizetype at = text.indexOf(key);
    if (at < 0)
        return 0;
    const qsizetype end = text.indexOf('\n', at);
    return text.mid(at + key.size(), end - at - key.size()).simplified().split(' ').first().toLongLong();
}

} // namespace

MeasuredProcess::MeasuredProcess(const QString &program, const QStringList &arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("qt.scenegraph.time.renderloop=true"));
    environment.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    m_process.setProcessEnvironment(environment);
    m_sinceStart.start();
    m_process.start(program, arguments);
    m_process.waitForStarted();
}

MeasuredProcess::~MeasuredProcess()
{
    m_process.terminate();
    if (!m_process.waitForFinished(3000)) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

double MeasuredProcess::elapsed() const
{
    return static_cast<double>(m_sinceStart.nsecsElapsed()) / 1e6;
}

double MeasuredProcess::waitForFrame()
{
    QElapsedTimer waited;
    waited.start();
    QByteArray seen;
    while (waited.elapsed() < 10'000) {
        seen += m_process.readAllStandardError();
        if (seen.contains("renderloop"))
            return static_cast<double>(waited.nsecsElapsed()) / 1e6;
        // The program may have a question for the status area, which this process plays.
        QCoreApplication::processEvents();
        m_process.waitForReadyRead(1);
    }
    return -1;
}

Memory MeasuredProcess::memory() const
{
    const QByteArray rollup = contents(QStringLiteral("/proc/%1/smaps_rollup").arg(id()));
    return {.proportional = numberAfter(rollup, "\nPss:"), .privateDirty = numberAfter(rollup, "\nPrivate_Dirty:")};
}

double MeasuredProcess::processorTime() const
{
    const QByteArray stat = contents(QStringLiteral("/proc/%1/stat").arg(id()));
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    const double ticks = fields.value(11).toDouble() + fields.value(12).toDouble();
    return ticks * 1000 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

qint64 MeasuredProcess::wakeUps() const
{
    qint64 count = 0;
    const QString tasks = QStringLiteral("/proc/%1/task").arg(id());
    for (const QString &task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        count += numberAfter(contents(tasks + u'/' + task + QStringLiteral("/status")), "\nvoluntary_ctxt_switches:");
    return count;
}

} // namespace pingwell
