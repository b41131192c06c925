#include "linux/session/quit_signals.h"
#include "linux/ui_test/ui_test_bridge.h"
#include "model/identity.h"
#include "model/report.h"
#include "program/command_line.h"
#include "program/composition.h"
#include "program/heap_limits.h"
#include "ui/engine/accessibility_snapshot.h"

#include <QApplication>
#include <QTextStream>

using namespace pingwell;

namespace {

/// The arguments as the application object would return them, for use before one exists.
QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments << QString::fromLocal8Bit(argv[index]);
    return arguments;
}

/// Decides whether this process runs the program, before there is any window: a start that only hands over has to be
/// quick, and the graphical application object would remove the activation token from the environment. False when the
/// start was handed over to another process.
bool claimPlace(int &argc, char **argv, std::unique_ptr<SingleInstance> &instance)
{
    const QCoreApplication application(argc, argv);
    instance = makeSingleInstance(LaunchOptions::current());
    if (!instance || instance->claim(ownURLs(QCoreApplication::arguments())) == SingleInstance::Role::primary)
        return true;
    if (const auto note = handOverNote(LaunchOptions::current()))
        QTextStream(stdout) << *note;
    return false;
}

/// Lets an automated test read the windows; the person's own program offers no such access.
std::unique_ptr<UITestBridge> makeBridge(const LaunchOptions &options)
{
    if (!options.isAutomated())
        return nullptr;
    auto bridge = std::make_unique<UITestBridge>(accessibilitySnapshot);
    if (!bridge->serve())
        report("ui test", QStringLiteral("the windows can't be looked into: no session bus, or another test runs"));
    return bridge;
}

int run(int &argc, char **argv, SingleInstance *instance)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("pingwell"));
    QApplication::setApplicationDisplayName(QStringLiteral("Pingwell"));
    QApplication::setApplicationVersion(QStringLiteral(PINGWELL_VERSION));
    QApplication::setDesktopFileName(programID);
    // The program stays in the status area after the last window was closed.
    QApplication::setQuitOnLastWindowClosed(false);

    const LaunchOptions &options = LaunchOptions::current();
    std::unique_ptr<PingwellApp> app = makeApp(options, instance);
    QObject::connect(app.get(), &PingwellApp::quitRequested, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    const std::unique_ptr<UITestBridge> bridge = makeBridge(options);
    const QuitSignals quitSignals;
    QObject::connect(&quitSignals, &QuitSignals::quitRequested, app.get(), &PingwellApp::quit);
    // At log-out a session manager ends the program as soon as this signal returns.
    QObject::connect(&application, &QGuiApplication::commitDataRequest, app.get(), &PingwellApp::finishWork);
    app->start();
    const int status = QApplication::exec();
    app->finishWork();
    app.reset();
    // Pending sleeps were told to stop; this lets their coroutines resume and end.
    QCoreApplication::processEvents();
    return status;
}

} // namespace

int main(int argc, char **argv)
{
    limitHeap();
    if (const auto answer = terminalAnswer(argumentsOf(argc, argv), QStringLiteral(PINGWELL_VERSION))) {
        QTextStream(stdout) << *answer;
        return 0;
    }
    std::unique_ptr<SingleInstance> instance;
    if (!claimPlace(argc, argv, instance))
        return 0;
    return run(argc, argv, instance.get());
}
