#include "program/command_line.h"

namespace pingwell {

namespace {

const QString helpText =
    QStringLiteral("Usage: pingwell [OPTION…] [pingwell:ADDRESS]\n"
                   "\n"
                   "Lives in the status area, shows what AI agents ask you, and sends your answers back.\n"
                   "A second start brings the running program's window up.\n"
                   "\n"
                   "  -apiBaseURL ADDRESS   use the server at this http or https address, whichever was chosen\n"
                   "  -demo                 show made-up data, without a server or an account\n"
                   "      --help            print this and end\n"
                   "      --version         print the version and end\n"
                   "\n"
                   "A pingwell: address is what the browser hands over at the end of signing in.\n");

} // namespace

std::optional<QString> terminalAnswer(const QStringList &arguments, const QString &version)
{
    for (const QString &argument : arguments) {
        if (argument == QStringLiteral("--version"))
            return QString(QStringLiteral("pingwell ") + version + QStringLiteral("\n"));
        if (argument == QStringLiteral("--help") || argument == QStringLiteral("-h"))
            return helpText;
    }
    return std::nullopt;
}

std::optional<QString> handOverNote(const LaunchOptions &options)
{
    if (!options.apiBaseURL)
        return std::nullopt;
    return QStringLiteral("[launch] -apiBaseURL was not used, because Pingwell is already running with a server of its "
                          "own; quit it first\n");
}

} // namespace pingwell
