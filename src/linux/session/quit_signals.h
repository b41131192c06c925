#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace pingwell {

/// Turns the wish to end that arrives as a signal (SIGTERM at log-out, SIGINT from a terminal, SIGHUP when that closes)
/// into an orderly quit: a token on its way into the keyring still gets there. One in a process, main thread.
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
