#include "store_fixture.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QTest>
#include <QThreadPool>

namespace pingwell {

namespace {

QJsonObject with(QJsonObject base, const QJsonObject &more)
{
    for (auto entry = more.begin(); entry != more.end(); ++entry)
        base.insert(entry.key(), entry.value());
    return base;
}

} // namespace

QJsonObject alertJSON(const QString &id, double secondsAgo, const QJsonObject &more)
{
    return with({{QStringLiteral("id"), id},
                 {QStringLiteral("workspaceId"), QStringLiteral("w1")},
                 {QStringLiteral("title"), QString(QStringLiteral("Alert ") + id)},
                 {QStringLiteral("at"), millisecondsFromInstant(testStart - Seconds(secondsAgo))}},
                more);
}

QJsonObject askJSON(const QString &id, double secondsAgo, const QJsonObject &more)
{
    return with(alertJSON(id, secondsAgo,
                          {{QStringLiteral("kind"), QStringLiteral("ask")},
                           {QStringLiteral("actions"), QJsonArray{QStringLiteral("Approve"), QStringLiteral("Deny")}}}),
                more);
}

QJsonObject workspaceJSON(const QString &id, const QString &role)
{
    return {{QStringLiteral("id"), id},
            {QStringLiteral("name"), QString(QStringLiteral("Workspace ") + id)},
            {QStringLiteral("kind"), QStringLiteral("team")},
            {QStringLiteral("role"), role}};
}

QByteArray DashboardJSON::body() const
{
    const QJsonObject data{{QStringLiteral("workspaces"), workspaces},
                           {QStringLiteral("members"), members},
                           {QStringLiteral("devices"), devices},
                           {QStringLiteral("topics"), topics},
                           {QStringLiteral("alerts"), alerts},
                           {QStringLiteral("settings"), settings},
                           {QStringLiteral("plan"), QJsonObject{{QStringLiteral("name"), QStringLiteral("Pro")}}}};
    return QJsonDocument(data).toJson(QJsonDocument::Compact);
}

StoreFixture::StoreFixture()
{
    backend->tokenStore = tokens;
    backend->transport = transport;
    backend->notifier = notifier;
    backend->baseURLOverride = QUrl(QStringLiteral("https://pingwell.test"));
    backend->deviceName = QStringLiteral("Desk");
    backend->appVersion = QStringLiteral("1.2");
    transport->always("GET", "/auth/providers", ScriptedAnswer::noAnswer());
}

StoreFixture::~StoreFixture()
{
    while (transport->release()) {
    }
    settle();
    store.reset();
    clock.reset();
    settle();
}

void StoreFixture::start()
{
    store = std::make_unique<AppStore>(SeedData(), false, preferences, clock->now(), backend, clock);
}

void StoreFixture::startWith(const DashboardJSON &dashboard)
{
    start();
    refreshWith(dashboard);
    QVERIFY(store->hasLoaded());
}

void StoreFixture::refreshWith(const DashboardJSON &dashboard)
{
    transport->plan("GET", "/dashboard", ScriptedAnswer::data(dashboard.body()));
    store->refresh();
    settle();
}

void StoreFixture::settle()
{
    // An answer passes through the event loop and the thread pool a bounded number of times.
    for (int turn = 0; turn < 8; ++turn) {
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

Alert StoreFixture::alert(const QString &id) const
{
    const auto found = store->alertWithID(id);
    return found.value_or(Alert());
}

} // namespace pingwell
