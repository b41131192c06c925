#include "dev_server.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using namespace pingwell;
using namespace pingwell::devserver;

struct Options
{
    quint16 port = 0;
    QString token;
    QString seed;
};

[[noreturn]] void fail(const QString &problem)
{
    std::fprintf(stderr, "[devserver] %s\n", qUtf8Printable(problem));
    std::exit(2);
}

Options optionsFrom(const QCoreApplication &application)
{
    const QCommandLineOption port(u"port"_s, u"The port to listen on; 0 takes any free one."_s, u"number"_s, u"0"_s);
    const QCommandLineOption token(u"token"_s, u"A session token that is good from the start."_s, u"token"_s);
    const QCommandLineOption seed(u"seed"_s, u"What it starts with: demo or empty."_s, u"name"_s, u"demo"_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"A stand-in for the Pingwell service, on this machine only, in memory only."_s);
    parser.addHelpOption();
    parser.addOptions({port, token, seed});
    parser.process(application);

    bool isPort = false;
    const Options options{parser.value(port).toUShort(&isPort), parser.value(token), parser.value(seed)};
    if (!isPort)
        fail(u"--port takes a number from 0 to 65535."_s);
    if (options.seed != u"demo" && options.seed != u"empty")
        fail(u"--seed takes demo or empty."_s);
    return options;
}

ServiceState startingState(const Options &options)
{
    ServiceState state;
    if (options.seed == u"demo")
        state.startDemo(std::chrono::time_point_cast<Seconds>(std::chrono::system_clock::now()));
    else
        state.startEmpty();
    if (!options.token.isEmpty())
        state.sessions.admit(options.token);
    return state;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const Options options = optionsFrom(application);
    DevServer server(startingState(options));
    const quint16 port = server.listenOnLoopback(options.port);
    if (port == 0)
        fail(u"Port %1 is taken."_s.arg(options.port));
    std::printf("[devserver] listening on http://127.0.0.1:%d\n", port);
    std::fflush(stdout);
    return QCoreApplication::exec();
}
