// A notification server for scripts: writes what it is asked to show to standard output, a JSON object a line, and does
// what it is told on standard input, a command a line:
//
//   press NUMBER KEY     the person presses a button of a banner
//   reply NUMBER TEXT    the person types into its reply field
//   dismiss NUMBER       the person closes it
//   restart              the server leaves the bus and comes back, as after a crash of its own
//
// It ends with its standard input.
#include "support/scripted_notification_server.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>

#include <cstdio>
#include <iostream>
#include <string>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

constexpr uint dismissed = 2;

void write(const QString &event, QJsonObject line)
{
    line[u"t"_s] = double(QDateTime::currentMSecsSinceEpoch()) / 1000;
    line[u"event"_s] = event;
    std::printf("%s\n", QJsonDocument(line).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

void writeShown(const ShownNotification &banner)
{
    write(u"shown"_s, {{u"number"_s, int(banner.number)},
                       {u"replaced"_s, int(banner.replaced)},
                       {u"summary"_s, banner.summary},
                       {u"body"_s, banner.body},
                       {u"actions"_s, QJsonArray::fromStringList(banner.actions)}});
}

/// False for a command that there is not.
bool obey(ScriptedNotificationServer &server, const QString &line)
{
    const QString command = line.section(u' ', 0, 0);
    const uint number = line.section(u' ', 1, 1).toUInt();
    const QString rest = line.section(u' ', 2);
    if (command == u"press")
        server.invokeAction(number, rest);
    else if (command == u"reply")
        server.reply(number, rest);
    else if (command == u"dismiss")
        server.close(number, dismissed);
    else if (command == u"restart")
        return server.vanish(), server.appear();
    else
        return false;
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    // So that the stream knows what it has read ahead.
    std::ios::sync_with_stdio(false);
    ScriptedNotificationServer server;
    server.capabilities << u"inline-reply"_s;
    QObject::connect(&server, &ScriptedNotificationServer::wasShown, &writeShown);
    QObject::connect(&server, &ScriptedNotificationServer::wasClosed, [](uint number) {
        write(u"closed"_s, {{u"number"_s, int(number)}});
    });
    if (!server.appear()) {
        std::fprintf(stderr, "Another notification server is on this bus.\n");
        return 1;
    }
    QSocketNotifier input(0, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&server] {
        // Lines that came together are read together: the notifier does not tell of what lies in a buffer.
        do {
            std::string line;
            if (!std::getline(std::cin, line))
                return QCoreApplication::quit();
            if (!obey(server, QString::fromStdString(line)))
                std::fprintf(stderr, "No such command: %s\n", line.c_str());
        } while (std::cin.rdbuf()->in_avail() > 0);
    });
    return QCoreApplication::exec();
}
