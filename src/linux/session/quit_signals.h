#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace pingwell {

/// Turns the signals SIGTERM (log-out), SIGINT (terminal) and SIGHUP (closed terminal) into an orderly quit, so that a
/// token that is being written to the keyring is not lost. One in a process, main thread.
class QuitSignals : public QObject
{
    Q_OBJECT

public:
    explicit QuitSignals(QObject *parent = nullptr);
    ~QuitSignals() override;

signals:
    void quitRequested();

private:
    std::unique_ptr<QSocketNotifier> m_arrived;
};

} // namespace pingwell
