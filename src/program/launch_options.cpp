#include "program/launch_options.h"

#include "api/api_client.h"

#include <QCoreApplication>

namespace pingwell {

namespace {

/// Set, to any value, by a test runner that hosts the process.
const QString testRunnerVariable = QStringLiteral("XCTestConfigurationFilePath");

std::optional<QString> valueAfter(const QString &flag, const QStringList &arguments)
{
    const qsizetype index = arguments.indexOf(flag);
    if (index < 0 || index + 1 >= arguments.size())
        return std::nullopt;
    return arguments.at(index + 1);
}

std::optional<QUrl> baseURLIn(const QStringList &arguments)
{
    const std::optional<QString> value = valueAfter(QStringLiteral("-apiBaseURL"), arguments);
    return value ? APIClient::normalizedBaseURL(*value) : std::nullopt;
}

} // namespace

LaunchOptions LaunchOptions::parse(const QStringList &arguments, const QProcessEnvironment &environment)
{
    LaunchOptions options;
    options.isUITest = arguments.contains(QStringLiteral("-uitest"));
    options.isLiveUITest = arguments.contains(QStringLiteral("-uitest-live"));
    options.isDemo =
        environment.contains(testRunnerVariable) || options.isUITest || arguments.contains(QStringLiteral("-demo"));
    options.signedOut = arguments.contains(QStringLiteral("-uitest-signed-out"));
    options.popoverPreview = arguments.contains(QStringLiteral("-uitest-popover"));
    options.apiBaseURL = baseURLIn(arguments);
    return options;
}

const LaunchOptions &LaunchOptions::current()
{
    static const LaunchOptions options = parse(QCoreApplication::arguments(), QProcessEnvironment::systemEnvironment());
    return options;
}

} // namespace pingwell
