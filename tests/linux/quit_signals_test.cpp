#include "linux/session/quit_signals.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

using namespace pingwell;

/// A signal that is not caught ends this test itself.
class QuitSignalsTest : public QObject
{
    Q_OBJECT

private slots:
    void whoeverEndsTheSessionIsHeard()
    {
        for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
            const QuitSignals quitSignals;
            QSignalSpy quits(&quitSignals, &QuitSignals::quitRequested);
            raise(number);
            QTRY_COMPARE(quits.size(), 1);
        }
        // Under nohup the terminal may close.
        std::signal(SIGHUP, SIG_IGN);
        const QuitSignals quitSignals;
        QSignalSpy quits(&quitSignals, &QuitSignals::quitRequested);
        raise(SIGHUP);
        raise(SIGTERM);
        QTRY_VERIFY(!quits.isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(quits.size(), 1);
    }
};

QTEST_GUILESS_MAIN(QuitSignalsTest)
#include "quit_signals_test.moc"
